// The curve segment of a path: the cubic's formulas in the artboard's points and angles.
#pragma once

#include "geo/Angle.h"
#include "geo/Bezier.h"
#include "plugin/ArtboardPoint.h"
#include "plugin/PathSegPoint.h"

namespace kzo::plugin {

/// A cubic in artboard points, y down, with angles counter-clockwise on screen.
class Bezier {
  public:
    Bezier() = default;
    Bezier(const ArtboardPoint& p0, const ArtboardPoint& p1, const ArtboardPoint& p2, const ArtboardPoint& p3);
    Bezier(const PathSegPoint& a, const PathSegPoint& b) : Bezier(a.p, a.out, b.in, b.p) {}

    [[nodiscard]] ArtboardPoint startPoint() const;
    [[nodiscard]] ArtboardPoint startOutPoint() const;
    [[nodiscard]] ArtboardPoint endInPoint() const;
    [[nodiscard]] ArtboardPoint endPoint() const;
    [[nodiscard]] ArtboardPoint evaluate(double t) const;
    void setPoints(const ArtboardPoint& p0, const ArtboardPoint& p1, const ArtboardPoint& p2, const ArtboardPoint& p3);
    /// The direction of travel; at a retracted handle, towards the nearest control point that differs. 0 when all four
    /// points coincide.
    [[nodiscard]] geo::Angle tangentAngle(double t) const;
    [[nodiscard]] bool curved() const;
    bool operator==(const Bezier&) const = default; // exact

  private:
    geo::Bezier curve_;
};

} // namespace kzo::plugin
