// The scalar comparison under every geometric one.
#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "utils/Tolerance.h"

namespace {

using kzo::utils::equalWithinTol;

TEST(Tolerance, IsStrictAndIgnoresItsSign) {
    EXPECT_TRUE(equalWithinTol(1.0, 1.25, 0.5));
    EXPECT_TRUE(equalWithinTol(1.25, 1.0, -0.5));
    EXPECT_FALSE(equalWithinTol(1.0, 1.5, 0.5)) << "exactly as far as the tolerance is too far";
    EXPECT_FALSE(equalWithinTol(1.5, 1.0, -0.5));
}

TEST(Tolerance, OfNothingAsksForEquality) {
    const double next = std::nextafter(1.0, 2.0);
    EXPECT_TRUE(equalWithinTol(1.0, 1.0, 0.0));
    EXPECT_FALSE(equalWithinTol(1.0, next, 0.0));
    EXPECT_FALSE(equalWithinTol(1.0, next, std::numeric_limits<double>::quiet_NaN()));
    EXPECT_TRUE(equalWithinTol(1.0, 1.0, std::numeric_limits<double>::quiet_NaN()));
}

} // namespace
