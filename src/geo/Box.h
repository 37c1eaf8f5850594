// An upright rectangle by its two extreme corners: what bounds and rectangle arithmetic are computed with.
#pragma once

#include "geo/Point.h"

namespace kzo::geo {

/// Holds the points from `min` to `max`, its border included. The direction of y is the caller's.
/// Corners are taken as given and never put in order.
struct Box {
    Point min;
    Point max;

    constexpr bool operator==(const Box&) const = default; // exact

    [[nodiscard]] constexpr double width() const { return max.x - min.x; }
    [[nodiscard]] constexpr double height() const { return max.y - min.y; }
    [[nodiscard]] constexpr double area() const { return width() * height(); }
    [[nodiscard]] constexpr double perimeter() const { return 2.0 * (width() + height()); }
    /// The point at these parts of width and height; the corners, at parts of 0 and 1, are exact.
    [[nodiscard]] Point at(double partX, double partY) const;

    [[nodiscard]] Box offset(double dx, double dy) const;
    [[nodiscard]] Box inset(double dx, double dy) const; // each edge moves inwards
    [[nodiscard]] Box unionWith(const Box& other) const;
    [[nodiscard]] Box intersection(const Box& other) const; // an empty box at the origin when they do not overlap
    [[nodiscard]] bool overlaps(const Box& other) const;
    [[nodiscard]] bool contains(Point point) const;
};

} // namespace kzo::geo
