// Angles: units, normalisation, comparison across the full turn, snapping trigonometry.
#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "core/values/Angle.h"

namespace {

using kzo::core::Angle;

constexpr double kPi = 3.14159265358979323846;
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

Angle rad(double value) { return {value, Angle::Units::Radians}; }
Angle deg(double value) { return {value, Angle::Units::Degrees}; }

// Values

TEST(Angle, ConvertsBetweenUnits) {
    const Angle quarters[] = {rad(kPi / 2), deg(90), {100, Angle::Units::Gradians}, {0.25, Angle::Units::Turns}};
    for (const Angle& quarter : quarters) {
        EXPECT_DOUBLE_EQ(quarter.asRadians(), kPi / 2);
        EXPECT_DOUBLE_EQ(quarter.asDegrees(), 90);
        EXPECT_DOUBLE_EQ(quarter.asGradians(), 100);
        EXPECT_DOUBLE_EQ(quarter.asTurns(), 0.25);
        EXPECT_DOUBLE_EQ(quarter.valueInUnits(Angle::Units::Degrees), 90);
    }
    Angle angle;
    EXPECT_EQ(angle.asRadians(), 0);
    angle.setValueInUnits(50, Angle::Units::Gradians);
    EXPECT_DOUBLE_EQ(angle.asRadians(), kPi / 4);
    EXPECT_EQ(Angle(2.5, static_cast<Angle::Units>(9)).asRadians(), 2.5) << "an unknown unit counts as radians";
    EXPECT_EQ(deg(720).asDegrees(), 720) << "nothing normalises on construction";
}

TEST(Angle, ComputesOnRadiansAndLeavesCopiesAlone) {
    Angle angle = rad(6);
    const Angle copy = angle;
    EXPECT_EQ((angle += rad(2)).asRadians(), 8);
    EXPECT_EQ((angle -= rad(5)).asRadians(), 3);
    EXPECT_EQ((angle *= rad(4)).asRadians(), 12);
    EXPECT_EQ((angle /= rad(3)).asRadians(), 4);
    EXPECT_EQ((angle *= 3).asRadians(), 12);
    EXPECT_EQ((angle /= 8).asRadians(), 1.5);
    EXPECT_EQ((-angle).asRadians(), -1.5);
    EXPECT_EQ((2.0 * copy - copy / 3.0 + copy * 0.5 - copy * rad(2) / rad(4)).asRadians(), 10);
}

// Normalisation

TEST(Angle, FoldsIntoOneTurnOrIntoHalfTurnsOnBothSides) {
    const struct {
        Angle (Angle::*fold)() const;
        double from;
        double to;
    } rows[] = {
        {&Angle::range0To2Pi, 0, 0},
        {&Angle::range0To2Pi, 2 * kPi - 1e-16, 2 * kPi}, // a full turn stays one
        {&Angle::range0To2Pi, -1e-17, 2 * kPi},
        {&Angle::range0To2Pi, -2 * kPi, 0},
        {&Angle::range0To2Pi, 4 * kPi, 2 * kPi},
        {&Angle::rangeNegPiToPi, 0, 0},
        {&Angle::rangeNegPiToPi, -kPi, -kPi},
        {&Angle::rangeNegPiToPi, kPi + 4e-16, kPi},
    };
    for (const auto& row : rows) EXPECT_DOUBLE_EQ((rad(row.from).*row.fold)().asRadians(), row.to) << row.from;
}

TEST(Angle, FoldingEndsForEveryNumberAndKeepsTheDirection) {
    std::mt19937 random(20);
    std::uniform_real_distribution<double> exponents(-12, 15);
    for (int i = 0; i < 2000; ++i) {
        const double value = std::pow(10, exponents(random)) * (i % 2 == 0 ? 1 : -1);
        const double turn = rad(value).range0To2Pi().asRadians();
        const double half = rad(value).rangeNegPiToPi().asRadians();
        EXPECT_TRUE(turn >= 0 && turn <= 2 * kPi) << value;
        EXPECT_TRUE(half >= -kPi && half <= kPi) << value;
        // Turns taken off one by one round each time; beyond 1e6 only the double nearest to a turn is inexact.
        const double size = std::abs(value);
        const double tolerance = 1e-14 + (size > 1e6 ? size * 1e-16 : size * size * 2e-17);
        EXPECT_NEAR(std::sin(turn), std::sin(value), tolerance) << value;
        EXPECT_NEAR(std::cos(half), std::cos(value), tolerance) << value;
    }
    EXPECT_EQ(rad(std::ldexp(2 * kPi, 40)).range0To2Pi().asRadians(), 2 * kPi);
    EXPECT_EQ(rad(-std::ldexp(2 * kPi, 40)).range0To2Pi().asRadians(), 0);
    for (const double odd : {kInfinity, -kInfinity, kNaN}) {
        EXPECT_TRUE(std::isnan(rad(odd).range0To2Pi().asRadians()));
        EXPECT_TRUE(std::isnan(rad(odd).rangeNegPiToPi().asRadians()));
        EXPECT_TRUE(std::isnan(rad(odd).nearest45().asRadians()));
        EXPECT_TRUE(std::isnan(rad(odd).constrain0ToPi().asRadians()));
    }
}

TEST(Angle, SnapsToTheNearestEighthTowardsZero) {
    const struct {
        double radians;
        int eighths; // of a turn
    } rows[] = {
        {0.39, 0},        {0.40, 1},          {3.0, 4},         {-3.0, 4}, {-0.40, -1},     {kPi / 8, 0}, {-kPi / 8, 0},
        {3 * kPi / 8, 1}, {-3 * kPi / 8, -1}, {7 * kPi / 8, 3}, {-kPi, 4}, {1.5 * kPi, -2}, {2 * kPi, 0},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(rad(row.radians).nearest45().asRadians(), row.eighths * kPi / 4) << row.radians;
    }
}

TEST(Angle, ConstrainsLinesIntoHalfTurns) {
    const struct {
        Angle (Angle::*fold)() const;
        double from;
        double to;
    } rows[] = {
        {&Angle::constrain0ToPi, 270, 90},
        {&Angle::constrain0ToPi, -45, 135},
        {&Angle::constrain0ToPi, 180, 180},
        {&Angle::constrain0ToPi, 0, 0},
        {&Angle::constrain0ToPi, 360, 180},
        {&Angle::constrainPiOver2To3PiOver2, 30, 210},
        {&Angle::constrainPiOver2To3PiOver2, 90, 90},
        {&Angle::constrainPiOver2To3PiOver2, 270, 270},
        {&Angle::constrainPiTo2Pi, 90, 270},
        {&Angle::constrainNegPiOver2ToPiOver2, 150, -30},
        {&Angle::constrainNegPiOver2ToPiOver2, 90, 90},
        {&Angle::constrainNegPiOver2ToPiOver2, -90, 90}, // 270 less half a turn
    };
    for (const auto& row : rows) {
        EXPECT_NEAR((deg(row.from).*row.fold)().asDegrees(), row.to, 1e-12) << row.from;
    }
    EXPECT_EQ(rad(kPi / 2 + 5e-6).constrainPiOver2To3PiOver2().asRadians(), kPi / 2) << "close to a bound is the bound";
    EXPECT_EQ(rad(kPi + 9e-6).constrain0ToPi().asRadians(), kPi);
    EXPECT_NEAR(rad(kPi + 1.1e-5).constrain0ToPi().asRadians(), 1.1e-5, 1e-12);
}

// Comparison

TEST(Angle, ComparesAcrossTheFullTurn) {
    EXPECT_EQ(deg(0), deg(360));
    EXPECT_EQ(deg(-90), deg(270));
    EXPECT_EQ(deg(30) + deg(30) + deg(30), deg(90)) << "rounding does not count";
    EXPECT_NE(deg(0), deg(1e-9));
    EXPECT_TRUE(deg(10) < deg(-10));
    EXPECT_TRUE(deg(370) <= deg(20));
    EXPECT_TRUE(deg(-10) > deg(20));
    EXPECT_TRUE(deg(20) >= deg(20) && !(deg(20) > deg(20)) && !(deg(20) < deg(20)));
    EXPECT_TRUE(deg(359.5).equalWithinTol(deg(0.25), deg(1)));
    EXPECT_FALSE(deg(359).equalWithinTol(deg(1), deg(1)));
}

// Relations

TEST(Angle, MeasuresAndHalvesTheSmallerAngle) {
    const struct {
        double one, other, delta, middle;
    } rows[] = {{350, 10, 20, 360}, {80, 20, 60, 50}, {-90, 90, 180, 180}, {0, 180, 180, 90}, {0, 200, 160, 280}};
    for (const auto& row : rows) {
        EXPECT_NEAR(deg(row.one).delta(deg(row.other)).asDegrees(), row.delta, 1e-9) << row.one;
        EXPECT_NEAR(deg(row.other).delta(deg(row.one)).asDegrees(), row.delta, 1e-9) << row.one;
        EXPECT_NEAR(deg(row.one).bisect(deg(row.other)).asDegrees(), row.middle, 1e-9) << row.one;
    }
    EXPECT_NEAR(deg(0).bisect(deg(360)).asDegrees(), 180, 1e-12) << "a whole turn apart is no smaller angle";
}

TEST(Angle, NumbersItsQuadrant) {
    const struct {
        double radians;
        int quadrant;
    } rows[] = {{0, 1},       {kPi / 2, 2},     {kPi, 3},         {1.5 * kPi, 4}, {2 * kPi, 4},
                {-0.5e-4, 4}, {2 * kPi + 1, 1}, {2 * kPi - 1, 4}, {3, 2},         {kNaN, 0}};
    for (const auto& row : rows) EXPECT_EQ(rad(row.radians).quadrantNumber(), row.quadrant) << row.radians;
    EXPECT_TRUE(rad(1).firstQuadrant() && rad(2).secondQuadrant() && rad(4).thirdQuadrant() && rad(5).fourthQuadrant());
}

// Trigonometry

TEST(Angle, TrigonometrySnapsToZero) {
    constexpr double kTol = 1e-10;
    EXPECT_EQ(Angle::Pi().sin(kTol), 0);
    EXPECT_NE(Angle::Pi().sin(0), 0);
    EXPECT_EQ(deg(90).cos(kTol), 0);
    EXPECT_EQ(Angle::TwoPi().tan(kTol), 0);
    EXPECT_DOUBLE_EQ(deg(30).sin(kTol), 0.5);
    EXPECT_DOUBLE_EQ(deg(60).cos(kTol), 0.5);
    EXPECT_DOUBLE_EQ(deg(45).tan(kTol), 1);
    EXPECT_DOUBLE_EQ(Angle::asin(0.5, kTol).asDegrees(), 30);
    EXPECT_DOUBLE_EQ(Angle::acos(0.5, kTol).asDegrees(), 60);
    EXPECT_DOUBLE_EQ(Angle::atan(-1, kTol).asDegrees(), -45);
    EXPECT_EQ(Angle::atan(1e-11, kTol).asRadians(), 0);
    EXPECT_DOUBLE_EQ(Angle::atan(kInfinity, kTol).asDegrees(), 90);
    EXPECT_TRUE(std::isfinite(rad(kInfinity).sin(kTol)));
    EXPECT_TRUE(std::isfinite(rad(-kInfinity).cos(kTol)));
    EXPECT_TRUE(std::isnan(rad(kNaN).sin(kTol)));
}

} // namespace
