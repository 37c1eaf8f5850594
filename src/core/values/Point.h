// The public plane point, for what is not on an artboard. Distances and directions belong to ArtboardPoint.
#pragma once

#include <vector>

#include "utils/ValueImpl.h"

namespace kzo::geo {
struct Point;
}

namespace kzo::core {

/// A point in points (1/72 inch).
class Point {
  public:
    Point(); // the origin
    Point(double x, double y);
    explicit Point(const geo::Point& impl);

    [[nodiscard]] double x() const;
    [[nodiscard]] double y() const;
    void setX(double x);
    void setY(double y);

    [[nodiscard]] bool operator==(const Point& other) const; // exact
    Point& operator+=(const Point& other);
    Point& operator-=(const Point& other);
    friend Point operator+(Point a, const Point& b) { return a += b; }
    friend Point operator-(Point a, const Point& b) { return a -= b; }

    [[nodiscard]] Point offset(double dx, double dy) const;
    /// Even-odd, the polygon closed from its last vertex to its first.
    [[nodiscard]] bool insidePolygon(const std::vector<Point>& vertices) const;

    [[nodiscard]] const geo::Point& impl() const;

  private:
    utils::ValueImpl<geo::Point, 2 * sizeof(double)> impl_;
};

} // namespace kzo::core
