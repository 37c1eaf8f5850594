// Inside or outside of masks.
#include "model/Clip.h"

#include <cmath>
#include <utility>

#include "model/Nearest.h"
#include "model/Node.h"

namespace easel::model {

namespace {

constexpr double kOnOutline = 1e-9; ///< against the size of coordinates

bool isInside(const Mask::Shape& shape, Point point) {
    int winding = 0;
    for (const PathData& subpath : shape.subpaths) winding += windingNumber(subpath, point);
    return shape.evenOdd ? winding % 2 != 0 : winding != 0;
}

bool isOnOutline(const Mask::Shape& shape, Point point, const Box& around, double reach) {
    for (const PathData& subpath : shape.subpaths) {
        const std::vector<PathPoint>& points = subpath.points;
        for (std::size_t i = 0; i < points.size(); ++i) {
            const PathPoint& end = points[i + 1 == points.size() ? 0 : i + 1];
            Box hull;
            for (const Point at : {points[i].anchor, points[i].out, end.in, end.anchor}) hull.include(at);
            if (!hull.meets(around)) continue;
            if (nearestOnSegment(points[i], end, point).distanceSquared <= reach * reach) return true;
        }
    }
    return false;
}

/// How far the art has been moved since it got its mask, as far as the mask goes along.
Point movedWithMask(const Node& node, const Clip& clip) {
    if (node.type() == NodeType::Opaque) return node.opaque().moved;
    return clip.outline ? commonMove(*clip.outline, node.path()).value_or(Point{}) : Point{};
}

} // namespace

Mask::Mask(std::vector<Shape> shapes) : shapes_(std::move(shapes)) {
    for (const Shape& shape : shapes_) {
        Box hull;
        for (const PathData& subpath : shape.subpaths) hull.include(subpath.hull());
        hulls_.push_back(hull);
    }
}

bool Mask::contains(Point point) const {
    const double reach = kOnOutline * (1 + std::fabs(point.x) + std::fabs(point.y));
    const Box around{point.x - reach, point.y - reach, point.x + reach, point.y + reach};
    for (std::size_t i = 0; i < shapes_.size(); ++i) {
        if (!hulls_[i].meets(around)) continue;
        if (isInside(shapes_[i], point) || isOnOutline(shapes_[i], point, around, reach)) return true;
    }
    return false;
}

bool isShown(const Node& node, Point point) {
    for (const Node* at = &node; at; at = at->parent()) {
        const Clip* const clip = at->clip();
        if (!clip) continue;
        const Point moved = movedWithMask(*at, *clip);
        const double x = point.x - moved.x;
        const double y = point.y - moved.y;
        const auto& [a, b, c, d, e, f] = clip->toMask;
        if (!clip->mask->contains({a * x + c * y + e, b * x + d * y + f})) return false;
    }
    return true;
}

} // namespace easel::model
