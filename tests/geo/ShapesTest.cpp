// Elementary shapes against the definitions of what they stand for.
#include <cmath>

#include <gtest/gtest.h>

#include "Curves.h"
#include "geo/Shapes.h"
#include "geo/Vector.h"

namespace {

using namespace kzo::geo;
using namespace kzo::geo::test;

std::vector<Point> anchorsOf(const Path& path) {
    std::vector<Point> points;
    for (const Anchor& anchor : path.anchors) points.push_back(anchor.p);
    return points;
}

/// The greatest distance of a point of the path from a circle, in parts of its radius.
double stray(const Path& path, Point center, double radius) {
    double worst = 0;
    for (std::size_t i = 0; i < path.segCount(); ++i)
        for (double t = 0; t <= 1; t += 1. / 64)
            worst = std::max(worst, std::abs(norm(path.seg(i).evaluate(t) - center) - radius) / radius);
    return worst;
}

TEST(Shapes, EllipsesKeepToTheirCurve) {
    Path path = ellipse({10, 20}, -200, 50);
    EXPECT_EQ(anchorsOf(path), (std::vector<Point>{{10, -5}, {110, 20}, {10, 45}, {-90, 20}}))
        << "clockwise from the top";
    for (Anchor& anchor : path.anchors)
        for (Point* p : {&anchor.p, &anchor.in, &anchor.out}) p->y = 20 + 4 * (p->y - 20);
    EXPECT_LE(stray(path, {10, 20}, 100), 3e-4);
    EXPECT_FALSE(path.anchors[0].corner);
}

TEST(Shapes, ArcsThroughPointsOnALineAreThatLine) {
    // Rounding takes the middle point a hair off the line.
    for (const Point& end : {Point{.3, .9}, Point{-7.7, -23.1}, Point{1e6, 3e6}}) {
        const auto line = arc({0, 0}, scaled(end, 1.0 / 3.0), end);
        ASSERT_TRUE(line);
        EXPECT_EQ(line->anchors.size(), 2u);
        EXPECT_FALSE(arc({0, 0}, scaled(end, 4.0 / 3.0), end)) << "not between them";
    }
}

TEST(Shapes, WhatIsNotFiniteStaysSo) {
    const auto finite = [](const Path& path) {
        for (const Anchor& anchor : path.anchors)
            if (!std::isfinite(anchor.p.x + anchor.p.y + anchor.in.x + anchor.out.y)) return false;
        return true;
    };
    for (const double odd : {std::nan(""), HUGE_VAL}) {
        EXPECT_FALSE(finite(rectangle({{0, 0}, {odd, 9}})));
        EXPECT_FALSE(finite(rectangle({{0, odd}, {5, 9}})));
        EXPECT_FALSE(finite(roundedRectangle({{0, 0}, {5, 9}}, odd)));
        EXPECT_FALSE(finite(chamferedRectangle({{0, 0}, {5, 9}}, odd)));
    }
}

TEST(Shapes, ArcsPassTheirPointsOnOneCircle) {
    Curves curves(21);
    for (int i = 0; i < 2'000; ++i) {
        const Point center = curves.point();
        const double radius = curves.number(1, 300);
        const double from = curves.number(0, 7);
        const double sweep = curves.number(0.01, 6.27) * (i % 2 == 0 ? 1 : -1);
        const auto at = [&](double part) {
            return center + Point{radius * std::cos(from + part * sweep), radius * std::sin(from + part * sweep)};
        };
        const auto path = arc(at(0), at(curves.number(0.1, 0.9)), at(1));
        ASSERT_TRUE(path);
        EXPECT_LE(stray(*path, center, radius), 3e-4) << i;
        EXPECT_EQ(path->anchors.front().p, at(0));
        EXPECT_EQ(path->anchors.back().p, at(1));
        EXPECT_NEAR(path->length(), radius * std::abs(sweep), 1e-3 * radius * std::abs(sweep))
            << "the way past the point";
    }
    const auto flat = arc({0, 0}, {5, 0}, {10, 0});
    ASSERT_TRUE(flat);
    EXPECT_EQ(anchorsOf(*flat), (std::vector<Point>{{0, 0}, {10, 0}}));
    const auto nearlyFlat = arc({0, 0}, {5, 1e-13}, {10, 0});
    ASSERT_TRUE(nearlyFlat);
    EXPECT_NEAR(nearlyFlat->length(), 10, 1e-9);
    EXPECT_FALSE(arc({0, 0}, {15, 0}, {10, 0})) << "beyond the end";
    EXPECT_FALSE(arc({0, 0}, {0, 0}, {10, 0}) || arc({0, 0}, {5, 5}, {0, 0}) || arc({0, 0}, {10, 0}, {10, 0}));
}

TEST(Shapes, CornersAreCutByNoMoreThanHalfTheShorterSide) {
    const Box box{{0, 0}, {40, 20}};
    EXPECT_EQ(anchorsOf(rectangle({{40, 0}, {0, 20}})), (std::vector<Point>{{0, 0}, {40, 0}, {40, 20}, {0, 20}}));
    EXPECT_EQ(anchorsOf(chamferedRectangle(box, 5)),
              (std::vector<Point>{{5, 0}, {35, 0}, {40, 5}, {40, 15}, {35, 20}, {5, 20}, {0, 15}, {0, 5}}));
    EXPECT_EQ(anchorsOf(chamferedRectangle(box, 99)),
              (std::vector<Point>{{10, 0}, {30, 0}, {40, 10}, {30, 20}, {10, 20}, {0, 10}}));
    EXPECT_EQ(chamferedRectangle(box, 0), rectangle(box));
    EXPECT_EQ(roundedRectangle(box, -3), rectangle(box));

    const Path rounded = roundedRectangle(box, 99);
    EXPECT_EQ(anchorsOf(rounded), anchorsOf(chamferedRectangle(box, 99)));
    EXPECT_NEAR(std::abs(rounded.signedArea()), 400 + M_PI * 100, 0.2) << "a square between two half circles";
    Path end{{rounded.anchors[1], rounded.anchors[2], rounded.anchors[3]}, false};
    EXPECT_LE(stray(end, {30, 10}, 10), 3e-4);
    EXPECT_NEAR(roundedRectangle(box, 4).length(), 2 * (32 + 12) + 8 * M_PI, 0.01);
    EXPECT_TRUE(roundedRectangle({{0, 0}, {20, 20}}, 10).isCircular());
    // Half of sides whose halves do not add up exactly: what was left between two corners was 1e-16 long.
    Curves curves(22);
    for (int i = 0; i < 1'000; ++i) {
        const Point corner = i % 2 == 0 ? curves.point() : Point{0.1, 0.3};
        const double side = i % 2 == 0 ? curves.number(1, 300) : 0.1 * (1 + i % 40);
        const Box square{corner, corner.offset(side, side)};
        for (const Path& path : {roundedRectangle(square, 0.5 * side), chamferedRectangle(square, 0.5 * side)})
            EXPECT_EQ(path.anchors.size(), 4U) << i;
    }
}

TEST(Shapes, PolygonsAndStarsTurnRoundTheirCenter) {
    const auto square = regularPolygon({10, 10}, {10, 0}, 4);
    ASSERT_TRUE(square);
    EXPECT_EQ(anchorsOf(*square), (std::vector<Point>{{10, 0}, {20, 10}, {10, 20}, {0, 10}})) << "clockwise";
    const auto seven = regularPolygon({0, 0}, {30, 40}, 7);
    ASSERT_TRUE(seven);
    EXPECT_EQ(seven->anchors[0].p, (Point{30, 40}));
    for (std::size_t i = 0; i < 7; ++i) {
        EXPECT_NEAR(norm(seven->anchors[i].p), 50, 1e-9);
        EXPECT_NEAR(seven->seg(i).length(), 100 * std::sin(M_PI / 7), 1e-9);
    }
    const auto diamond = star({0, 0}, 2, 10, 4);
    ASSERT_TRUE(diamond);
    EXPECT_EQ(anchorsOf(*diamond), (std::vector<Point>{{0, -10}, {4, 0}, {0, 10}, {-4, 0}}));
    EXPECT_EQ(star({0, 0}, 5, 10, 4)->anchors.size(), 10U);
    EXPECT_FALSE(star({0, 0}, 1, 10, 4) || regularPolygon({0, 0}, {1, 0}, 2) || regularPolygon({0, 0}, {1, 0}, -7));
}

} // namespace
