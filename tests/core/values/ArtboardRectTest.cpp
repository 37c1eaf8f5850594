// Rectangles of artboard and screen: the same rules on different members.
#include <gtest/gtest.h>

#include "core/values/ArtboardRect.h"
#include "core/values/Rect.h"

namespace {

using kzo::core::ArtboardPoint;
using kzo::core::ArtboardRect;
using kzo::core::Point;
using kzo::core::Rect;
using kzo::core::Size;

TEST(ArtboardRect, NamesItsPointsWithTopAtTheSmallerY) {
    const ArtboardRect edges(10, 20, 30, 60);
    const Rect sized(10, 20, 20, 40);
    const struct {
        ArtboardPoint (ArtboardRect::*artboard)() const;
        Point (Rect::*screen)() const;
        double x;
        double y;
    } rows[] = {
        {&ArtboardRect::topLeft, &Rect::topLeft, 10, 20},
        {&ArtboardRect::topCenter, &Rect::topCenter, 20, 20},
        {&ArtboardRect::topRight, &Rect::topRight, 30, 20},
        {&ArtboardRect::midLeft, &Rect::midLeft, 10, 40},
        {&ArtboardRect::midCenter, &Rect::midCenter, 20, 40},
        {&ArtboardRect::midRight, &Rect::midRight, 30, 40},
        {&ArtboardRect::bottomLeft, &Rect::bottomLeft, 10, 60},
        {&ArtboardRect::bottomCenter, &Rect::bottomCenter, 20, 60},
        {&ArtboardRect::bottomRight, &Rect::bottomRight, 30, 60},
    };
    for (const auto& row : rows) {
        EXPECT_EQ((edges.*row.artboard)(), ArtboardPoint(row.x, row.y)) << row.x << ' ' << row.y;
        EXPECT_EQ((sized.*row.screen)(), Point(row.x, row.y)) << row.x << ' ' << row.y;
    }
    EXPECT_EQ(edges.width(), 20);
    EXPECT_EQ(edges.height(), 40);
    EXPECT_EQ(edges.area(), 800);
    EXPECT_EQ(sized.area(), 800);
    EXPECT_EQ(edges.perimeter(), 120);
    EXPECT_EQ(sized.perimeter(), 120);
}

TEST(ArtboardRect, MovesGrowsAndShrinksAnother) {
    const ArtboardRect edges(10, 20, 30, 60);
    EXPECT_EQ(edges.offset(1, -2), ArtboardRect(11, 18, 31, 58));
    EXPECT_EQ(edges.resize(5, 6), ArtboardRect(10, 20, 15, 26));
    EXPECT_EQ(edges.inset(1, 2), ArtboardRect(11, 22, 29, 58));
    EXPECT_EQ(edges, ArtboardRect(10, 20, 30, 60));
    const Rect sized(Point(10, 20), Size(20, 40));
    EXPECT_EQ(sized.offset(1, -2), Rect(11, 18, 20, 40));
    EXPECT_EQ(sized.resize(5, 6), Rect(10, 20, 5, 6));
    EXPECT_EQ(sized.inset(1, 2), Rect(11, 22, 18, 36));
}

TEST(ArtboardRect, UnitesAndIntersectsWithTheBorderInside) {
    const ArtboardRect a(0, 0, 10, 10);
    const ArtboardRect b(5, -5, 20, 5);
    const ArtboardRect touching(10, 10, 12, 12);
    const ArtboardRect apart(11, 0, 12, 10);
    EXPECT_EQ(a + b, ArtboardRect(0, -5, 20, 10));
    EXPECT_EQ(a - b, ArtboardRect(5, 0, 10, 5));
    EXPECT_TRUE(a.overlaps(touching));
    EXPECT_EQ(a - touching, ArtboardRect(10, 10, 10, 10));
    EXPECT_FALSE(a.overlaps(apart));
    EXPECT_FALSE(apart.overlaps(a));
    EXPECT_EQ(apart - a, ArtboardRect());
    EXPECT_TRUE(a.containsPoint({10, 0}));
    EXPECT_FALSE(a.containsPoint({10.001, 0}));
    EXPECT_FALSE(a.containsPoint({5, -0.001}));

    EXPECT_EQ(Rect(0, 0, 10, 10) + Rect(5, -5, 15, 10), Rect(0, -5, 20, 15));
    EXPECT_EQ(Rect(0, 0, 10, 10) - Rect(5, -5, 15, 10), Rect(5, 0, 5, 5));
    EXPECT_TRUE(Rect(0, 0, 10, 10).overlaps({10, 10, 2, 2}));
    EXPECT_TRUE(Rect(1, 1, 2, 2).containsPoint({3, 3}));
    EXPECT_FALSE(Rect(1, 1, 2, 2).containsPoint({3, 3.5}));
}

} // namespace
