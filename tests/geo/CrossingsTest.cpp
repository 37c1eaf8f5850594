// Meetings of curves and paths against an independent library, and against what is known of special ones.
#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

#include "Curves.h"
#include "geo/Crossings.h"
#include "geo/Shapes.h"
#include "geo/Vector.h"

namespace {

using namespace kzo::geo;
using namespace kzo::geo::test;

/// What the library finds, told by points of the first curve. It cannot tell all curves of points apart.
std::vector<Point> found(const Bezier& a, const Bezier& b) {
    std::vector<Point> points;
    for (const auto& x : peer(a).intersect(peer(b), 1e-9)) {
        // Its tolerance is one of parameters: of what it finds, these meet.
        if (norm(a.evaluate(x.first) - b.evaluate(x.second)) < 1e-5) points.push_back(a.evaluate(x.first));
    }
    return points;
}

bool isAmong(const std::vector<Point>& points, Point point) {
    // Both places are exact to 1e-9, but where curves meet at an angle of a millionth they run within that for longer.
    return std::any_of(points.begin(), points.end(), [&](Point p) { return norm(p - point) < 1e-3; });
}

bool near(const std::vector<Crossing>& a, const std::vector<Crossing>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const Crossing& x, const Crossing& y) {
        return std::abs(x.first - y.first) <= 1e-7 && std::abs(x.second - y.second) <= 1e-7;
    });
}

TEST(Crossings, AgreeWithAnotherLibrary) {
    Curves curves(3);
    std::size_t met = 0;
    const auto compare = [&](const Bezier& a, const Bezier& b, const char* kind, int i) {
        const std::vector<Crossing> ours = crossings(a, b);
        std::vector<Point> points;
        for (const Crossing& c : ours) {
            points.push_back(a.evaluate(c.first));
            EXPECT_LE(norm(a.evaluate(c.first) - b.evaluate(c.second)), 1e-9) << kind << i;
        }
        for (const Point p : found(a, b)) EXPECT_TRUE(isAmong(points, p)) << kind << i << " at " << p.x << ", " << p.y;
        met += ours.size();
        return points;
    };
    for (int i = 0; i < 10'000; ++i) {
        const Bezier a = curves.any();
        const Bezier b = curves.any();
        EXPECT_EQ(compare(a, b, "random ", i).size(), found(a, b).size()) << i;
    }
    EXPECT_GT(met, 8'000U);
    // The library overlooks some meetings of these, and knows some several times.
    for (int i = 0; i < 1'000; ++i) {
        compare(curves.nasty(), curves.any(), "nasty ", i);
        compare(curves.nasty(), curves.nasty(), "both nasty ", i);
    }
}

struct Known {
    const char* name;
    Bezier a;
    Bezier b;
    std::vector<Crossing> meetings;
};

TEST(Crossings, OfSpecialCurvesAreKnown) {
    const Bezier arch{{0, 0}, {30, 80}, {70, 80}, {100, 0}}; // its top is (50, 60)
    const auto flat = [](double y) { return Bezier{{0, y}, {30, y}, {70, y}, {100, y}}; };
    const auto line = [](Point a, Point b) { return Bezier{a, a, b, b}; };
    Bezier almost = arch;
    almost.p1.y += 1e-10;
    const Known rows[] = {
        {"touch", arch, flat(60), {{0.5, 0.5}}},
        {"just miss", arch, flat(60.0000001), {}},
        {"same", arch, arch, {{0, 0}, {1, 1}}},
        {"opposite", arch, arch.section(1, 0), {{0, 1}, {1, 0}}},
        {"share a stretch", arch.section(0, 0.7), arch.section(0.3, 1), {{3. / 7, 0}, {1, 4. / 7}}},
        {"one within the other", arch, arch.section(0.2, 0.6), {{0.2, 0}, {0.6, 1}}},
        {"the same but for rounding", arch, almost, {{0, 0}, {1, 1}}},
        {"osculate",
         {{-1, 1}, {-1. / 3, -1. / 3}, {1. / 3, -1. / 3}, {1, 1}}, // x² and x³
         {{-1, -1}, {-1. / 3, 1}, {1. / 3, -1}, {1, 1}},
         {{0.5, 0.5}, {1, 1}}},
        {"lines, crossing", line({0, 0}, {10, 10}), line({0, 10}, {10, 0}), {{0.5, 0.5}}},
        {"lines, end to end", line({0, 0}, {10, 10}), line({20, 0}, {10, 10}), {{1, 1}}},
        {"lines, parallel", line({0, 0}, {10, 10}), line({0, 1}, {10, 11}), {}},
        {"lines, one on the other", line({0, 0}, {8, 0}), line({4, 0}, {12, 0}), {{0.5, 0}, {1, 0.5}}},
        {"lines, one behind the other", line({0, 0}, {8, 0}), line({9, 0}, {16, 0}), {}},
        {"a line that turns back",
         {{0, 0}, {40, 0}, {0, 0}, {0, 0}},
         line({15, -1}, {15, 1}),
         {{(3 - std::sqrt(5)) / 4, 0.5}, {0.5, 0.5}}},
        {"a point", line({5, 5}, {5, 5}), line({0, 0}, {10, 10}), {}},
        {"not finite", {{0, 0}, {NAN, 0}, {1, INFINITY}, {2, 2}}, arch, {}},
        {"a huge line that turns back",
         {{0, 0}, {4e301, 0}, {0, 0}, {0, 0}},
         line({1.5e301, -1e300}, {1.5e301, 1e300}),
         {{(3 - std::sqrt(5)) / 4, 0.5}, {0.5, 0.5}}},
        {"huge", line({-1e300, -1e300}, {1e300, 1e300}), line({-1e300, 1e300}, {1e300, -1e300}), {{0.5, 0.5}}},
    };
    for (const Known& row : rows) EXPECT_TRUE(near(crossings(row.a, row.b), row.meetings)) << row.name;
}

TEST(Crossings, OfACurveWithItselfCloseItsLoop) {
    Curves curves(8);
    int loops = 0;
    for (int i = 0; i < 10'000; ++i) {
        const Bezier curve = i % 10 == 0 ? curves.nasty() : curves.any();
        const auto loop = selfCrossing(curve);
        if (!loop) continue;
        ++loops;
        EXPECT_LE(norm(curve.evaluate(loop->first) - curve.evaluate(loop->second)), 1e-9) << i;
        EXPECT_LT(loop->first, loop->second);
    }
    EXPECT_GT(loops, 300);
    // Symmetric about x = 50: x = 50 at t = 1/2 and at (1 ± √(1/3)) / 2, by hand from x(t) = 300 t (1 − t)(1 − 2t) +
    // 100 t³ …
    const auto loop = selfCrossing({{0, 0}, {200, 100}, {-100, 100}, {100, 0}});
    ASSERT_TRUE(loop);
    EXPECT_NEAR(loop->first + loop->second, 1, 1e-12) << "symmetric";
    EXPECT_NEAR(Bezier({0, 0}, {200, 100}, {-100, 100}, {100, 0}).evaluate(loop->first).x, 50, 1e-9);
    EXPECT_FALSE(selfCrossing({{0, 0}, {30, 80}, {70, 80}, {100, 0}})) << "an arch";
    EXPECT_FALSE(selfCrossing({{1, -1}, {-1. / 3, 1}, {-1. / 3, -1}, {1, 1}})) << "a cusp";
}

TEST(Crossings, OfPathsCountEachPlaceOnce) {
    const Path circle = ellipse({0, 0}, 100, 100);
    EXPECT_EQ(crossings(circle, circle).size(), 4U) << "the ends of the stretches that they share";
    EXPECT_TRUE(near(crossings(circle, ellipse({100, 0}, 100, 100)), {{1, 3}})) << "touching at an anchor";
    EXPECT_EQ(crossings(circle, ellipse({60, 0}, 100, 100)).size(), 2U);
    EXPECT_EQ(crossings(circle, ellipse({0, 0}, 50, 50)).size(), 0U);
    EXPECT_TRUE(selfCrossings({}).empty() && crossings(circle, {}).empty() && selfCrossings(circle).empty());
    EXPECT_EQ(selfCrossings(polygon({{0, -10}, {6, 8}, {-9, -3}, {9, -3}, {-6, 8}})).size(), 5U) << "a pentagram";
    EXPECT_TRUE(near(selfCrossings(polygon({{0, 0}, {10, 10}, {10, 0}, {0, 10}})), {{0.5, 2.5}}));
    // Anchors that lie on other anchors or segments.
    const auto open = [](const std::vector<Point>& points) {
        Path path = polygon(points);
        path.closed = false;
        return path;
    };
    EXPECT_TRUE(near(selfCrossings(open({{0, 0}, {10, 0}, {10, 10}, {0, 0}, {-5, 5}})), {{0, 3}}));
    EXPECT_TRUE(near(selfCrossings(open({{0, 0}, {10, 0}, {5, 5}, {5, 0}})), {{0.5, 3}}));
}

TEST(Crossings, EndWithPathsThatRunTogether) {
    Path wheel{{}, true};
    for (int i = 0; i < 2'000; ++i)
        wheel.anchors.emplace_back(Point{300 * std::cos(i * 0.0031415926), 300 * std::sin(i * 0.0031415926)});
    EXPECT_EQ(crossings(wheel, wheel).size(), 2'000U);
    Path there{{}, false};
    for (int i = 0; i < 600; ++i) there.anchors.emplace_back(Point{0, i % 2 == 0 ? 0.0 : 100.0});
    EXPECT_LE(selfCrossings(there).size(), 400'000U + 600U);
    // A hatch to and fro across a page, in any direction: boxes along the axes would nearly all overlap.
    for (const double turn : {0.0, 0.8, 2.6}) {
        Path hatch{{}, false};
        const Point along{std::cos(turn), std::sin(turn)};
        for (int i = 0; i < 32'000; ++i)
            hatch.anchors.emplace_back(scaled(along, i % 2 * 800.0) + Point{-along.y * i * 0.02, along.x * i * 0.02});
        EXPECT_EQ(selfCrossings(hatch).size(), 0U) << turn;
        const Path line{{Anchor(scaled(along, 400)), Anchor(scaled(along, 400) + Point{-along.y * 700, along.x * 700})},
                        false};
        EXPECT_EQ(crossings(hatch, line).size(), 31'999U) << turn;
    }
    // Arcs within arcs by the thousand are told apart by no direction. It ends with patience.
    Path arcs{{}, false};
    for (int i = 0; i < 6'000; ++i) {
        const double x = i * 1e-3 * (i % 2 * 2 - 1);
        arcs.anchors.emplace_back(Point{x, 0}, Point{x, -i * 1e-3}, Point{x, -i * 1e-3}, true);
    }
    Patience patience(1e8);
    EXPECT_LT(selfCrossings(arcs, patience).size(), 400'000U);
    EXPECT_FALSE(patience.spend(0));
    Path close = ellipse({0, 0}, 100, 100);
    for (Anchor& anchor : close.anchors) anchor = {anchor.p.offset(0, 1e-9), anchor.in, anchor.out, false};
    EXPECT_LE(crossings(close, ellipse({0, 0}, 100, 100)).size(), 40U);
}

} // namespace
