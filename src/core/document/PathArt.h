// The view of an Art as a path: anchors with their control points.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "core/values/ArtboardSegPoint.h"
#include "core/values/Bezier.h"
#include "core/values/PathStyle.h"

namespace kzo::core {

class Art;

/// A *segment point* is one anchor with its control points; a *segment* is the curve between two neighbouring anchors.
/// A closed path has as many segments as points, an open one has one less. Segment i runs from point i to point i + 1;
/// the last one of a closed path runs back to point 0. Indices and counts that are out of range are clamped. When the
/// owner is no path, operations do nothing and answer false, 0, an empty list or null. Belongs to its Art.
class PathArt {
  public:
    using SegPoints = std::vector<ArtboardSegPoint>;

    explicit PathArt(const Art* owner) : owner_(owner) {}

    // Counts
    [[nodiscard]] std::int16_t segPointCount() const;
    void setSegPointCount(std::int16_t count);
    [[nodiscard]] std::int16_t segCount() const;
    void setSegCount(std::int16_t count); ///< sets the point count that goes with it
    [[nodiscard]] bool closed() const;
    void setClosed(bool closed);

    // Points; writing never changes their number
    [[nodiscard]] SegPoints segPoints(std::int16_t index, std::int16_t count) const;
    void setSegPoints(std::int16_t index, const SegPoints& points);
    /// Writes the points of neighbouring segments: one more than there are segments.
    void setSegs(std::int16_t index, const SegPoints& points);
    void reverseSegs(); ///< turns the path's direction round
    [[nodiscard]] std::int16_t
    segPointClosestToPoint(const ArtboardPoint& point) const;        ///< the lowest index wins a tie
    void endPoints(ArtboardPoint& first, ArtboardPoint& last) const; ///< leaves both alone where there are none

    // Shape and style
    [[nodiscard]] double length() const;
    [[nodiscard]] std::unique_ptr<Bezier> bezier(std::int16_t index) const;
    bool setStyle(const PathStyle& style);

  private:
    const Art* owner_;
};

} // namespace kzo::core
