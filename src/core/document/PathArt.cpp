// PathArt: forwards to the path implementation of its owner.
#include "core/document/PathArt.h"

#include <optional>

#include "core/Forward.h"
#include "core/document/Art.h"
#include "core/document/HitData.h"
#include "plugin/document/Art.h"
#include "plugin/document/HitData.h"

namespace kzo::core {

namespace {

/// The implementation, when the owner is a path.
std::optional<plugin::PathArt> path(const Art* owner) { return ask(owner->impl(), &plugin::Art::path); }

} // namespace

// Counts

std::int16_t PathArt::segPointCount() const { return ask(path(owner_), &plugin::PathArt::segPointCount); }
bool PathArt::setSegPointCount(std::int16_t count) {
    return ask(path(owner_), &plugin::PathArt::setSegPointCount, count);
}
std::int16_t PathArt::segCount() const { return ask(path(owner_), &plugin::PathArt::segCount); }
bool PathArt::setSegCount(std::int16_t count) { return ask(path(owner_), &plugin::PathArt::setSegCount, count); }
bool PathArt::closed() const { return ask(path(owner_), &plugin::PathArt::closed); }
bool PathArt::setClosed(bool closed) { return ask(path(owner_), &plugin::PathArt::setClosed, closed); }

// Points

PathArt::SegPoints PathArt::segPoints(std::int16_t index, std::int16_t count) const {
    return ask(path(owner_), &plugin::PathArt::segPoints, index, count);
}
bool PathArt::setSegPoints(std::int16_t index, const SegPoints& points) {
    return ask(path(owner_), &plugin::PathArt::setSegPoints, index, points);
}
bool PathArt::insertSegPoints(std::int16_t index, const SegPoints& points) {
    return ask(path(owner_), &plugin::PathArt::insertSegPoints, index, points);
}
bool PathArt::insertSegPointAtT(std::int16_t seg, double t) {
    return ask(path(owner_), &plugin::PathArt::insertSegPointAtT, seg, t);
}
bool PathArt::deleteSegPoints(std::int16_t index, std::int16_t count) {
    return ask(path(owner_), &plugin::PathArt::deleteSegPoints, index, count);
}
bool PathArt::rotateSegPoints(std::int16_t by) { return ask(path(owner_), &plugin::PathArt::rotateSegPoints, by); }
std::int16_t PathArt::segPointClosestToPoint(const ArtboardPoint& point) const {
    return ask(path(owner_), &plugin::PathArt::segPointClosestToPoint, point);
}
void PathArt::endPoints(ArtboardPoint& first, ArtboardPoint& last) const {
    ask(path(owner_), &plugin::PathArt::endPoints, first, last);
}
std::vector<std::int16_t> PathArt::phantomSegPoints() const {
    return ask(path(owner_), &plugin::PathArt::phantomSegPoints);
}

// Segments

PathArt::SegPoints PathArt::segs(std::int16_t index, std::int16_t count) const {
    return ask(path(owner_), &plugin::PathArt::segs, index, count);
}
bool PathArt::setSegs(std::int16_t index, const SegPoints& points) {
    return ask(path(owner_), &plugin::PathArt::setSegs, index, points);
}
bool PathArt::insertSegs(std::int16_t index, const SegPoints& points) {
    return ask(path(owner_), &plugin::PathArt::insertSegs, index, points);
}
bool PathArt::deleteSegs(std::int16_t index, std::int16_t count) {
    return ask(path(owner_), &plugin::PathArt::deleteSegs, index, count);
}
bool PathArt::reverseSegs() { return ask(path(owner_), &plugin::PathArt::reverseSegs); }

std::unique_ptr<Bezier> PathArt::bezier(std::int16_t index) const {
    const std::optional<Bezier> found = ask(path(owner_), &plugin::PathArt::bezier, index);
    return found ? std::make_unique<Bezier>(*found) : nullptr;
}

bool PathArt::phantomSeg(std::int16_t index) const { return ask(path(owner_), &plugin::PathArt::phantomSeg, index); }

// Selection

SegPointSelectionState PathArt::segPointSelected(std::int16_t index) const {
    return ask(path(owner_), &plugin::PathArt::segPointSelected, index);
}
bool PathArt::setSegPointSelected(std::int16_t index, SegPointSelectionState state) {
    return ask(path(owner_), &plugin::PathArt::setSegPointSelected, index, state);
}
bool PathArt::allSegPointsSelected() const { return ask(path(owner_), &plugin::PathArt::allSegPointsSelected); }
bool PathArt::segSelected(std::int16_t index) const { return ask(path(owner_), &plugin::PathArt::segSelected, index); }

// Measures

bool PathArt::hasLength() const { return ask(path(owner_), &plugin::PathArt::hasLength); }
double PathArt::length() const { return ask(path(owner_), &plugin::PathArt::length); }
double PathArt::sublength(std::int16_t fromSeg, double fromT, std::int16_t toSeg, double toT) const {
    return ask(path(owner_), &plugin::PathArt::sublength, fromSeg, fromT, toSeg, toT);
}
double PathArt::tAtLength(std::int16_t seg, double length) const {
    return ask(path(owner_), &plugin::PathArt::tAtLength, seg, length);
}
ArtboardPoint PathArt::midPoint() const { return ask(path(owner_), &plugin::PathArt::midPoint); }
double PathArt::area() const { return ask(path(owner_), &plugin::PathArt::area); }
WindingOrderType PathArt::windingOrder() const { return ask(path(owner_), &plugin::PathArt::windingOrder); }
bool PathArt::setWindingOrder(WindingOrderType order) {
    return ask(path(owner_), &plugin::PathArt::setWindingOrder, order);
}
bool PathArt::containsPoint(const ArtboardPoint& point) const {
    return ask(path(owner_), &plugin::PathArt::containsPoint, point);
}

// Shape

bool PathArt::angle(Angle& angle) const {
    const auto found = ask(path(owner_), &plugin::PathArt::angle);
    if (found) angle = Angle(*found);
    return found.has_value();
}

bool PathArt::isStraight() const { return ask(path(owner_), &plugin::PathArt::isStraight); }
bool PathArt::hasStraightSegs() const { return ask(path(owner_), &plugin::PathArt::hasStraightSegs); }
bool PathArt::isCircular() const { return ask(path(owner_), &plugin::PathArt::isCircular); }
bool PathArt::isRectangular() const { return ask(path(owner_), &plugin::PathArt::isRectangular); }

// Meeting other paths

PathArt::Intersections PathArt::getIntersections() const {
    const auto own = path(owner_);
    return own ? own->getIntersections() : Intersections();
}

PathArt::Intersections PathArt::getIntersections(const Art& other) const {
    const auto own = path(owner_);
    const auto with = path(&other);
    return own && with ? own->getIntersections(*with) : Intersections();
}

bool PathArt::trim(const HitData& hit, TrimDirectionType directions) {
    return hit.impl() && ask(path(owner_), &plugin::PathArt::trim, *hit.impl(), directions);
}

bool PathArt::extend(const HitData& end, const HitData& target) {
    return end.impl() && target.impl() && ask(path(owner_), &plugin::PathArt::extend, *end.impl(), *target.impl());
}

// Style

bool PathArt::isGuide() const { return ask(path(owner_), &plugin::PathArt::isGuide); }
PathStyle PathArt::style() const { return ask(path(owner_), &plugin::PathArt::style); }
bool PathArt::setStyle(const PathStyle& style) { return ask(path(owner_), &plugin::PathArt::setStyle, style); }
bool PathArt::setStrokeAlignment(StrokeAlignment alignment) {
    return ask(path(owner_), &plugin::PathArt::setStrokeAlignment, alignment);
}

} // namespace kzo::core
