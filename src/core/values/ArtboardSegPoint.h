// The public point of a path: an anchor with its two control points.
#pragma once

#include "core/values/ArtboardPoint.h"
#include "utils/ValueImpl.h"

namespace kzo::plugin {
struct PathSegPoint;
}

namespace kzo::core {

/// A control point that equals the anchor is retracted: the curve has no handle on that side. The members may be
/// assigned at any time; every operation works on what they hold.
class ArtboardSegPoint {
  public:
    ArtboardPoint p;   // the anchor
    ArtboardPoint in;  // towards the previous anchor
    ArtboardPoint out; // towards the next anchor
    bool corner;       // the two handles turn independently

    ArtboardSegPoint(); // all at the origin, smooth
    ArtboardSegPoint(const ArtboardPoint& point, bool isCorner);
    ArtboardSegPoint(const ArtboardPoint& anchor, const ArtboardPoint& inPoint, const ArtboardPoint& outPoint,
                     bool isCorner);
    explicit ArtboardSegPoint(const plugin::PathSegPoint& impl);

    [[nodiscard]] bool operator==(const ArtboardSegPoint& other) const; // exact
    /// Whether the segment from this point to `other` is curved.
    [[nodiscard]] bool curved(const ArtboardSegPoint& other) const;

    [[nodiscard]] const plugin::PathSegPoint& impl() const; // brought up to date with the members

  private:
    mutable utils::ValueImpl<plugin::PathSegPoint, 7 * sizeof(double)> impl_;
};

} // namespace kzo::core
