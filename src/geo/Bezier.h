// Cubic Bézier arithmetic on plain values.
// It knows no angles, only vectors: which way is up is the business of those who turn them into directions.
#pragma once

#include <optional>

#include "geo/Box.h"
#include "geo/Point.h"

namespace kzo::geo {

struct Circle {
    Point center;
    double radius = 0.0;
};

/// None where the points lie on a line.
[[nodiscard]] std::optional<Circle> circleThrough(Point a, Point b, Point c);

/// A cubic from p0 (t = 0) to p3 (t = 1) with the control points p1 and p2. A `t` outside 0 to 1 continues the curve.
struct Bezier {
    Point p0;
    Point p1;
    Point p2;
    Point p3;

    constexpr bool operator==(const Bezier&) const = default; // exact

    // Points and pieces
    /// Exact at t = 0 and t = 1.
    [[nodiscard]] Point evaluate(double t) const;
    /// The piece from t1 to t2, backwards when t1 > t2. It begins and ends exactly where `evaluate` says.
    [[nodiscard]] Bezier section(double t1, double t2) const;

    // Direction
    /// A vector in the direction of travel, of any length but 0. Where the derivative vanishes (a retracted handle, a
    /// cusp) it points to the nearest control point that differs; at a cusp, along the way out of it. None when all
    /// four points coincide.
    [[nodiscard]] std::optional<Point> direction(double t) const;
    /// False when travel is straight from p0 to p3: no control point leaves the chord, aside or beyond its ends, by
    /// more than 1e-9 of the curve's extent.
    [[nodiscard]] bool curved() const;

    // Length, to 1e-9 of the result
    [[nodiscard]] double length() const { return sublength(0.0, 1.0); }
    /// The length between two parameters in either order.
    [[nodiscard]] double sublength(double t1, double t2) const;
    /// Where the curve has run for `length`: 0 for a length that is not positive, 1 beyond the end.
    [[nodiscard]] double tAtLength(double length) const;

    // Shape
    /// None where the curve is straight or has no first derivative.
    [[nodiscard]] std::optional<Circle> osculatingCircle(double t) const;
    /// Whether the curve stands for an arc of a circle, as drawing programs make them from up to a third of a turn.
    [[nodiscard]] bool isCircularArc() const;
    [[nodiscard]] Box bounds() const; // of the curve, not of its control points
    /// Moves the control points, as little as can be, so that the curve passes `point` at `t`. Returns false and
    /// changes nothing when `t` is not strictly between 0 and 1: the ends stay.
    bool adjustThruPoint(Point point, double t);
};

} // namespace kzo::geo
