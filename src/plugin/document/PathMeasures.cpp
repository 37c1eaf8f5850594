// Lengths, areas, shape and paint of a path.
#include <cmath>

#include "geo/Vector.h"
#include "hostapi/AIPathStyleSuite.h"
#include "hostapi/AIPathSuite.h"
#include "plugin/document/ConvertStyle.h"
#include "plugin/document/PathArt.h"
#include "plugin/document/PathRecords.h"
#include "plugin/host/HostCall.h"
#include "plugin/values/ArtboardPoint.h"

namespace kzo::plugin {

namespace {

constexpr double kLengthFlatness = 0.01; // points

/// A measure out of the range of numbers is none.
double known(double value) { return std::isfinite(value) ? value : 0.0; }

} // namespace

// Measures

bool PathArt::hasLength() const {
    const geo::Path path = shape();
    for (std::size_t i = 0; i < path.segCount(); ++i) {
        if (!hasNoLength(path.seg(i))) return true;
    }
    return false;
}

double PathArt::length() const {
    double length = 0;
    return call<&AIPathSuite::GetPathLength>(&length, kLengthFlatness) ? known(length) : 0;
}

geo::Place PathArt::place(std::int16_t seg, double t, const geo::Path& path) {
    return extent(path).segIndex(seg) + (t > 0.0 ? std::min(t, 1.0) : 0.0);
}

double PathArt::sublength(std::int16_t fromSeg, double fromT, std::int16_t toSeg, double toT) const {
    const geo::Path path = shape();
    return known(path.sublength(place(fromSeg, fromT, path), place(toSeg, toT, path)));
}

double PathArt::tAtLength(std::int16_t seg, double length) const {
    const geo::Path path = shape();
    if (path.segCount() == 0) return 0.0;
    return path.seg(static_cast<std::size_t>(extent(path).segIndex(seg))).tAtLength(length);
}

core::ArtboardPoint PathArt::midPoint() const {
    const geo::Path path = shape();
    const auto middle = path.placeAtLength(0.5 * path.length());
    const geo::Point point = path.at(middle.value_or(0.0));
    return {point.x, point.y};
}

double PathArt::area() const { return std::abs(known(shape().signedArea())); }

core::WindingOrderType PathArt::windingOrder() const {
    const double area = known(shape().signedArea());
    if (area == 0.0) return core::WindingOrderType::None;
    return area > 0.0 ? core::WindingOrderType::Clockwise : core::WindingOrderType::CounterClockwise;
}

bool PathArt::setWindingOrder(core::WindingOrderType order) {
    const core::WindingOrderType now = windingOrder();
    if (order == core::WindingOrderType::None || now == core::WindingOrderType::None) return false;
    return now == order || reverseSegs();
}

bool PathArt::containsPoint(const core::ArtboardPoint& point) const { return shape().contains(point.impl().plain()); }

// Shape

std::optional<geo::Angle> PathArt::angle() const {
    const geo::Path path = shape();
    if (!path.isStraight()) return std::nullopt;
    return ArtboardPoint(path.anchors.front().p).direction(ArtboardPoint(path.anchors.back().p));
}

bool PathArt::isStraight() const { return shape().isStraight(); }
bool PathArt::hasStraightSegs() const { return shape().hasStraightSegs(); }
bool PathArt::isCircular() const { return shape().isCircular(); }
bool PathArt::isRectangular() const { return shape().isRectangular(); }

// Style

bool PathArt::isGuide() const { return get<&AIPathSuite::GetPathGuide>(); }

core::PathStyle PathArt::style() const { return get<&AIPathStyleSuite::GetPathStyle, core::PathStyle>(); }

bool PathArt::setStyle(const core::PathStyle& style) { return call<&AIPathStyleSuite::SetPathStyle>(style); }

bool PathArt::setStrokeAlignment(core::StrokeAlignment alignment) {
    return call<&AIPathStyleSuite::SetStrokeAlignment>(alignment);
}

} // namespace kzo::plugin
