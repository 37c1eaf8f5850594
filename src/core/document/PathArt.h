// The view of an Art as a path: anchors with their control points.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "core/values/ArtboardSegPoint.h"
#include "core/values/Bezier.h"
#include "core/values/DocumentEnumerations.h"
#include "core/values/PathIntersection.h"
#include "core/values/PathStyle.h"

namespace kzo::core {

class Art;
class HitData;

/// A *segment point* is one anchor with its control points; a *segment* is the curve between two neighbouring anchors.
/// A closed path has as many segments as points, an open one has one less. Segment i runs from point i to point i + 1;
/// the last one of a closed path runs back to point 0 and is also number -1, wherever a segment is asked for.
///
/// Indices out of range are clamped, counts to what remains from the index; of a run of points that reaches past the
/// end, what fits is written. Parameters t are held to 0 to 1. Operations that change the path return whether the host
/// did it; when it refused, the path is as it was. When the owner is no path, operations do nothing and return false,
/// 0, an empty list or null. Belongs to its Art and cannot be copied.
class PathArt {
  public:
    using SegPoints = std::vector<ArtboardSegPoint>;
    using Intersections = std::vector<PathIntersection>;
    using SegPointSelectionState = core::SegPointSelectionState;
    using TrimDirectionType = core::TrimDirectionType;
    using WindingOrderType = core::WindingOrderType;
    using StrokeAlignment = core::StrokeAlignment;

    explicit PathArt(const Art* owner) : owner_(owner) {}
    PathArt(const PathArt&) = delete;
    PathArt& operator=(const PathArt&) = delete;

    // Counts
    [[nodiscard]] std::int16_t segPointCount() const;
    bool setSegPointCount(std::int16_t count); ///< cuts off at the end, or appends corners at the origin
    [[nodiscard]] std::int16_t segCount() const;
    bool setSegCount(std::int16_t count); ///< sets the point count that goes with it
    [[nodiscard]] bool closed() const;
    bool setClosed(bool closed);

    // Points
    [[nodiscard]] SegPoints segPoints(std::int16_t index, std::int16_t count) const;
    bool setSegPoints(std::int16_t index, const SegPoints& points);    ///< never changes the number of points
    bool insertSegPoints(std::int16_t index, const SegPoints& points); ///< before the point at `index`, or at the end
    /// Makes an anchor within a segment, between 0 and 1, without changing the curve.
    bool insertSegPointAtT(std::int16_t seg, double t);
    bool deleteSegPoints(std::int16_t index, std::int16_t count);
    bool rotateSegPoints(std::int16_t by); ///< renumbers the points: the one at `by`, which may be negative, becomes 0
    [[nodiscard]] std::int16_t
    segPointClosestToPoint(const ArtboardPoint& point) const;        ///< the lowest index wins a tie
    void endPoints(ArtboardPoint& first, ArtboardPoint& last) const; ///< leaves both alone where there are none
    /// The points of which nothing shows: they lie on the one before, and no handle between them is extended.
    [[nodiscard]] std::vector<std::int16_t> phantomSegPoints() const;

    // Segments
    /// The points of `count` segments, one more than there are segments; on a closed path round its start.
    [[nodiscard]] SegPoints segs(std::int16_t index, std::int16_t count) const;
    /// Writes the points of neighbouring segments. An open path grows where it must, a closed one is written round its
    /// start: `setSegs(i, segs(i, n))` changes nothing.
    bool setSegs(std::int16_t index, const SegPoints& points);
    bool insertSegs(std::int16_t index,
                    const SegPoints& points);                ///< as many segments as points, before that at `index`
    bool deleteSegs(std::int16_t index, std::int16_t count); ///< with the point that each starts at
    bool reverseSegs();                                      ///< turns the path's direction round
    [[nodiscard]] std::unique_ptr<Bezier> bezier(std::int16_t index) const; ///< null on a path without segments
    [[nodiscard]] bool phantomSeg(std::int16_t index) const;                ///< nothing shows of it: it has no length

    // Selection
    [[nodiscard]] SegPointSelectionState segPointSelected(std::int16_t index) const;
    bool setSegPointSelected(std::int16_t index, SegPointSelectionState state);
    [[nodiscard]] bool allSegPointsSelected() const;
    /// Both its anchors are selected, or the control points at both its ends.
    [[nodiscard]] bool segSelected(std::int16_t index) const;

    // Measures, in points; 0 when they are out of the range of numbers
    [[nodiscard]] bool hasLength() const;
    [[nodiscard]] double length() const;
    /// Between two places; on a closed path onwards from the first, on an open one in either order.
    [[nodiscard]] double sublength(std::int16_t fromSeg, double fromT, std::int16_t toSeg, double toT) const;
    /// Where a segment has run for `length`: 0 for a length that is not positive, 1 beyond its end.
    [[nodiscard]] double tAtLength(std::int16_t seg, double length) const;
    [[nodiscard]] ArtboardPoint midPoint() const; ///< halfway along the path
    /// What the path encloses; an open one is closed by a straight line. Loops of opposite winding cancel.
    [[nodiscard]] double area() const;
    [[nodiscard]] WindingOrderType windingOrder() const;
    bool setWindingOrder(WindingOrderType order); ///< false where the path has none
    [[nodiscard]] bool
    containsPoint(const ArtboardPoint& point) const; ///< even-odd, an open path closed by a straight line

    // Shape
    bool angle(Angle& angle) const; ///< from start to end; false, with `angle` as it was, unless the path is straight
    [[nodiscard]] bool isStraight() const;
    [[nodiscard]] bool hasStraightSegs() const; ///< any of them
    [[nodiscard]] bool isCircular() const;      ///< closed, and within a 500th of the radius of a circle
    [[nodiscard]] bool isRectangular() const;   ///< closed, in any direction, with right angles to a thousandth

    // Meeting other paths
    /// Meetings of the path with itself, or with another path, in the order of this one. Where they run together for a
    /// stretch, its ends.
    [[nodiscard]] Intersections getIntersections() const;
    [[nodiscard]] Intersections getIntersections(const Art& other) const;
    /// Cuts the path off around the hit, in each direction asked for up to the nearest place where it meets itself or
    /// another visible path, or else to its end; in a direction not asked for, at the hit. A gap in an open path leaves
    /// a second path, above it. False when nothing would be cut off or nothing left.
    bool trim(const HitData& hit, TrimDirectionType directions);
    /// Grows the end that is nearer to the first hit straight on until it meets the path of the second; of several
    /// meetings the one nearest to that hit. False for a closed path and when it never meets.
    bool extend(const HitData& end, const HitData& target);

    // Style
    [[nodiscard]] bool isGuide() const;
    [[nodiscard]] PathStyle style() const;
    bool setStyle(const PathStyle& style);
    bool setStrokeAlignment(StrokeAlignment alignment); ///< of closed paths; the stroke of others lies on its center

  private:
    const Art* owner_;
};

} // namespace kzo::core
