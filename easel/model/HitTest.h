// The request and the result of a hit test. The search itself is Document::hitTest.
#pragma once

#include <cstdint>

#include "model/Types.h"

namespace easel::model {

class Node;

/// What to look for, a bit set.
/// Nothing in a document is a guide.
enum class HitRequest : std::uint32_t {
    Nothing = 0,
    Anchors = 1,
    InHandles = 2,
    OutHandles = 4,
    Segments = 8,
    Fills = 16,
    Guides = 65536
};

[[nodiscard]] constexpr HitRequest operator|(HitRequest a, HitRequest b) {
    return HitRequest(std::uint32_t(a) | std::uint32_t(b));
}
[[nodiscard]] constexpr bool asksFor(HitRequest request, HitRequest feature) {
    return (std::uint32_t(request) & std::uint32_t(feature)) != 0;
}

/// What a location snaps to.
enum class SnapTo : std::uint8_t {
    Anchors,
    Outlines, ///< anchors, else segments
    Bounds    ///< corners, middles of the sides, and centre of an object's bounds
};

/// What decides between several hits, first to last.
enum class HitOrder : std::uint8_t {
    Kind, ///< the kind of feature, in the order of HitKind; distance; paint order
    Paint ///< paint order; the kind of feature; distance
};

enum class HitKind : std::uint8_t { None, Anchor, InHandle, OutHandle, Segment, Fill };

/// Opaque art has no feature but its fill, which is all of its box. What lies outside of a mask is not there, and the
/// mask itself is no feature.
struct Hit {
    HitKind kind = HitKind::None;
    Node* node = nullptr;
    Point point;    ///< nearest point of the feature; for a fill, the point tested
    int index = -1; ///< of the anchor, or of the anchor that starts the segment; -1 for a fill
    double t = 0;   ///< curve parameter on a segment: the curve of the four control points at `t` is `point`
};

} // namespace easel::model
