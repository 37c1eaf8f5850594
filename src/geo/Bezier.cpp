// The points, pieces, directions and shape of a cubic. Its length has a file of its own.
#include "geo/Bezier.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "geo/Cubic.h"
#include "geo/Vector.h"

namespace kzo::geo {

namespace {

double extent(const Bezier& b) { return std::max({largest(b.p1 - b.p0), largest(b.p2 - b.p0), largest(b.p3 - b.p0)}); }

/// De Casteljau's scheme with a parameter of its own at each step.
Point blossom(const Bezier& curve, double u, double v, double w) {
    const Point a = between(curve.p0, curve.p1, u);
    const Point b = between(curve.p1, curve.p2, u);
    const Point c = between(curve.p2, curve.p3, u);
    return between(between(a, b, v), between(b, c, v), w);
}

Point secondDerivative(const Bezier& b, double t) {
    return scaled(between((b.p2 - b.p1) - (b.p1 - b.p0), (b.p3 - b.p2) - (b.p2 - b.p1), t), 6.0);
}

/// None where rounding leaves nothing but an arbitrary direction.
std::optional<Point> firstDerivative(const Bezier& b, double t) {
    constexpr double kVanished = 1e-12;
    const double s = 1.0 - t;
    const Point first = scaled(b.p1 - b.p0, s * s);
    const Point second = scaled(b.p2 - b.p1, 2.0 * s * t);
    const Point third = scaled(b.p3 - b.p2, t * t);
    const Point v = scaled(first + second + third, 3.0);
    // Small is not vanished: what counts is how much of the terms cancelled.
    if (largest(v) > kVanished * std::max({largest(first), largest(second), largest(third)})) return v;
    return std::nullopt;
}

/// The first of three vectors that is not 0.
std::optional<Point> firstNonZero(const std::array<Point, 3>& vectors) {
    for (const Point v : vectors) {
        if (v != Point()) return v;
    }
    return std::nullopt;
}

} // namespace

std::optional<Circle> circleThrough(Point a, Point b, Point c) {
    const Point ab = b - a;
    const Point ac = c - a;
    const double twice = 2.0 * cross(ab, ac);
    if (twice == 0.0) return std::nullopt;
    const Point toCenter = {(ac.y * dot(ab, ab) - ab.y * dot(ac, ac)) / twice,
                            (ab.x * dot(ac, ac) - ac.x * dot(ab, ab)) / twice};
    return Circle{a + toCenter, norm(toCenter)};
}

// Points and pieces

Point Bezier::evaluate(double t) const { return blossom(*this, t, t, t); }

Bezier Bezier::section(double t1, double t2) const {
    return {blossom(*this, t1, t1, t1), blossom(*this, t1, t1, t2), blossom(*this, t1, t2, t2),
            blossom(*this, t2, t2, t2)};
}

// Direction

std::optional<Point> Bezier::direction(double t) const {
    if (t == 0.0) return firstNonZero({p1 - p0, p2 - p0, p3 - p0});
    if (t == 1.0) return firstNonZero({p3 - p2, p3 - p1, p3 - p0});
    if (const auto velocity = firstDerivative(*this, t)) return velocity;
    return firstNonZero({secondDerivative(*this, t), p3 - p0, p1 - p0});
}

bool Bezier::curved() const {
    constexpr double kStraight = 1e-9;
    const double limit = kStraight * extent(*this);
    const Point chord = p3 - p0;
    const double length = norm(chord);
    if (length <= limit) return limit > 0.0;
    const Point unit = scaled(chord, 1.0 / length);
    const auto leaves = [&](Point control) {
        const Point v = control - p0;
        const double along = dot(v, unit);
        return std::abs(cross(v, unit)) > limit || along < -limit || along > length + limit;
    };
    return leaves(p1) || leaves(p2);
}

// Shape

std::optional<Circle> Bezier::osculatingCircle(double t) const {
    constexpr double kStraight = 1e-12;
    const auto [curve, size] = usableSize(*this);
    const auto velocity = firstDerivative(curve, t);
    if (!velocity) return std::nullopt;
    const Point bend = secondDerivative(curve, t);
    const double turning = cross(*velocity, bend);
    const double speed = norm(*velocity);
    // On a straight line the bend itself is rounding and points anywhere.
    if (norm(bend) <= kStraight * extent(curve)) return std::nullopt;
    if (std::abs(turning) <= kStraight * speed * norm(bend)) return std::nullopt;
    const Point toCenter = scaled({-velocity->y, velocity->x}, size * (speed * speed / turning));
    return Circle{evaluate(t) + toCenter, norm(toCenter)};
}

bool Bezier::isCircularArc() const {
    // The customary cubic for a quarter circle strays from it by a thousandth of its rise over the chord; for a third
    // of a turn it is three thousandths. Beyond that the difference can be seen.
    constexpr double kStray = 1.0 / 200.0;
    constexpr int kSamples = 16;
    if (!curved()) return false;
    const Point middle = evaluate(0.5);
    const auto circle = circleThrough(p0, middle, p3);
    if (!circle) return false;
    const double rise = norm(middle - between(p0, p3, 0.5));
    const double limit = kStray * std::min(rise, circle->radius);
    for (int i = 1; i < kSamples; ++i) {
        const double radius = norm(evaluate(static_cast<double>(i) / kSamples) - circle->center);
        if (std::abs(radius - circle->radius) > limit) return false;
    }
    return true;
}

Box Bezier::bounds() const {
    Box box = Box{p0, p0}.unionWith({p3, p3});
    const auto include = [&](const Turns& extremes) {
        for (const double t : extremes) {
            const Point point = evaluate(t);
            box = box.unionWith({point, point});
        }
    };
    include(turns(p0.x, p1.x, p2.x, p3.x));
    include(turns(p0.y, p1.y, p2.y, p3.y));
    return box;
}

bool Bezier::adjustThruPoint(Point point, double t) {
    if (!(t > 0.0 && t < 1.0)) return false;
    const double s = 1.0 - t;
    const double weight1 = 3.0 * s * s * t;
    const double weight2 = 3.0 * s * t * t;
    const Point step = scaled(point - evaluate(t), 1.0 / (weight1 * weight1 + weight2 * weight2));
    p1 += scaled(step, weight1);
    p2 += scaled(step, weight2);
    return true;
}

} // namespace kzo::geo
