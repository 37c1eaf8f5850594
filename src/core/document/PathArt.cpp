// PathArt: forwards to the path implementation of its owner.
#include "core/document/PathArt.h"

#include <optional>

#include "core/Forward.h"
#include "core/document/Art.h"
#include "plugin/document/Art.h"

namespace kzo::core {

namespace {

/// The implementation, when the owner is a path.
std::optional<plugin::PathArt> path(const Art* owner) { return ask(owner->impl(), &plugin::Art::path); }

} // namespace

// Counts

std::int16_t PathArt::segPointCount() const { return ask(path(owner_), &plugin::PathArt::segPointCount); }
void PathArt::setSegPointCount(std::int16_t count) { ask(path(owner_), &plugin::PathArt::setSegPointCount, count); }
std::int16_t PathArt::segCount() const { return ask(path(owner_), &plugin::PathArt::segCount); }
void PathArt::setSegCount(std::int16_t count) { ask(path(owner_), &plugin::PathArt::setSegCount, count); }
bool PathArt::closed() const { return ask(path(owner_), &plugin::PathArt::closed); }
void PathArt::setClosed(bool closed) { ask(path(owner_), &plugin::PathArt::setClosed, closed); }

// Points

PathArt::SegPoints PathArt::segPoints(std::int16_t index, std::int16_t count) const {
    return ask(path(owner_), &plugin::PathArt::segPoints, index, count);
}

void PathArt::setSegPoints(std::int16_t index, const SegPoints& points) {
    ask(path(owner_), &plugin::PathArt::setSegPoints, index, points);
}

void PathArt::setSegs(std::int16_t index, const SegPoints& points) {
    ask(path(owner_), &plugin::PathArt::setSegs, index, points);
}

void PathArt::reverseSegs() { ask(path(owner_), &plugin::PathArt::reverseSegs); }

std::int16_t PathArt::segPointClosestToPoint(const ArtboardPoint& point) const {
    return ask(path(owner_), &plugin::PathArt::segPointClosestToPoint, point);
}

void PathArt::endPoints(ArtboardPoint& first, ArtboardPoint& last) const {
    ask(path(owner_), &plugin::PathArt::endPoints, first, last);
}

// Shape and style

double PathArt::length() const { return ask(path(owner_), &plugin::PathArt::length); }

std::unique_ptr<Bezier> PathArt::bezier(std::int16_t index) const {
    const std::optional<Bezier> found = ask(path(owner_), &plugin::PathArt::bezier, index);
    return found ? std::make_unique<Bezier>(*found) : nullptr;
}

bool PathArt::setStyle(const PathStyle& style) { return ask(path(owner_), &plugin::PathArt::setStyle, style); }

} // namespace kzo::core
