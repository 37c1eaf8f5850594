// The points, directions and straightness of a cubic.
#include "geo/Bezier.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace kzo::geo {

namespace {

Point scaled(Point v, double factor) { return {v.x * factor, v.y * factor}; }
double dot(Point a, Point b) { return a.x * b.x + a.y * b.y; }
double cross(Point a, Point b) { return a.x * b.y - a.y * b.x; }
double largest(Point v) { return std::max(std::abs(v.x), std::abs(v.y)); }

/// Exact at both ends.
Point between(Point a, Point b, double t) { return scaled(a, 1.0 - t) + scaled(b, t); }

Point firstDerivative(const Bezier& b, double t) {
    const double s = 1.0 - t;
    return scaled(scaled(b.p1 - b.p0, s * s) + scaled(b.p2 - b.p1, 2.0 * s * t) + scaled(b.p3 - b.p2, t * t), 3.0);
}

Point secondDerivative(const Bezier& b, double t) {
    return scaled(between((b.p2 - b.p1) - (b.p1 - b.p0), (b.p3 - b.p2) - (b.p2 - b.p1), t), 6.0);
}

double extent(const Bezier& b) { return std::max({largest(b.p1 - b.p0), largest(b.p2 - b.p0), largest(b.p3 - b.p0)}); }

/// The first of three vectors that is not 0.
std::optional<Point> firstNonZero(const std::array<Point, 3>& vectors) {
    for (const Point v : vectors) {
        if (v != Point()) return v;
    }
    return std::nullopt;
}

} // namespace

Point Bezier::evaluate(double t) const {
    const Point a = between(p0, p1, t);
    const Point b = between(p1, p2, t);
    const Point c = between(p2, p3, t);
    return between(between(a, b, t), between(b, c, t), t);
}

std::optional<Point> Bezier::direction(double t) const {
    if (t == 0.0) return firstNonZero({p1 - p0, p2 - p0, p3 - p0});
    if (t == 1.0) return firstNonZero({p3 - p2, p3 - p1, p3 - p0});
    // At a cusp rounding leaves a little of the first derivative, in no meaningful direction.
    constexpr double kVanished = 1e-12;
    const double limit = kVanished * extent(*this);
    const Point velocity = firstDerivative(*this, t);
    if (largest(velocity) > limit) return velocity;
    return firstNonZero({secondDerivative(*this, t), p3 - p0, p1 - p0});
}

bool Bezier::curved() const {
    constexpr double kStraight = 1e-9;
    const double limit = kStraight * extent(*this);
    const Point chord = p3 - p0;
    const double length = std::hypot(chord.x, chord.y);
    if (length <= limit) return limit > 0.0;
    const auto leaves = [&](Point control) {
        const Point v = control - p0;
        const double along = dot(v, chord) / length;
        return std::abs(cross(v, chord)) / length > limit || along < -limit || along > length + limit;
    };
    return leaves(p1) || leaves(p2);
}

} // namespace kzo::geo
