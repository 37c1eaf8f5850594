// A point of the plane as a plain value. Distances and directions belong to artboard points, since they depend on where
// up is.
#pragma once

#include <vector>

#include "geo/Polygon.h"

namespace kzo::geo {

/// A point in points (1/72 inch).
struct Point {
    double x = 0.0;
    double y = 0.0;

    constexpr bool operator==(const Point&) const = default;

    constexpr Point& operator+=(Point other) { return *this = offset(other.x, other.y); }
    constexpr Point& operator-=(Point other) { return *this = offset(-other.x, -other.y); }
    friend constexpr Point operator+(Point a, Point b) { return a += b; }
    friend constexpr Point operator-(Point a, Point b) { return a -= b; }

    [[nodiscard]] constexpr Point offset(double dx, double dy) const { return {x + dx, y + dy}; }
    [[nodiscard]] bool insidePolygon(const std::vector<Point>& vertices) const {
        return geo::insidePolygon(*this, vertices);
    }
};

} // namespace kzo::geo
