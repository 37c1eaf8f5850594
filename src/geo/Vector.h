// Points taken as vectors: the few products that curve formulas are made of.
#pragma once

#include <algorithm>
#include <cmath>

#include "geo/Point.h"

namespace kzo::geo {

[[nodiscard]] constexpr Point scaled(Point v, double factor) { return {v.x * factor, v.y * factor}; }
[[nodiscard]] constexpr double dot(Point a, Point b) { return a.x * b.x + a.y * b.y; }
[[nodiscard]] constexpr double cross(Point a, Point b) { return a.x * b.y - a.y * b.x; }
[[nodiscard]] inline double norm(Point v) { return std::hypot(v.x, v.y); }
/// The larger coordinate by size: a cheap measure of a vector for tests against rounding.
[[nodiscard]] inline double largest(Point v) { return std::max(std::abs(v.x), std::abs(v.y)); }
/// `a` at t = 0 and `b` at t = 1, both exactly.
[[nodiscard]] constexpr Point between(Point a, Point b, double t) { return scaled(a, 1.0 - t) + scaled(b, t); }

} // namespace kzo::geo
