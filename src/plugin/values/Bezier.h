// The curve segment of a path: the cubic's formulas in the artboard's points and angles.
#pragma once

#include "geo/Angle.h"
#include "geo/Bezier.h"
#include "plugin/values/ArtboardPoint.h"
#include "plugin/values/ArtboardRect.h"
#include "plugin/values/PathSegPoint.h"

namespace kzo::plugin {

/// A cubic in artboard points, y down, with angles counter-clockwise on screen. A `t` outside 0 to 1 continues the
/// curve.
class Bezier {
  public:
    Bezier() = default;
    Bezier(const ArtboardPoint& p0, const ArtboardPoint& p1, const ArtboardPoint& p2, const ArtboardPoint& p3);
    Bezier(const PathSegPoint& a, const PathSegPoint& b) : Bezier(a.p, a.out, b.in, b.p) {}

    [[nodiscard]] ArtboardPoint startPoint() const;
    [[nodiscard]] ArtboardPoint startOutPoint() const;
    [[nodiscard]] ArtboardPoint endInPoint() const;
    [[nodiscard]] ArtboardPoint endPoint() const;
    bool adjustThruPoint(const ArtboardPoint& point, double t);
    void divide(double t, Bezier& first, Bezier& second) const; // either may be this
    [[nodiscard]] Bezier section(double t1, double t2) const;
    [[nodiscard]] ArtboardPoint evaluate(double t) const;
    [[nodiscard]] double length() const { return curve_.length(); }
    [[nodiscard]] double sublength(double t1, double t2) const { return curve_.sublength(t1, t2); }
    [[nodiscard]] double tAtLength(double length) const { return curve_.tAtLength(length); }
    void setPoints(const ArtboardPoint& p0, const ArtboardPoint& p1, const ArtboardPoint& p2, const ArtboardPoint& p3);
    /// The direction of travel; 0 when all four points coincide.
    [[nodiscard]] geo::Angle tangentAngle(double t) const;
    /// A quarter turn to the left of travel.
    [[nodiscard]] geo::Angle normalAngle(double t) const;
    [[nodiscard]] bool curved() const { return curve_.curved(); }
    /// False, with both arguments as they were, where the curve is straight or has no first derivative.
    bool radiusAndCenter(double t, double& radius, ArtboardPoint& center) const;
    [[nodiscard]] bool isCircularArc() const { return curve_.isCircularArc(); }
    [[nodiscard]] ArtboardRect bounds() const;
    bool operator==(const Bezier&) const = default; // exact

  private:
    explicit Bezier(const geo::Bezier& curve) : curve_(curve) {}

    geo::Bezier curve_;
};

} // namespace kzo::plugin
