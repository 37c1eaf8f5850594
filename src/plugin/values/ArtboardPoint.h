// The point of the artboard: the arithmetic behind the public class and the conversion to the host's record.
// The host's y grows downward too, so nothing is flipped here; only angles are.
#pragma once

#include <vector>

#include "geo/Angle.h"
#include "geo/Point.h"
#include "geo/TransformMatrix.h"

struct AIRealPoint;

namespace kzo::plugin {

/// A point in points (1/72 inch), y down. Angles run counter-clockwise on screen, 0 to the right and π/2 up, so
/// whatever turns an angle into a direction negates its sine.
struct ArtboardPoint {
    double x = 0.0;
    double y = 0.0;

    // Construction
    constexpr ArtboardPoint() = default;
    constexpr ArtboardPoint(double px, double py) : x(px), y(py) {}
    constexpr explicit ArtboardPoint(const geo::Point& point) : x(point.x), y(point.y) {}
    explicit ArtboardPoint(const AIRealPoint& point);
    ArtboardPoint& operator=(const AIRealPoint& point);
    [[nodiscard]] static ArtboardPoint LengthAngle(double length, geo::Angle angle);

    // Values
    [[nodiscard]] AIRealPoint toAIRealPoint() const;
    [[nodiscard]] constexpr geo::Point plain() const { return {x, y}; }
    constexpr bool operator==(const ArtboardPoint&) const = default; // exact
    // A product order: it holds when it holds for both coordinates, so two points may be in no order at all.
    constexpr bool operator<(const ArtboardPoint& other) const { return x < other.x && y < other.y; }
    constexpr bool operator<=(const ArtboardPoint& other) const { return x <= other.x && y <= other.y; }
    constexpr bool operator>(const ArtboardPoint& other) const { return x > other.x && y > other.y; }
    constexpr bool operator>=(const ArtboardPoint& other) const { return x >= other.x && y >= other.y; }
    /// Both coordinates are within `tol`, strictly.
    [[nodiscard]] bool closeTo(const ArtboardPoint& other, double tol) const;

    // Arithmetic, on each coordinate
    constexpr ArtboardPoint& operator+=(const ArtboardPoint& v) { return *this = ArtboardPoint(x + v.x, y + v.y); }
    constexpr ArtboardPoint& operator-=(const ArtboardPoint& v) { return *this = ArtboardPoint(x - v.x, y - v.y); }
    constexpr ArtboardPoint& operator*=(const ArtboardPoint& v) { return *this = ArtboardPoint(x * v.x, y * v.y); }
    constexpr ArtboardPoint& operator/=(const ArtboardPoint& v) { return *this = ArtboardPoint(x / v.x, y / v.y); }
    constexpr ArtboardPoint& operator+=(double v) { return *this += ArtboardPoint(v, v); }
    constexpr ArtboardPoint& operator-=(double v) { return *this -= ArtboardPoint(v, v); }
    constexpr ArtboardPoint& operator*=(double v) { return *this *= ArtboardPoint(v, v); }
    constexpr ArtboardPoint& operator/=(double v) { return *this /= ArtboardPoint(v, v); }
    friend constexpr ArtboardPoint operator+(ArtboardPoint a, const ArtboardPoint& b) { return a += b; }
    friend constexpr ArtboardPoint operator-(ArtboardPoint a, const ArtboardPoint& b) { return a -= b; }

    // Relations
    [[nodiscard]] double distance(const ArtboardPoint& other) const;
    [[nodiscard]] geo::Angle direction(const ArtboardPoint& other) const; // towards `other`
    [[nodiscard]] constexpr double dotProduct(const ArtboardPoint& other) const { return x * other.x + y * other.y; }
    [[nodiscard]] bool insidePolygon(const std::vector<ArtboardPoint>& vertices) const; // even-odd

    // Moved points
    [[nodiscard]] constexpr ArtboardPoint offset(double dx, double dy) const { return {x + dx, y + dy}; }
    /// Keeps the other coordinate exactly when it moves along 0, π/2, π or 3π/2.
    [[nodiscard]] ArtboardPoint move(double length, geo::Angle angle) const;
    /// Turns about `origin`. A positive angle turns clockwise on screen, as a matrix's rotation does.
    [[nodiscard]] ArtboardPoint rotate(const ArtboardPoint& origin, geo::Angle angle) const;
    [[nodiscard]] ArtboardPoint transform(const geo::TransformMatrix& matrix) const;
};

} // namespace kzo::plugin
