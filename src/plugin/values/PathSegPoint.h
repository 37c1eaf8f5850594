// The anchor of a path with its two control points, and the conversion to the host's record.
#pragma once

#include "plugin/values/ArtboardPoint.h"

struct AIPathSegment;

namespace kzo::plugin {

/// A control point that equals the anchor is retracted: the curve has no handle on that side.
struct PathSegPoint {
    ArtboardPoint p;
    ArtboardPoint in;  // towards the previous anchor
    ArtboardPoint out; // towards the next anchor
    bool corner = false;

    PathSegPoint() = default;
    PathSegPoint(const ArtboardPoint& point, bool isCorner) : PathSegPoint(point, point, point, isCorner) {}
    PathSegPoint(const ArtboardPoint& anchor, const ArtboardPoint& inPoint, const ArtboardPoint& outPoint,
                 bool isCorner)
        : p(anchor), in(inPoint), out(outPoint), corner(isCorner) {}
    explicit PathSegPoint(const AIPathSegment& segment);

    [[nodiscard]] AIPathSegment toAIPathSegment() const;
    constexpr bool operator==(const PathSegPoint&) const = default; // exact
    /// Whether the segment from this point to `other` is curved.
    [[nodiscard]] bool curved(const PathSegPoint& other) const;
};

} // namespace kzo::plugin
