// Artboard points, with the plane points and sizes beside them.
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "core/values/ArtboardPoint.h"
#include "core/values/Point.h"
#include "core/values/Size.h"
#include "core/values/TransformMatrix.h"

namespace {

using kzo::core::Angle;
using kzo::core::ArtboardPoint;
using kzo::core::Point;
using kzo::core::Size;
using kzo::core::TransformMatrix;

// Points are copied for every anchor of every path: they must stay as cheap as two numbers.
static_assert(std::is_trivially_copyable_v<ArtboardPoint> && sizeof(ArtboardPoint) == 2 * sizeof(double));

Angle deg(double value) { return {value, Angle::Units::Degrees}; }

TEST(ArtboardPoint, KnowsThatUpIsNegative) {
    const ArtboardPoint origin;
    const struct {
        ArtboardPoint to;
        double degrees;
    } rows[] = {{{10, 0}, 0}, {{0, -10}, 90}, {{-10, 0}, 180}, {{0, 10}, 270}, {{1, -1}, 45}};
    for (const auto& row : rows) EXPECT_EQ(origin ^ row.to, deg(row.degrees)) << row.degrees;
    EXPECT_EQ(ArtboardPoint(1, 2) | ArtboardPoint(4, 6), 5);
}

TEST(ArtboardPoint, MovesAlongTheAxesExactly) {
    const ArtboardPoint start(0.1, 0.7);
    EXPECT_EQ(ArtboardPoint().move(10, deg(90)), ArtboardPoint(0, -10));
    for (const double degrees : {0, 180}) EXPECT_EQ(start.move(1e6, deg(degrees)).y(), 0.7);
    for (const double degrees : {90, 270}) EXPECT_EQ(start.move(1e6, deg(degrees)).x(), 0.1);
    // 30 degrees: sine 1/2, cosine √3/2
    EXPECT_TRUE(ArtboardPoint(1, 1).move(2, deg(30)).closeTo({1 + 1.7320508075688772, 0}, 1e-12));
    EXPECT_TRUE(ArtboardPoint::LengthAngle(2, deg(-30)).closeTo({1.7320508075688772, 1}, 1e-12));
    EXPECT_EQ(start, ArtboardPoint(0.1, 0.7)) << "moving answers another point";
}

TEST(ArtboardPoint, ComputesOnEachCoordinate) {
    const ArtboardPoint a(6, 8);
    const ArtboardPoint b(3, 2);
    const std::pair<ArtboardPoint, ArtboardPoint> rows[] = {
        {a + b, {9, 10}}, {a - b, {3, 6}},   {a * b, {18, 16}}, {a / b, {2, 4}},          {a + 1, {7, 9}},
        {a - 1, {5, 7}},  {a * 2, {12, 16}}, {a / 2, {3, 4}},   {a.offset(-1, 1), {5, 9}}};
    for (const auto& [actual, expected] : rows) EXPECT_EQ(actual, expected);
    EXPECT_EQ(a.dotProduct(b), 34);
}

TEST(ArtboardPoint, OrdersByBothCoordinates) {
    const ArtboardPoint a(1, 1);
    const ArtboardPoint right(2, 1);
    EXPECT_TRUE(a <= right && right >= a && !(a < right) && !(right > a));
    EXPECT_TRUE(a < ArtboardPoint(2, 2) && ArtboardPoint(2, 2) > a);
    const ArtboardPoint aside(2, 0);
    EXPECT_FALSE(a < aside || a <= aside || a > aside || a >= aside);
    EXPECT_TRUE(a.closeTo({1.4, 0.6}, 0.5));
    EXPECT_FALSE(a.closeTo({1.5, 1}, 0.5));
}

TEST(ArtboardPoint, RotatesClockwiseOnScreenAboutItsOrigin) {
    // Right of the centre, then below it: y grows downward.
    EXPECT_TRUE(ArtboardPoint(15, 7).rotate({5, 7}, deg(90)).closeTo({5, 17}, 1e-12));
    EXPECT_TRUE(ArtboardPoint(15, 7).rotate({5, 7}, deg(180)).closeTo({-5, 7}, 1e-12));
    EXPECT_EQ(ArtboardPoint(5, 7).rotate({5, 7}, deg(33)), ArtboardPoint(5, 7));
    EXPECT_EQ(ArtboardPoint(10, 100).transform(TransformMatrix(1, 2, 3, 4, 5, 6)), ArtboardPoint(315, 426));
}

TEST(ArtboardPoint, IsInsideAPolygonByEvenOddCount) {
    // A square with a square hole, traced in one go.
    const std::vector<ArtboardPoint> ring = {{0, 0}, {9, 0}, {9, 9}, {0, 9}, {0, 0},
                                             {3, 3}, {6, 3}, {6, 6}, {3, 6}, {3, 3}};
    EXPECT_TRUE(ArtboardPoint(1, 5).insidePolygon(ring));
    for (const ArtboardPoint& out : {ArtboardPoint(4, 5), {10, 5}, {-1, 9}}) EXPECT_FALSE(out.insidePolygon(ring));
    EXPECT_FALSE(ArtboardPoint(1, 5).insidePolygon({}));
    EXPECT_TRUE(Point(1, 1).insidePolygon({{0, 0}, {4, 0}, {0, 4}})) << "the last edge is closed";
    EXPECT_FALSE(Point(3, 3).insidePolygon({{0, 0}, {4, 0}, {0, 4}}));
}

TEST(ArtboardPoint, HasPlainPointsAndSizesBesideIt) {
    Point point(1, 2);
    point += Point(3, 4);
    EXPECT_EQ(point - Point(1, 1), Point(3, 5));
    EXPECT_EQ(Size(1, 2) + Size(3, 1), Size(4, 3));
    EXPECT_EQ(Size(4, 3) - Size(1, 1), Size(3, 2));
    EXPECT_EQ(Size(4, 3).diagonalLength(), 5);
    EXPECT_EQ(Size(2, 2).diagonalAngle(), deg(45));
    EXPECT_EQ(Size(0, 2).diagonalAngle(), deg(90));
}

} // namespace
