// Where the segments of one long path lie, for searches near a place. Private to this folder.
#pragma once

#include <cstdint>
#include <vector>

#include "model/Types.h"

namespace easel::model {

/// A box along each segment's chord: upright ones would overlap where segments lie across. Takes 24 bytes a segment.
class SegmentBoxes {
  public:
    explicit SegmentBoxes(const PathData& path);

    /// The segments of which a point, or a control point, may be within `reach` of `point`, in order. Is kept until
    /// another place is asked for: kinds of features are looked for in turn.
    const std::vector<std::uint32_t>& near(Point point, double reach);

  private:
    /// In single precision, relative to the middle.
    struct Slanted {
        float alongX; ///< the chord's direction
        float alongY;
        float first; ///< the range along it
        float last;
        float low; ///< and across
        float high;
    };

    std::vector<Slanted> boxes_;
    Point middle_;
    double size_ = 0; ///< of the path, by which single precision rounds
    std::vector<std::uint32_t> near_;
    Point askedAt_{};
    double askedReach_ = -1;
};

} // namespace easel::model
