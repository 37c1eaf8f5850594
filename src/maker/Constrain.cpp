// Snapping of directions.
#include "maker/Constrain.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

#include "core/app/Illustrator.h"
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

/// An angle is looked for a turn before, where it is, and a turn after.
constexpr double kTurns[] = {-360.0, 0.0, 360.0};

/// How far from 0 a walk over candidates may get: from a turn before a base to a turn after an angle.
constexpr double kFurthest = 540.0;

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
    const Angle* nearest = nullptr;
    double least = 0;
    for (const Angle& candidate : candidates) {
        if (!std::isfinite(candidate.asRadians())) continue; // such an axis leads nowhere
        const double difference = angle.delta(candidate).asDegrees();
        if (!nearest || difference < least - kNearer) {
            least = difference;
            nearest = &candidate;
        }
    }
    return nearest ? *nearest : Angle::Zero();
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
    // Such steps never get anywhere: where they count, they are lost in rounding, or they lead back.
    const bool leadsOn = step > 0.0 && std::isfinite(step) && kFurthest + step != kFurthest;
    base = foldOnce(base);
    if (!leadsOn || tol == 0.0 || !folded(base)) return angle;
    angle = foldOnce(angle);
    if (!folded(angle)) return angle;
    const double first = base - 360.0;
    const double last = angle + 360.0;
    const auto candidate = [&](double index) { return index == 0.0 ? first : first + index * step; };
    const auto matches = [&](double index) {
        const double c = candidate(index);
        return index >= 0.0 && c <= last && std::any_of(std::begin(kTurns), std::end(kTurns), [&](double turn) {
                   return c - tol / 2.0 <= angle + turn && angle + turn <= c + tol / 2.0;
               });
    };
    // The first candidate that matches, found without walking there: a step may be as small as it likes. The neighbours
    // of where it should be are tried too, for rounding's sake.
    double best = matches(0.0) ? 0.0 : std::numeric_limits<double>::infinity();
    for (const double turn : kTurns) {
        const double about = std::ceil((angle + turn - tol / 2.0 - first) / step);
        for (const double index : {about - 1.0, about, about + 1.0})
            if (index < best && matches(index)) best = index;
    }
    if (std::isfinite(best)) return foldOnce(candidate(best));
    // Without a match the walk ends with the first candidate beyond.
    double beyond = std::floor((last - first) / step) - 1.0;
    for (int i = 0; i < 3 && candidate(beyond) <= last; ++i) ++beyond;
    return foldOnce(candidate(beyond));
}

double sysConstrainAngle() {
    double angle = 0.0;
    kzo::core::Illustrator::instance()->preferences()->getFloatPref("", "constrain/angle", angle);
    return angle;
}

bool isClockwise(double from, double to) { return foldOnce(std::fmod(to - from, 360.0)) < 0.0; }

bool within(double v, double a, double b) { return !(std::min(a, b) > v || v > std::max(a, b)); }

} // namespace vl::constrain
