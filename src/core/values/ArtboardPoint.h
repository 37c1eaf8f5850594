// The public artboard point: the type that drawing code computes with.
// The arithmetic is in the implementation object that every point carries; nothing here allocates but insidePolygon.
#pragma once

#include <vector>

#include "core/values/Angle.h"
#include "utils/ValueImpl.h"

struct AIRealPoint;

namespace kzo::plugin {
struct ArtboardPoint;
}

namespace kzo::core {

class TransformMatrix;

/// A point in points (1/72 inch), y down. Angles run counter-clockwise on screen: 0 points right, π/2 points up.
class ArtboardPoint {
  public:
    // Construction
    ArtboardPoint(); // the origin
    ArtboardPoint(double x, double y);
    explicit ArtboardPoint(const AIRealPoint& point);
    explicit ArtboardPoint(const plugin::ArtboardPoint& impl);
    [[nodiscard]] static ArtboardPoint LengthAngle(double length, const Angle& angle); // seen from the origin

    // Values
    [[nodiscard]] double x() const;
    [[nodiscard]] double y() const;
    void setX(double x);
    void setY(double y);
    [[nodiscard]] bool operator==(const ArtboardPoint& other) const; // exact
    // A product order: it holds when it holds for both coordinates, so two points may be in no order at all.
    [[nodiscard]] bool operator<(const ArtboardPoint& other) const;
    [[nodiscard]] bool operator<=(const ArtboardPoint& other) const;
    [[nodiscard]] bool operator>(const ArtboardPoint& other) const;
    [[nodiscard]] bool operator>=(const ArtboardPoint& other) const;
    [[nodiscard]] bool closeTo(const ArtboardPoint& other, double tol) const; // both coordinates, strictly

    // Arithmetic, on each coordinate
    ArtboardPoint& operator+=(const ArtboardPoint& other);
    ArtboardPoint& operator-=(const ArtboardPoint& other);
    ArtboardPoint& operator*=(const ArtboardPoint& other);
    ArtboardPoint& operator/=(const ArtboardPoint& other);
    ArtboardPoint& operator+=(double value);
    ArtboardPoint& operator-=(double value);
    ArtboardPoint& operator*=(double value);
    ArtboardPoint& operator/=(double value);
    friend ArtboardPoint operator+(ArtboardPoint a, const ArtboardPoint& b) { return a += b; }
    friend ArtboardPoint operator-(ArtboardPoint a, const ArtboardPoint& b) { return a -= b; }
    friend ArtboardPoint operator*(ArtboardPoint a, const ArtboardPoint& b) { return a *= b; }
    friend ArtboardPoint operator/(ArtboardPoint a, const ArtboardPoint& b) { return a /= b; }
    friend ArtboardPoint operator+(ArtboardPoint a, double value) { return a += value; }
    friend ArtboardPoint operator-(ArtboardPoint a, double value) { return a -= value; }
    friend ArtboardPoint operator*(ArtboardPoint a, double value) { return a *= value; }
    friend ArtboardPoint operator/(ArtboardPoint a, double value) { return a /= value; }

    // Relations
    [[nodiscard]] double operator|(const ArtboardPoint& other) const; // the distance
    [[nodiscard]] Angle operator^(const ArtboardPoint& other) const;  // the direction towards `other`
    [[nodiscard]] double dotProduct(const ArtboardPoint& other) const;
    /// Even-odd, the polygon closed from its last vertex to its first.
    [[nodiscard]] bool insidePolygon(const std::vector<ArtboardPoint>& vertices) const;

    // Moved points; this one stays
    [[nodiscard]] ArtboardPoint offset(double dx, double dy) const;
    /// Keeps the other coordinate exactly when it moves along 0, π/2, π or 3π/2.
    [[nodiscard]] ArtboardPoint move(double distance, const Angle& angle) const;
    /// Turns about `origin`. A positive angle turns clockwise on screen, as a matrix's rotation does.
    [[nodiscard]] ArtboardPoint rotate(const ArtboardPoint& origin, const Angle& angle) const;
    [[nodiscard]] ArtboardPoint transform(const TransformMatrix& matrix) const;

    [[nodiscard]] const plugin::ArtboardPoint& impl() const;

  private:
    utils::ValueImpl<plugin::ArtboardPoint, 2 * sizeof(double)> impl_;
};

} // namespace kzo::core
