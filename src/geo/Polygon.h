// The test whether a point lies in a polygon, for every kind of point that has `x` and `y`.
#pragma once

#include <cstddef>
#include <vector>

namespace kzo::geo {

/// Counts crossings (even-odd) with the polygon through `vertices`, closed from the last to the first. Of a polygon's
/// border, each edge belongs to one side only, so that polygons that share it never both hold the point.
template <typename P> [[nodiscard]] bool insidePolygon(const P& point, const std::vector<P>& vertices) {
    bool inside = false;
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        const P& a = vertices[i];
        const P& b = vertices[i == 0 ? vertices.size() - 1 : i - 1];
        if ((a.y > point.y) == (b.y > point.y)) continue;
        // Both polygons at an edge must round its crossing alike, whichever way round they go.
        const P& from = a.y < b.y ? a : b;
        const P& to = a.y < b.y ? b : a;
        if (point.x < (to.x - from.x) * (point.y - from.y) / (to.y - from.y) + from.x) inside = !inside;
    }
    return inside;
}

} // namespace kzo::geo
