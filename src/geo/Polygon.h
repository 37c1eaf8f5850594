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
        const bool spans = (a.y > point.y) != (b.y > point.y);
        if (spans && point.x < (b.x - a.x) * (point.y - a.y) / (b.y - a.y) + a.x) inside = !inside;
    }
    return inside;
}

} // namespace kzo::geo
