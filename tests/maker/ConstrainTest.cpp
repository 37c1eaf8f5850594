// Snapping of directions to the drawing's axes, and its kin.
#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "core/app/Illustrator.h"
#include "maker/Constrain.h"
#include "maker/Globals.h"
#include "support/Desk.h"

namespace {

using kzo::core::Angle;
using namespace vl::constrain;

Angle deg(double value) { return {value, Angle::Units::Degrees}; }

class Constrain : public testing::Test {
  protected:
    Constrain() { vlGlobals::create(); }
    ~Constrain() override { vlGlobals::destroy(); }
};

TEST_F(Constrain, StrokesFollowTheNearestAxis) {
    const struct {
        double stroke;
        double axis;
    } rows[] = {{-20, -30}, {90, 90}, {750, 30}, {60.0000001, 90}, // and equally far from two, to the first
                {360, 30},  {60, 30}, {120, 90}, {180, 150},       {-180, 150}, {240, 210}, {300, 270}};
    for (const auto& row : rows) {
        EXPECT_NEAR(constrainToAxo(deg(row.stroke)).asDegrees(), row.axis, 1e-9) << row.stroke;
    }
}

TEST_F(Constrain, AxesAreReadOnEveryCall) {
    vlGlobals::instance()->zAxisAngle = deg(7);
    vlGlobals::instance()->xAxisAngle = deg(139);
    EXPECT_EQ(constrainToAxo(deg(1)), deg(7));
    EXPECT_EQ(constrainToAxo(deg(190)), deg(187));
    EXPECT_EQ(constrainToAxo(deg(-50)), deg(-41));
    // An axis at exactly 90 degrees folds onto itself: nothing but the vertical leads downwards.
    vlGlobals::instance()->zAxisAngle = deg(90);
    vlGlobals::instance()->verticalAxisAngle = deg(80);
    EXPECT_NEAR(constrainToAxo(deg(268)).asDegrees(), 260, 1e-9);
}

// An axis that is not finite was answered as it was, and the line went nowhere.
TEST_F(Constrain, AxesThatAreNotFiniteAreNone) {
    vlGlobals& globals = *vlGlobals::instance();
    globals.zAxisAngle = deg(std::numeric_limits<double>::quiet_NaN());
    EXPECT_NEAR(constrainToAxo(deg(10)).asDegrees(), -30, 1e-9);
    globals.xAxisAngle = deg(std::numeric_limits<double>::infinity());
    EXPECT_NEAR(constrainToAxo(deg(10)).asDegrees(), 90, 1e-9);
    globals.verticalAxisAngle = globals.xAxisAngle;
    EXPECT_EQ(constrainToAxo(deg(10)), Angle::Zero());
}

TEST(ConstrainTo, IsoAnswersOneOfSixOrNothing) {
    const struct {
        double direction;
        double snapped;
    } rows[] = {{45, 30}, {100, 90}, {359, 330}, {1, 30}, {-100, 270}, {181, 210}, {59.9, 30}};
    for (const auto& row : rows) {
        EXPECT_NEAR(constrainToIso(deg(row.direction)).asDegrees(), row.snapped, 1e-9) << row.direction;
    }
    EXPECT_EQ(constrainToIso(Angle()).asRadians(), 0) << "midway between two";
}

TEST(ConstrainTo, LinesKeepTheSenseOfTravel) {
    for (const bool flag : {false, true}) {
        EXPECT_NEAR(constrainedTo(deg(170), deg(10), flag).asDegrees(), 190, 1e-9);
        EXPECT_NEAR(constrainedTo(deg(20), deg(10), flag).asDegrees(), 10, 1e-9);
        EXPECT_NEAR(constrainedTo(deg(90), deg(350), flag).asDegrees(), 530, 1e-9) << "not normalised";
    }
}

TEST(ConstrainTo, RangesThroughZeroHoldNothing) {
    EXPECT_TRUE(withinRange(deg(20), deg(10), deg(30)));
    EXPECT_FALSE(withinRange(deg(10), deg(10), deg(30)));
    EXPECT_FALSE(withinRange(deg(40), deg(10), deg(30)));
    EXPECT_FALSE(withinRange(deg(0), deg(350), deg(10)));
    EXPECT_FALSE(withinRange(deg(355), deg(350), deg(10)));
}

TEST(ConstrainTo, StepsSnapWithinHalfTheTolerance) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    const struct {
        double angle, base, step, tol, result;
    } rows[] = {
        {47, 0, 45, 10, 45},
        {50, 0, 45, 10, 45}, // half of the tolerance is included
        {30, 0, 45, 10, 45}, // no match: the first step beyond 390 is 405
        {47, 0, 0, 10, 47},
        {47, 0, 45, 0, 47},
        {-47, 0, -45, 10, -47},           // a step back
        {3.2, 3, 1e-14, 1, 3.2},          // and one that is lost in rounding
        {3, 0, kInfinity, 10, 3},         // or endless
        {600, 0, -45, 10, 600},           // unchanged, not even folded
        {-178.9, 0, 0.1, 1e-300, -178.9}, // no match by a hair: the step just beyond, not the one after it
        {-47, 180, 45, 10, -45},
        {175, 180, 360, 20, -180}, // already a turn before
        {358, 0, 45, 10, 0},       // folded to −2
        {-47, 400, 45, 10, -50},   // base 40: 40 − 90
        {47, 541, 45, 10, 47},     // a base beyond one fold
        {600, 0, 45, 10, 240},     // an angle beyond one fold, folded once
        {kInfinity, 0, 45, 10, kInfinity},
    };
    for (const auto& row : rows) {
        EXPECT_DOUBLE_EQ(constrainTo(row.angle, row.base, row.step, row.tol), row.result)
            << row.angle << ' ' << row.step;
    }
}

TEST(ConstrainTo, TheHostsOwnAngleIsAPreferenceOfTheHost) {
    desk::Desk desk;
    desk.inMessage([] {
        EXPECT_EQ(sysConstrainAngle(), 0);
        kzo::core::Illustrator::instance()->preferences()->setFloatPref("", "constrain/angle", 22.5);
        EXPECT_EQ(sysConstrainAngle(), 22.5);
    });
}

TEST(ConstrainTo, TinyStepsEndAtOnce) { EXPECT_NEAR(constrainTo(179, -180, 1e-7, 1e-9), 179, 1e-6); }

TEST(ConstrainTo, TurnsAndIntervals) {
    EXPECT_TRUE(isClockwise(10, 350));
    EXPECT_FALSE(isClockwise(350, 10));
    EXPECT_FALSE(isClockwise(10, 10));
    EXPECT_FALSE(isClockwise(0, 180));
    EXPECT_TRUE(isClockwise(180, 0));
    EXPECT_TRUE(isClockwise(0, -721));
    EXPECT_FALSE(isClockwise(0, std::numeric_limits<double>::infinity()));
    EXPECT_TRUE(within(2, 1, 3));
    EXPECT_TRUE(within(3, 3, 1));
    EXPECT_FALSE(within(3.5, 1, 3));
    EXPECT_FALSE(within(0.5, 3, 1));
}

} // namespace
