// Inside or outside of masks.
#include "model/Clip.h"

#include <cmath>
#include <utility>

#include "model/Bounds.h"
#include "model/Nearest.h"
#include "model/Node.h"

namespace easel::model {

namespace {

constexpr double kOnOutline = 1e-9; ///< against the size of coordinates

bool isInShape(const Mask::Shape& shape, Point point) {
    int winding = 0;
    for (const PathData& subpath : shape.subpaths) winding += windingNumber(subpath, point);
    return isInside(winding, shape.evenOdd);
}

/// A lone anchor counts as a segment.
template <class Visit> bool anySegment(const Mask::Shape& shape, Visit visit) {
    for (const PathData& subpath : shape.subpaths)
        for (std::size_t i = 0; i < subpath.points.size(); ++i)
            if (visit(subpath.segment(i))) return true;
    return false;
}

bool isOnOutline(const Mask::Shape& shape, Point point, double reach) {
    return anySegment(shape, [&](const Cubic& curve) { return nearestOn(curve, point, reach * reach).has_value(); });
}

/// Whether `accepts` returns true for the mask of the node and of each ancestor; it is given the mapping from the
/// document to the mask's units as well.
template <class Predicate> bool eachMask(const Node& node, Predicate accepts) {
    for (const Node* at = &node; at; at = at->parent()) {
        const Clip* const clip = at->clip();
        if (!clip) continue;
        const std::optional<Affine> toMask = wayToMask(*at);
        if (toMask && !accepts(*clip->mask, *toMask)) return false;
    }
    return true;
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
        if (isInShape(shapes_[i], point) || isOnOutline(shapes_[i], point, reach)) return true;
    }
    return false;
}

bool Mask::meets(const Box& box) const {
    for (std::size_t i = 0; i < shapes_.size(); ++i) {
        if (!hulls_[i].meets(box)) continue;
        if (isInShape(shapes_[i], {box.left, box.top})) return true;
        const auto isMet = [&](const Cubic& curve) { return meetsBox(curve, box); };
        if (anySegment(shapes_[i], isMet)) return true;
    }
    return false;
}

std::optional<Affine> toUnitBox(const Box& box) {
    const double width = box.right - box.left;
    const double height = box.bottom - box.top;
    if (!(width > 0 && height > 0)) return std::nullopt;
    return Affine{1 / width, 0, 0, 1 / height, -box.left / width, -box.top / height};
}

std::optional<Affine> wayToMask(const Node& node) {
    const Clip& clip = *node.clip();
    const std::array<double, 6>& m = clip.toMask;
    const Affine toUnits{m[0], m[1], m[2], m[3], m[4], m[5]};
    if (!clip.fitsBox) return inverse(node.placed()) * toUnits;
    const std::optional<Affine> fitted = toUnitBox(boundsOf(node, {}, toUnits));
    return fitted ? std::optional(toUnits * *fitted) : std::nullopt;
}

Clip clipOnPage(const Node& group, std::vector<Mask::Shape> shapes) {
    Clip clip;
    clip.mask = std::make_shared<const Mask>(std::move(shapes));
    const Affine to = group.placed();
    clip.toMask = {to.a, to.b, to.c, to.d, to.e, to.f};
    return clip;
}

std::vector<Mask::Shape> maskOnPage(const Node& node) {
    const std::optional<Affine> toMask = wayToMask(node);
    if (!toMask) return {};
    std::vector<Mask::Shape> shapes = node.clip()->mask->shapes();
    const Affine back = inverse(*toMask);
    for (Mask::Shape& shape : shapes)
        for (PathData& subpath : shape.subpaths)
            for (PathPoint& point : subpath.points)
                for (Point* const place : {&point.anchor, &point.in, &point.out}) *place = back(*place);
    return shapes;
}

bool passesClip(const Node& node, Point point) {
    return eachMask(node, [&](const Mask& mask, auto toMask) { return mask.contains(toMask(point)); });
}

bool mayPassClip(const Node& node, const Box& box) {
    return eachMask(node, [&](const Mask& mask, auto toMask) {
        Box inMask;
        for (const double x : {box.left, box.right})
            for (const double y : {box.top, box.bottom}) inMask.include(toMask({x, y}));
        return mask.meets(inMask);
    });
}

} // namespace easel::model
