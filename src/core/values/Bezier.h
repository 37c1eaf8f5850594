// The public curve segment of a path.
#pragma once

#include "core/values/Angle.h"
#include "core/values/ArtboardPoint.h"
#include "utils/ValueImpl.h"

namespace kzo::plugin {
class Bezier;
}

namespace kzo::core {

class ArtboardRect;
class ArtboardSegPoint;

/// A cubic in artboard points; `t` runs from 0 at the start to 1 at the end, and a `t` outside continues the curve. The
/// members may be assigned at any time; every operation works on what they hold.
class Bezier {
  public:
    ArtboardPoint p0; // start
    ArtboardPoint p1; // the start's out-control point
    ArtboardPoint p2; // the end's in-control point
    ArtboardPoint p3; // end

    Bezier(); // all at the origin
    Bezier(const ArtboardPoint& start, const ArtboardPoint& startOut, const ArtboardPoint& endIn,
           const ArtboardPoint& end);
    Bezier(const ArtboardSegPoint& a, const ArtboardSegPoint& b);
    explicit Bezier(const plugin::Bezier& impl);

    // Points and pieces
    [[nodiscard]] ArtboardPoint startPoint() const;
    [[nodiscard]] ArtboardPoint startOutPoint() const;
    [[nodiscard]] ArtboardPoint endInPoint() const;
    [[nodiscard]] ArtboardPoint endPoint() const;
    /// Moves the control points, as little as can be, so that the curve passes `point` at `t`. Returns false and
    /// changes nothing when `t` is not strictly between 0 and 1: the ends stay.
    bool adjustThruPoint(const ArtboardPoint& point, double t);
    void divide(double t, Bezier& first, Bezier& second) const; // either may be this curve
    [[nodiscard]] Bezier section(double t1, double t2) const;   // backwards when t1 > t2
    [[nodiscard]] ArtboardPoint evaluate(double t) const;       // exact at 0 and 1

    // Length, in points, to 1e-9 of the result
    [[nodiscard]] double length() const;
    [[nodiscard]] double sublength(double t1, double t2) const; // in either order
    /// Where the curve has run for `length`: 0 for a length that is not positive, 1 beyond the end.
    [[nodiscard]] double tAtLength(double length) const;

    void setPoints(const ArtboardPoint& start, const ArtboardPoint& startOut, const ArtboardPoint& endIn,
                   const ArtboardPoint& end);

    // Direction and shape
    /// The direction of travel. At a retracted handle it points to the nearest control point that differs, at a cusp
    /// along the way out of it; 0 when all four points coincide.
    [[nodiscard]] Angle tangentAngle(double t) const;
    [[nodiscard]] Angle normalAngle(double t) const; // a quarter turn to the left of travel
    /// False when travel is straight from start to end, control points on the chord included.
    [[nodiscard]] bool curved() const;
    // The circle of curvature. False, with the arguments as they were, where the curve is straight or its derivative
    // vanishes.
    bool radius(double t, double& radius) const;
    bool center(double t, ArtboardPoint& center) const;
    bool radiusAndCenter(double t, double& radius, ArtboardPoint& center) const;
    /// Whether the curve stands for an arc of a circle, as drawing programs make them from up to a third of a turn.
    [[nodiscard]] bool isCircularArc() const;
    [[nodiscard]] ArtboardRect bounds() const;                // of the curve, not of its control points
    [[nodiscard]] bool operator==(const Bezier& other) const; // exact

    [[nodiscard]] const plugin::Bezier& impl() const; // brought up to date with the members

  private:
    mutable utils::ValueImpl<plugin::Bezier, 8 * sizeof(double)> impl_;
};

} // namespace kzo::core
