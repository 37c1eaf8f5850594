// The path suite's calls.
#include "plugin/document/PathArt.h"

#include <algorithm>

#include "hostapi/AIPathStyleSuite.h"
#include "hostapi/AIPathSuite.h"
#include "hostapi/AIRealMathSuite.h"
#include "plugin/document/Convert.h"
#include "plugin/host/HostCall.h"
#include "plugin/values/PathSegPoint.h"

namespace kzo::plugin {

namespace {

constexpr double lengthFlatness = 0.01; // points

std::int16_t clamped(int value, int low, int high) {
    return static_cast<std::int16_t>(std::clamp(value, low, std::max(low, high)));
}

} // namespace

// Counts

std::int16_t PathArt::segPointCount() const {
    return host::ask<&AIPathSuite::GetPathSegmentCount>(std::int16_t{0}, handle_);
}

void PathArt::setSegPointCount(std::int16_t count) { host::call<&AIPathSuite::SetPathSegmentCount>(handle_, count); }

std::int16_t PathArt::segCount() const {
    const std::int16_t points = segPointCount();
    return closed() ? points : clamped(points - 1, 0, points);
}

void PathArt::setSegCount(std::int16_t count) {
    setSegPointCount(static_cast<std::int16_t>(closed() ? count : count + 1));
}

bool PathArt::closed() const { return host::ask<&AIPathSuite::GetPathClosed>(AIBoolean{0}, handle_) != 0; }
void PathArt::setClosed(bool closed) { host::call<&AIPathSuite::SetPathClosed>(handle_, AIBoolean{closed}); }

// Points

PathArt::SegPoints PathArt::read(std::int16_t index, std::int16_t count) const {
    std::vector<AIPathSegment> records(static_cast<std::size_t>(count));
    if (records.empty() || !host::call<&AIPathSuite::GetPathSegments>(handle_, index, count, records.data())) return {};
    SegPoints points;
    points.reserve(records.size());
    for (const AIPathSegment& record : records) points.emplace_back(PathSegPoint(record));
    return points;
}

void PathArt::write(std::int16_t index, std::int16_t count, const SegPoints& points) {
    std::vector<AIPathSegment> records;
    records.reserve(points.size());
    for (const core::ArtboardSegPoint& point : points) records.push_back(point.impl().toAIPathSegment());
    const auto given = clamped(count, 0, static_cast<int>(records.size()));
    if (given > 0) host::call<&AIPathSuite::SetPathSegments>(handle_, index, given, records.data());
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

void PathArt::reverseSegs() { host::call<&AIPathSuite::ReversePathSegments>(handle_); }

std::int16_t PathArt::segPointClosestToPoint(const core::ArtboardPoint& point) const {
    const AIRealPoint to = point.impl().toAIRealPoint();
    const SegPoints points = segPoints(0, segPointCount());
    double nearest = 3.4028234663852886e38;
    std::int16_t best = 0;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const AIRealPoint from = points[i].p.impl().toAIRealPoint();
        const double distance = host::ask<&AIRealMathSuite::RealPointLength>(nearest, &from, &to);
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
    return host::call<&AIPathSuite::GetPathLength>(handle_, &length, lengthFlatness) ? length : 0;
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

bool PathArt::setStyle(const core::PathStyle& style) {
    const AIPathStyle record = toHost(style);
    return host::call<&AIPathStyleSuite::SetPathStyle>(handle_, &record);
}

} // namespace kzo::plugin
