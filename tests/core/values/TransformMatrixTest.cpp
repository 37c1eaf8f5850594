// Transforms: composition order, deliberate signs, inversion.
#include <gtest/gtest.h>

#include "core/values/Angle.h"
#include "core/values/ArtboardPoint.h"
#include "core/values/TransformMatrix.h"

namespace {

using kzo::core::Angle;
using kzo::core::ArtboardPoint;
using kzo::core::TransformMatrix;

Angle deg(double value) { return {value, Angle::Units::Degrees}; }

TEST(TransformMatrix, SettingTouchesItsOwnElementsOnly) {
    TransformMatrix m(1, 2, 3, 4, 5, 6);
    m.setTranslate(7, 8);
    EXPECT_EQ(m, TransformMatrix(1, 2, 3, 4, 7, -8)) << "a translation takes y upwards";
    m.setScale(9, 10);
    EXPECT_EQ(m, TransformMatrix(9, 2, 3, 10, 7, -8));
    m.setRotate(deg(90));
    EXPECT_EQ(m, TransformMatrix(0, 1, -1, 0, 7, -8)) << "the sine and cosine of a quarter turn are exact";
    EXPECT_FALSE(m.isIdentity());
    m.setIdentity();
    EXPECT_TRUE(m.isIdentity());
    EXPECT_EQ(m, TransformMatrix());
}

TEST(TransformMatrix, AppliesWhatIsAddedLast) {
    TransformMatrix m;
    m.concatRotate(deg(90));
    m.concatTranslate(10, 0);
    // (1, 0) turns to (0, 1), then moves right.
    EXPECT_EQ(ArtboardPoint(1, 0).transform(m), ArtboardPoint(10, 1));
    m.concatScale(2, 3);
    EXPECT_EQ(ArtboardPoint(1, 0).transform(m), ArtboardPoint(20, 3));

    // Multiplied by hand: rows of the first with columns of the second.
    const TransformMatrix product = TransformMatrix(1, 2, 3, 4, 5, 6) * TransformMatrix(7, 8, 9, 10, 11, 12);
    EXPECT_EQ(product, TransformMatrix(25, 28, 57, 64, 100, 112));
    TransformMatrix squared(1, 2, 3, 4, 5, 6);
    squared *= squared;
    EXPECT_EQ(squared, TransformMatrix(7, 10, 15, 22, 28, 40));
}

TEST(TransformMatrix, InvertsEvenIntoItself) {
    TransformMatrix m(2, 1, -3, 4, 50, -7);
    EXPECT_EQ(m.determinant(), 11);
    TransformMatrix inverse;
    ASSERT_TRUE(m.invert(inverse));
    EXPECT_TRUE(ArtboardPoint(12, 34).transform(m).transform(inverse).closeTo({12, 34}, 1e-12));
    ASSERT_TRUE(m.invert(m));
    EXPECT_EQ(m, inverse);
}

TEST(TransformMatrix, DegenerateInvertsToTheIdentity) {
    TransformMatrix flat(1e-7, 0, 0, 1, 3, 4);
    EXPECT_TRUE(flat.degenerate());
    TransformMatrix out(1, 2, 3, 4, 5, 6);
    EXPECT_FALSE(flat.invert(out));
    EXPECT_TRUE(out.isIdentity());
    EXPECT_FALSE(TransformMatrix(1e-6, 0, 0, 1, 0, 0).degenerate()) << "the limit itself is not within it";
}

} // namespace
