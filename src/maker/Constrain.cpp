// Snapping of directions.
#include "maker/Constrain.h"

#include <algorithm>
#include <cmath>

#include "maker/Globals.h"

using kzo::core::Angle;

namespace vl::constrain {

namespace {

/// Folds once only: what is further away shows by staying outside.
double foldOnce(double degrees) {
    if (degrees > 180.0) degrees -= 360.0;
    if (degrees < -180.0) degrees += 360.0;
    return degrees;
}

bool folded(double degrees) { return -180.0 <= degrees && degrees <= 180.0; }

} // namespace

// Directions

Angle constrainToAxo(Angle angle) {
    const vlGlobals& globals = *vlGlobals::instance();
    const Angle candidates[] = {
        globals.zAxisAngle,
        globals.verticalAxisAngle,
        globals.xAxisAngle,
        globals.zAxisAngle.constrainPiOver2To3PiOver2(),
        globals.verticalAxisAngle.constrainPiTo2Pi(),
        globals.xAxisAngle.constrainNegPiOver2ToPiOver2(),
    };
    // A horizontal stroke is equally far from two axes; without this, rounding would choose between them.
    constexpr double kNearer = 1e-9;
    const Angle* nearest = &candidates[0];
    double least = angle.delta(*nearest).asDegrees();
    for (const Angle& candidate : candidates) {
        const double difference = angle.delta(candidate).asDegrees();
        if (difference < least - kNearer) {
            least = difference;
            nearest = &candidate;
        }
    }
    return *nearest;
}

Angle constrainToIso(Angle angle) {
    const Angle tolerance(30.0, Angle::Units::Degrees);
    const Angle step(60.0, Angle::Units::Degrees);
    Angle candidate(30.0, Angle::Units::Degrees);
    for (int i = 0; i < 6; ++i, candidate += step) {
        if (angle.equalWithinTol(candidate, tolerance)) return candidate;
    }
    return Angle::Zero();
}

Angle constrainedTo(Angle angle, Angle line, bool) {
    return angle.equalWithinTol(line, Angle::Pi() / 2.0) ? line : line + Angle::Pi();
}

bool withinRange(Angle angle, Angle lo, Angle hi) {
    if (hi < lo) hi += Angle::TwoPi();
    return angle > lo && angle < hi;
}

// Degrees

double constrainTo(double angle, double base, double step, double tol) {
    // A step that gets nowhere, because it is lost in rounding or leads back, is none.
    if (!(720.0 + step > 720.0) || tol == 0.0) return angle;
    base = foldOnce(base);
    if (!folded(base)) return angle;
    angle = foldOnce(angle);
    if (!folded(angle)) return angle;
    const auto reaches = [&](double candidate, double value) {
        return candidate - tol / 2.0 <= value && value <= candidate + tol / 2.0;
    };
    double candidate = base - 360.0;
    while (candidate <= angle + 360.0) {
        if (reaches(candidate, angle) || reaches(candidate, angle - 360.0) || reaches(candidate, angle + 360.0)) break;
        candidate += step;
    }
    return foldOnce(candidate);
}

bool isClockwise(double from, double to) { return foldOnce(std::fmod(to - from, 360.0)) < 0.0; }

bool within(double v, double a, double b) { return !(std::min(a, b) > v || v > std::max(a, b)); }

} // namespace vl::constrain
