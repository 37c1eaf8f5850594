// The public curve segment of a path.
#pragma once

#include "core/Angle.h"
#include "core/ArtboardPoint.h"
#include "utils/ValueImpl.h"

namespace kzo::plugin {
class Bezier;
}

namespace kzo::core {

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

    [[nodiscard]] ArtboardPoint startPoint() const;
    [[nodiscard]] ArtboardPoint startOutPoint() const;
    [[nodiscard]] ArtboardPoint endInPoint() const;
    [[nodiscard]] ArtboardPoint endPoint() const;
    [[nodiscard]] ArtboardPoint evaluate(double t) const;
    void setPoints(const ArtboardPoint& start, const ArtboardPoint& startOut, const ArtboardPoint& endIn,
                   const ArtboardPoint& end);
    /// The direction of travel. At a retracted handle it points to the nearest control point that differs, at a cusp
    /// along the way out of it; 0 when all four points coincide.
    [[nodiscard]] Angle tangentAngle(double t) const;
    /// False when travel is straight from start to end, control points on the chord included.
    [[nodiscard]] bool curved() const;
    [[nodiscard]] bool operator==(const Bezier& other) const; // exact

    [[nodiscard]] const plugin::Bezier& impl() const; // brought up to date with the members

  private:
    mutable utils::ValueImpl<plugin::Bezier, 8 * sizeof(double)> impl_;
};

} // namespace kzo::core
