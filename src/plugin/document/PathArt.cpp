// The path suite's calls.
#include "plugin/document/PathArt.h"

#include <algorithm>
#include <limits>

#include "hostapi/AIPathStyleSuite.h"
#include "hostapi/AIPathSuite.h"
#include "hostapi/AIRealMathSuite.h"
#include "plugin/document/Convert.h"

namespace kzo::plugin {

namespace {

constexpr double kLengthFlatness = 0.01; // points

std::int16_t clamped(int value, int low, int high) {
    return static_cast<std::int16_t>(std::clamp(value, low, std::max(low, high)));
}

} // namespace

// Counts

std::int16_t PathArt::segPointCount() const { return get<&AIPathSuite::GetPathSegmentCount>(); }
void PathArt::setSegPointCount(std::int16_t count) { call<&AIPathSuite::SetPathSegmentCount>(count); }

std::int16_t PathArt::segCount() const {
    const std::int16_t points = segPointCount();
    return closed() ? points : clamped(points - 1, 0, points);
}

void PathArt::setSegCount(std::int16_t count) {
    setSegPointCount(static_cast<std::int16_t>(closed() ? count : count + 1));
}

bool PathArt::closed() const { return get<&AIPathSuite::GetPathClosed>(); }
void PathArt::setClosed(bool closed) { call<&AIPathSuite::SetPathClosed>(closed); }

// Points

PathArt::SegPoints PathArt::read(std::int16_t index, std::int16_t count) const {
    std::vector<AIPathSegment> records(static_cast<std::size_t>(count));
    if (records.empty() || !call<&AIPathSuite::GetPathSegments>(index, count, records.data())) return {};
    return host::fromHost<core::ArtboardSegPoint>(records);
}

void PathArt::write(std::int16_t index, std::int16_t count, const SegPoints& points) {
    const std::vector<AIPathSegment> records = host::toHost(points);
    const auto given = clamped(count, 0, static_cast<int>(records.size()));
    if (given > 0) call<&AIPathSuite::SetPathSegments>(index, given, records.data());
}

PathArt::SegPoints PathArt::segPoints(std::int16_t index, std::int16_t count) const {
    const std::int16_t known = segPointCount();
    const std::int16_t first = clamped(index, 0, known - 1);
    // The count is held to the path's, and then to what follows `index`, since a run beyond the end is refused whole.
    return read(first, clamped(std::min<int>(clamped(count, 0, known), known - first), 0, known));
}

void PathArt::setSegPoints(std::int16_t index, const SegPoints& points) {
    write(index, static_cast<std::int16_t>(points.size()), points);
}

void PathArt::setSegs(std::int16_t index, const SegPoints& points) {
    const auto count = static_cast<std::int16_t>(points.size());
    // A whole closed path has as many points as segments; the point that closes it again is not written twice.
    const bool wholeClosedPath = closed() && segCount() == count - 1;
    write(index, wholeClosedPath ? segCount() : count, points);
}

void PathArt::reverseSegs() { call<&AIPathSuite::ReversePathSegments>(); }

std::int16_t PathArt::segPointClosestToPoint(const core::ArtboardPoint& point) const {
    const SegPoints points = segPoints(0, segPointCount());
    double nearest = std::numeric_limits<float>::max(); // what is further is as far as anything
    std::int16_t best = 0;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const double distance = host::getOr<&AIRealMathSuite::RealPointLength>(nearest, points[i].p, point);
        if (distance >= nearest) continue;
        nearest = distance;
        best = static_cast<std::int16_t>(i);
    }
    return best;
}

void PathArt::endPoints(core::ArtboardPoint& first, core::ArtboardPoint& last) const {
    const SegPoints points = segPoints(0, segPointCount());
    if (points.empty()) return;
    first = points.front().p;
    last = points.back().p;
}

// Shape and style

double PathArt::length() const {
    double length = 0;
    return call<&AIPathSuite::GetPathLength>(&length, kLengthFlatness) ? length : 0;
}

std::optional<core::Bezier> PathArt::bezier(std::int16_t index) const {
    const std::int16_t points = segPointCount();
    const std::int16_t segments = closed() ? points : clamped(points - 1, 0, points);
    if (segments == 0) return std::nullopt;
    const std::int16_t start = clamped(index, 0, segments - 1);
    const std::int16_t end = static_cast<std::int16_t>((start + 1) % points);
    const SegPoints a = read(start, 1);
    const SegPoints b = read(end, 1);
    return a.empty() || b.empty() ? std::nullopt : std::optional(core::Bezier(a[0], b[0]));
}

bool PathArt::setStyle(const core::PathStyle& style) { return call<&AIPathStyleSuite::SetPathStyle>(style); }

} // namespace kzo::plugin
