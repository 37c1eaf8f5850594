// Cubic Bézier arithmetic on plain values.
// It knows no angles, only vectors: which way is up is the business of those who turn them into directions.
#pragma once

#include "geo/Point.h"

#include <optional>

namespace kzo::geo {

/// A cubic from p0 (t = 0) to p3 (t = 1) with the control points p1 and p2. A `t` outside 0 to 1 continues the curve.
struct Bezier {
    Point p0;
    Point p1;
    Point p2;
    Point p3;

    constexpr bool operator==(const Bezier&) const = default; // exact

    /// Exact at t = 0 and t = 1.
    [[nodiscard]] Point evaluate(double t) const;
    /// A vector in the direction of travel, of any length but 0. Where the derivative vanishes (a retracted handle, a
    /// cusp) it points to the nearest control point that differs; at a cusp, along the way out of it. None when all
    /// four points coincide.
    [[nodiscard]] std::optional<Point> direction(double t) const;
    /// False when travel is straight from p0 to p3: no control point leaves the chord, aside or beyond its ends, by
    /// more than 1e-9 of the curve's extent.
    [[nodiscard]] bool curved() const;
};

} // namespace kzo::geo
