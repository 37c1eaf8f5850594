// The cubic segment against curves with closed forms. A table of operations against an independent library is in
// tests/geo.
#include <cmath>
#include <memory>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "core/values/ArtboardRect.h"
#include "core/values/ArtboardSegPoint.h"
#include "core/values/Bezier.h"

namespace {

using kzo::core::Angle;
using kzo::core::ArtboardPoint;
using kzo::core::ArtboardRect;
using kzo::core::ArtboardSegPoint;
using kzo::core::Bezier;

Angle deg(double value) { return {value, Angle::Units::Degrees}; }

/// Curves of all kinds: random control polygons have inflections, loops and sharp turns.
std::vector<Bezier> randomCurves(int count) {
    std::mt19937 random(41);
    std::uniform_real_distribution<double> place(-300, 300);
    std::vector<Bezier> curves;
    while (static_cast<int>(curves.size()) < count) {
        double v[8];
        for (double& value : v) value = place(random);
        curves.push_back({{v[0], v[1]}, {v[2], v[3]}, {v[4], v[5]}, {v[6], v[7]}});
    }
    return curves;
}

const Bezier kQuarter({100, 0}, {100, 55.22847498307936}, {55.22847498307936, 100}, {0, 100}); // about the origin
// (t², t³) for t from −1 to 1: a cusp in the middle.
const Bezier kCusp({1, -1}, {-1. / 3, 1}, {-1. / 3, -1}, {1, 1});

// Points and pieces

TEST(Bezier, IsMadeOfTheNearHandlesOfTwoPoints) {
    const Bezier curve(ArtboardSegPoint({0, 0}, {-9, -9}, {1, 2}, true),
                       ArtboardSegPoint({5, 6}, {3, 4}, {9, 9}, true));
    EXPECT_EQ(curve, Bezier({0, 0}, {1, 2}, {3, 4}, {5, 6}));
}

TEST(Bezier, PiecesLieOnTheCurveAndMeetExactly) {
    for (const Bezier& curve : randomCurves(50)) {
        for (const double t : {0.0, 0.125, 0.37, 0.9, 1.0}) {
            Bezier first;
            Bezier second;
            curve.divide(t, first, second);
            EXPECT_EQ(first.p0, curve.p0);
            EXPECT_EQ(second.p3, curve.p3);
            EXPECT_EQ(first.p3, second.p0);
            EXPECT_EQ(first.p3, curve.evaluate(t));
            EXPECT_TRUE(first.evaluate(0.5).closeTo(curve.evaluate(t / 2), 1e-10));
            EXPECT_TRUE(second.evaluate(0.5).closeTo(curve.evaluate((t + 1) / 2), 1e-10));
        }
        EXPECT_EQ(curve.section(0, 1), curve);
        EXPECT_EQ(curve.section(1, 0), Bezier(curve.p3, curve.p2, curve.p1, curve.p0));
        const Bezier back = curve.section(0.8, 0.2);
        EXPECT_EQ(back.p0, curve.evaluate(0.8));
        EXPECT_EQ(back.p3, curve.evaluate(0.2));
        EXPECT_TRUE(back.evaluate(0.25).closeTo(curve.evaluate(0.65), 1e-10));
    }
    Bezier itself = kQuarter;
    Bezier rest;
    itself.divide(0.5, itself, rest);
    EXPECT_EQ(rest.p3, kQuarter.p3);
}

TEST(Bezier, AdjustsThroughAPointAndKeepsItsEnds) {
    for (const double t : {0.1, 0.5, 0.8}) {
        Bezier curve = kQuarter;
        EXPECT_TRUE(curve.adjustThruPoint({20, 30}, t));
        EXPECT_TRUE(curve.evaluate(t).closeTo({20, 30}, 1e-9));
        EXPECT_EQ(curve.p0, kQuarter.p0);
        EXPECT_EQ(curve.p3, kQuarter.p3);
    }
    for (const double t : {0.0, 1.0, -1.0, std::nan("")}) {
        Bezier curve = kQuarter;
        EXPECT_FALSE(curve.adjustThruPoint({20, 30}, t));
        EXPECT_EQ(curve, kQuarter);
    }
}

// Length

TEST(Bezier, LengthAgreesWithClosedForms) {
    // ∫ |t|·√(4 + 9t²) from −1 to 1
    EXPECT_NEAR(kCusp.length(), 2 * (std::pow(13, 1.5) - 8) / 27, 1e-12);
    // Out and back on a line: x = 3·100·t·(1 − t)²  has its greatest value, 400/9, at t = 1/3.
    EXPECT_NEAR(Bezier({0, 0}, {100, 0}, {0, 0}, {0, 0}).length(), 800. / 9, 1e-9);
    EXPECT_NEAR(Bezier({0, 0}, {0, 0}, {30, 40}, {30, 40}).length(), 50, 1e-11) << "both handles retracted";
    EXPECT_EQ(Bezier({7, 7}, {7, 7}, {7, 7}, {7, 7}).length(), 0);
}

TEST(Bezier, PartsAddUpAndTAtLengthFindsThem) {
    std::vector<Bezier> curves = randomCurves(200);
    curves.push_back(kCusp);
    curves.push_back({{0, 0}, {0, 0}, {30, 40}, {30, 40}});
    curves.push_back({{0, 0}, {100, 0}, {-50, 0}, {60, 0}});
    for (const Bezier& curve : curves) {
        const double length = curve.length();
        EXPECT_NEAR(curve.sublength(0, 0.3) + curve.sublength(1, 0.3), length, 1e-9 * length);
        for (const double part : {1e-6, 0.1, 0.5, 0.77, 1.0}) {
            const double t = curve.tAtLength(part * length);
            EXPECT_NEAR(curve.sublength(0, t), part * length, 1e-9 * length) << part;
        }
        EXPECT_EQ(curve.tAtLength(0), 0);
        EXPECT_EQ(curve.tAtLength(-1), 0);
        EXPECT_EQ(curve.tAtLength(2 * length), 1);
    }
    EXPECT_TRUE(std::isnan(Bezier({0, 0}, {std::nan(""), 0}, {1, 1}, {2, 2}).length()));
}

// Direction and shape

TEST(Bezier, TangentFollowsTheNearestPointThatDiffers) {
    const ArtboardPoint o(0, 0);
    const ArtboardPoint up(0, -10);
    const ArtboardPoint right(10, 0);
    const struct {
        Bezier curve;
        double start;
        double end;
    } rows[] = {
        {{o, up, right + up, right}, 90, 270},
        {{o, o, up, right}, 90, -45},     // retracted at the start
        {{o, up, right, right}, 90, -45}, // retracted at the end
        {{o, o, right, right}, 0, 0},     // a plain line
        {{o, o, o, up}, 90, 90},
        {{o, o, o, o}, 0, 0},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.curve.tangentAngle(0), deg(row.start)) << row.start;
        EXPECT_EQ(row.curve.tangentAngle(1), deg(row.end)) << row.end;
        EXPECT_EQ(row.curve.normalAngle(0), deg(row.start + 90));
        EXPECT_TRUE(row.curve.tangentAngle(std::nextafter(0.0, 1.0)).equalWithinTol(deg(row.start), deg(1e-6)));
        EXPECT_TRUE(row.curve.tangentAngle(std::nextafter(1.0, 0.0)).equalWithinTol(deg(row.end), deg(1e-6)));
    }
    // Slow travel near an end is travel all the same.
    for (const double t : {1 - 1e-6, 1 - 1e-7, 1 - 1e-9})
        EXPECT_EQ(Bezier(o, up, up, up).tangentAngle(t), deg(90)) << t;
    EXPECT_EQ(Bezier(o, {99.999, 0}, {100, 0}, {100, 0}).tangentAngle(1 - 1e-9), deg(0));
    // The cusp points left; travel leaves it to the right.
    EXPECT_EQ(kCusp.tangentAngle(0.5), deg(0));
    EXPECT_NEAR(kQuarter.tangentAngle(0.5).asDegrees(), -135, 1e-9);
}

TEST(Bezier, IsCurvedUnlessTravelIsStraight) {
    const auto curved = [](ArtboardPoint out, ArtboardPoint in) {
        return ArtboardSegPoint({0, 0}, {5, 5}, out, true).curved({{30, 40}, in, {5, 5}, true});
    };
    EXPECT_FALSE(curved({0, 0}, {30, 40}) || curved({3, 4}, {15, 20})); // handles on the line
    EXPECT_TRUE(curved({3, 4.001}, {30, 40}));
    EXPECT_TRUE(curved({-3, -4}, {30, 40}) && curved({0, 0}, {33, 44})); // sets off backwards, arrives from beyond
    EXPECT_FALSE(Bezier({1, 1}, {1, 1}, {1, 1}, {1, 1}).curved());
    EXPECT_TRUE(Bezier({1, 1}, {9, 1}, {1, 9}, {1, 1}).curved()) << "a loop";
}

TEST(Bezier, CurvatureHasRadiusAndCenter) {
    double radius = 0;
    ArtboardPoint center;
    // Handles at the thirds of an oblique line: all that bends is rounding.
    EXPECT_FALSE(Bezier({0.1, 0.2}, {0.1 + 0.7 / 3, 0.2 + 1.1 / 3}, {0.1 + 1.4 / 3, 0.2 + 2.2 / 3}, {0.8, 1.3})
                     .radius(0.3, radius));
    // y = x²: at the vertex the radius is 1/2, above it in numbers.
    const Bezier parabola({-1, 1}, {-1. / 3, -1. / 3}, {1. / 3, -1. / 3}, {1, 1});
    ASSERT_TRUE(parabola.radiusAndCenter(0.5, radius, center));
    EXPECT_NEAR(radius, 0.5, 1e-12);
    EXPECT_TRUE(center.closeTo({0, 0.5}, 1e-12));
    ASSERT_TRUE(kQuarter.radius(0.5, radius));
    ASSERT_TRUE(kQuarter.center(0.5, center));
    EXPECT_NEAR(radius, 100, 1); // the cubic is rounder than the circle here and flatter there
    EXPECT_TRUE(center.closeTo({0, 0}, 1));

    const ArtboardPoint before = center;
    EXPECT_FALSE(Bezier({0, 0}, {1, 1}, {2, 2}, {5, 5}).center(0.3, center));
    EXPECT_FALSE(kCusp.center(0.5, center));
    EXPECT_EQ(center, before);
}

TEST(Bezier, RecognisesArcsOfCircles) {
    const auto arc = [](double degrees) {
        const double half = deg(degrees).asRadians() / 2;
        const double handle = 100 * 4. / 3 * std::tan(half / 2);
        const ArtboardPoint a = ArtboardPoint::LengthAngle(100, deg(-degrees / 2)) + 1000;
        const ArtboardPoint b = ArtboardPoint::LengthAngle(100, deg(degrees / 2)) + 1000;
        return Bezier(a, a.move(handle, deg(90 - degrees / 2)), b.move(handle, deg(degrees / 2 - 90)), b);
    };
    for (const double degrees : {1., 30., 90., 120.}) EXPECT_TRUE(arc(degrees).isCircularArc()) << degrees;
    EXPECT_FALSE(arc(240).isCircularArc());
    EXPECT_FALSE(Bezier({0, 0}, {50, 0}, {100, 50}, {100, 200}).isCircularArc()) << "an ellipse's quarter";
    EXPECT_FALSE(Bezier({0, 0}, {30, -30}, {70, 30}, {100, 0}).isCircularArc()) << "an S";
    EXPECT_FALSE(Bezier({0, 0}, {0, 0}, {100, 0}, {100, 0}).isCircularArc()) << "a line";
    EXPECT_FALSE(Bezier({0, 0}, {90, 0}, {0, 90}, {0, 0}).isCircularArc()) << "a loop";
}

TEST(Bezier, BoundsAreTight) {
    EXPECT_EQ(Bezier({0, 0}, {0, 0}, {30, 40}, {30, 40}).bounds(), ArtboardRect(0, 0, 30, 40));
    // x has no quadratic term: −3t + 3t² about its lowest point.
    EXPECT_EQ(Bezier({0, 0}, {-1, 1}, {-1, 2}, {0, 3}).bounds(), ArtboardRect(-0.75, 0, 0, 3));
}

} // namespace
