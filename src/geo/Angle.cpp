// Normalisation, comparison and trigonometry of angles.
#include "geo/Angle.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "utils/Tolerance.h"

namespace kzo::geo {

namespace {

constexpr double kTurn = Angle::TwoPi().asRadians();
constexpr double kRelativeTolerance = 10.0 * std::numeric_limits<double>::epsilon();
constexpr double kQuadrantTolerance = 1e-4;
constexpr double kConstrainTolerance = 1e-5;

/// Brings far-away values within a few turns of 0, so that folding by single turns ends soon. The turn that is added
/// back keeps full turns apart from 0, as folding does. Infinity becomes NaN here.
double nearZero(double radians) {
    constexpr double kFar = 1e6;
    if (std::abs(radians) > kFar) return std::fmod(radians, kTurn) + std::copysign(kTurn, radians);
    return radians;
}

bool sameButForRounding(double a, double b) {
    return std::abs(a - b) <= kRelativeTolerance * std::max(std::abs(a), std::abs(b));
}

double foldBetween(double radians, double lo, double hi) {
    double value = nearZero(radians);
    if (value == 0.0) return 0.0;
    while (value < lo) value += kTurn;
    if (sameButForRounding(value, hi)) return hi;
    while (value > hi) value -= kTurn;
    return value;
}

double oneTurn(Angle angle) { return angle.range0To2Pi().asRadians(); }

double snapToZero(double value, double tol) { return utils::equalWithinTol(value, 0.0, tol) ? 0.0 : value; }

/// The argument of a trigonometric function made harmless. NaN passes: there is no number to put in its place.
double finite(double value) {
    constexpr double kLargest = std::numeric_limits<double>::max();
    return std::isinf(value) ? std::copysign(kLargest, value) : value;
}

Angle snappedAngle(double radians, double tol) { return {snapToZero(radians, tol), Angle::Units::Radians}; }

} // namespace

bool Angle::operator==(Angle other) const {
    const double a = oneTurn(*this);
    const double b = oneTurn(other);
    const double bound = kRelativeTolerance * std::max(std::abs(a), std::abs(b));
    return std::abs(a - b) <= bound || std::abs(a - b - kTurn) <= bound || std::abs(a - b + kTurn) <= bound;
}

bool Angle::operator<(Angle other) const { return oneTurn(*this) < oneTurn(other); }
bool Angle::operator<=(Angle other) const { return oneTurn(*this) <= oneTurn(other); }
bool Angle::operator>(Angle other) const { return oneTurn(*this) > oneTurn(other); }
bool Angle::operator>=(Angle other) const { return oneTurn(*this) >= oneTurn(other); }

bool Angle::equalWithinTol(Angle other, Angle tol) const {
    const double a = oneTurn(*this);
    const double b = oneTurn(other);
    const double t = tol.radians_;
    return utils::equalWithinTol(a, b, t) || utils::equalWithinTol(a + kTurn, b, t) ||
           utils::equalWithinTol(a - kTurn, b, t) || utils::equalWithinTol(a, b + kTurn, t) ||
           utils::equalWithinTol(a, b - kTurn, t);
}

Angle Angle::range0To2Pi() const { return radians(foldBetween(radians_, 0.0, kTurn)); }
Angle Angle::rangeNegPiToPi() const { return radians(foldBetween(radians_, -kPi, kPi)); }

Angle Angle::nearest45() const {
    constexpr double kEighth = kPi / 8.0;
    const double value = rangeNegPiToPi().radians_;
    if (std::isnan(value)) return radians(value);
    const double size = std::abs(value);
    if (size <= kEighth) return Zero();
    if (size <= 3.0 * kEighth) return radians(std::copysign(kPi / 4.0, value));
    if (size <= 5.0 * kEighth) return radians(std::copysign(kPi / 2.0, value));
    if (size <= 7.0 * kEighth) return radians(std::copysign(3.0 * kPi / 4.0, value));
    return Pi();
}

Angle Angle::constrain0ToPi() const { return _constrainCustom(0.0, kPi); }
Angle Angle::constrainPiOver2To3PiOver2() const { return _constrainCustom(kPi / 2.0, 3.0 * kPi / 2.0); }
Angle Angle::constrainPiTo2Pi() const { return _constrainCustom(kPi, kTurn); }
Angle Angle::constrainNegPiOver2ToPiOver2() const { return _constrainCustom(-kPi / 2.0, kPi / 2.0); }

/// Folds by the width of the range. For half turns that keeps the line and gives up the sense along it.
Angle Angle::_constrainCustom(double lo, double hi) const {
    double value = oneTurn(*this);
    if (lo > hi) std::swap(lo, hi);
    double step = hi - lo;
    for (const double round : {kPi / 2.0, kPi, kTurn}) {
        if (utils::equalWithinTol(step, round, kConstrainTolerance)) {
            step = round;
            break;
        }
    }
    if (utils::equalWithinTol(value, lo, kConstrainTolerance)) return radians(lo);
    while (value < lo) value += step;
    if (utils::equalWithinTol(value, hi, kConstrainTolerance)) return radians(hi);
    while (value > hi) value -= step;
    return radians(value);
}

Angle Angle::delta(Angle other) const {
    double difference = oneTurn(other) - oneTurn(*this);
    if (difference > kPi) {
        difference -= kTurn;
    } else if (difference < -kPi) {
        difference += kTurn;
    }
    return radians(std::abs(difference));
}

Angle Angle::bisect(Angle other) const {
    const double a = oneTurn(*this);
    const double b = oneTurn(other);
    const double apart = std::abs(b - a);
    const double middle = (a + b) / 2.0;
    return radians(kPi < apart && apart < kTurn ? middle + kPi : middle);
}

bool Angle::firstQuadrant() const {
    const double value = oneTurn(*this);
    return utils::equalWithinTol(value, 0.0, kQuadrantTolerance) || (0.0 <= value && value < kPi / 2.0);
}

bool Angle::secondQuadrant() const {
    const double value = oneTurn(*this);
    return kPi / 2.0 <= value && value < kPi;
}

bool Angle::thirdQuadrant() const {
    const double value = oneTurn(*this);
    return kPi <= value && value < 3.0 * kPi / 2.0;
}

bool Angle::fourthQuadrant() const {
    const double value = oneTurn(*this);
    return utils::equalWithinTol(value, kTurn, kQuadrantTolerance) || (3.0 * kPi / 2.0 <= value && value <= kTurn);
}

int Angle::quadrantNumber() const {
    if (firstQuadrant()) return 1;
    if (secondQuadrant()) return 2;
    if (thirdQuadrant()) return 3;
    return fourthQuadrant() ? 4 : 0;
}

double Angle::sin(double tol) const { return snapToZero(std::sin(finite(radians_)), tol); }
double Angle::cos(double tol) const { return snapToZero(std::cos(finite(radians_)), tol); }
double Angle::tan(double tol) const { return snapToZero(std::tan(finite(radians_)), tol); }

Angle Angle::asin(double value, double tol) { return snappedAngle(std::asin(finite(value)), tol); }
Angle Angle::acos(double value, double tol) { return snappedAngle(std::acos(finite(value)), tol); }
Angle Angle::atan(double value, double tol) { return snappedAngle(std::atan(finite(value)), tol); }

} // namespace kzo::geo
