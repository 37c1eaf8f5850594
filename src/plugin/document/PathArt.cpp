// Points of a path and their number, through the path suite.
#include "plugin/document/PathArt.h"

#include <algorithm>
#include <limits>

#include "hostapi/AIArtSuite.h"
#include "hostapi/AIPathSuite.h"
#include "hostapi/AIRealMathSuite.h"
#include "plugin/document/Convert.h"
#include "plugin/document/ConvertPath.h"
#include "plugin/document/PathRecords.h"
#include "plugin/host/HostCall.h"

namespace kzo::plugin {

// The host's records

std::vector<AIPathSegment> PathArt::read(int index, int count) const {
    std::vector<AIPathSegment> records(static_cast<std::size_t>(std::max(count, 0)));
    const bool done =
        !records.empty() && call<&AIPathSuite::GetPathSegments>(asIndex(index), asIndex(count), records.data());
    return done ? records : std::vector<AIPathSegment>();
}

bool PathArt::write(int index, int count, const AIPathSegment* records) {
    return count <= 0 || call<&AIPathSuite::SetPathSegments>(asIndex(index), asIndex(count), records);
}

std::optional<PathArt::Extent> PathArt::extent() const {
    const auto points = find<&AIPathSuite::GetPathSegmentCount>();
    const auto isClosed = points ? find<&AIPathSuite::GetPathClosed>() : std::nullopt;
    return isClosed ? std::optional(Extent{*points, *isClosed}) : std::nullopt;
}

int PathArt::Extent::segStart(int index) const { return clamped(index, closed ? -1 : 0, segs() - 1); }

int PathArt::Extent::segIndex(int index) const {
    const int start = segStart(index);
    return start < 0 ? std::max(segs() - 1, 0) : start;
}

geo::Path PathArt::shape() const {
    geo::Path path;
    const auto known = extent();
    if (!known) return path;
    path.closed = known->closed;
    path.anchors = host::fromHost<geo::Anchor>(read(0, known->points));
    return path;
}

bool PathArt::reshape(const geo::Path& from, const geo::Path& to, const Origins& origins) {
    const auto parts = selectedParts(static_cast<int>(from.anchors.size()));
    if (!parts) return false;
    const auto give = [&](const geo::Path& path, const Parts& selected) {
        const std::vector<AIPathSegment> records = host::toHost(path.anchors);
        const int count = static_cast<int>(records.size());
        return count <= kMostSegPoints && setSegPointCount(asIndex(count)) && write(0, count, records.data()) &&
               setClosed(path.closed) && select(selected);
    };
    if (give(to, partsOf(origins, *parts))) return true;
    give(from, *parts);
    return false;
}

std::optional<PathArt::Parts> PathArt::selectedParts(int count) const {
    std::int32_t selected = 0;
    AIBoolean all = 0;
    const bool known = call<&AIArtSuite::GetArtUserAttr>(std::int32_t{kArtSelected}, &selected) &&
                       call<&AIPathSuite::GetPathAllSegmentsSelected>(&all);
    if (!known) return std::nullopt;
    Parts parts;
    if (selected == 0 || all != 0) return parts;
    for (int i = 0; i < count; ++i)
        if (!call<&AIPathSuite::GetPathSegmentSelected>(asIndex(i), &parts.emplace_back())) return std::nullopt;
    return parts;
}

PathArt::Parts PathArt::partsOf(const Origins& origins, const Parts& parts) {
    Parts result;
    if (parts.empty()) return result;
    for (const int origin : origins)
        result.push_back(origin < 0 ? std::int16_t{0} : parts[static_cast<std::size_t>(origin)]);
    return result;
}

/// What is to be selected comes first: a path with nothing selected for a moment might lose more.
bool PathArt::select(const Parts& parts) {
    for (const bool on : {true, false}) {
        for (std::size_t i = 0; i < parts.size(); ++i) {
            if ((parts[i] != 0) != on) continue;
            const std::int16_t index = asIndex(static_cast<int>(i));
            std::int16_t now = 0;
            if (!call<&AIPathSuite::GetPathSegmentSelected>(index, &now)) return false;
            if (now != parts[i] && !call<&AIPathSuite::SetPathSegmentSelected>(index, parts[i])) return false;
        }
    }
    return true;
}

// Counts

std::int16_t PathArt::segPointCount() const { return get<&AIPathSuite::GetPathSegmentCount>(); }

bool PathArt::setSegPointCount(std::int16_t count) {
    return call<&AIPathSuite::SetPathSegmentCount>(asIndex(std::max<int>(count, 0)));
}

std::int16_t PathArt::segCount() const { return asIndex(extent().value_or(Extent()).segs()); }

bool PathArt::setSegCount(std::int16_t count) {
    const auto isClosed = find<&AIPathSuite::GetPathClosed>();
    return isClosed && setSegPointCount(asIndex(std::max<int>(count, 0) + (*isClosed ? 0 : 1)));
}

bool PathArt::closed() const { return get<&AIPathSuite::GetPathClosed>(); }
bool PathArt::setClosed(bool closed) { return call<&AIPathSuite::SetPathClosed>(closed); }

// Points

PathArt::SegPoints PathArt::segPoints(std::int16_t index, std::int16_t count) const {
    const int known = segPointCount();
    const int first = clamped(index, 0, known - 1);
    return host::fromHost<core::ArtboardSegPoint>(read(first, clamped(count, 0, known - first)));
}

bool PathArt::setSegPoints(std::int16_t index, const SegPoints& points) {
    const auto known = extent();
    if (!known) return false;
    const int first = clamped(index, 0, known->points - 1);
    const std::vector<AIPathSegment> records = host::toHost(points);
    return write(first, std::min(static_cast<int>(records.size()), known->points - first), records.data());
}

bool PathArt::insertSegPoints(std::int16_t index, const SegPoints& points) {
    const auto known = extent();
    if (!known) return false;
    const std::vector<AIPathSegment> records = host::toHost(points);
    const std::int16_t count = clamped(static_cast<int>(records.size()), 0, kMostSegPoints - known->points);
    const std::int16_t first = clamped(index, 0, known->points);
    return count == 0 || call<&AIPathSuite::InsertPathSegments>(first, count, records.data());
}

bool PathArt::insertSegPointAtT(std::int16_t seg, double t) {
    geo::Path path = shape();
    if (path.segCount() == 0 || path.anchors.size() >= kMostSegPoints || !(t > 0.0 && t < 1.0)) return false;
    const auto at = static_cast<std::size_t>(extent(path).segIndex(seg));
    path.insertAt(at, t);
    // Inserted for itself, so that what is selected stays with its anchor; then the neighbours' handles are shortened.
    const std::size_t after = (at + 2) % path.anchors.size();
    const AIPathSegment made = host::toHost(path.anchors[at + 1]);
    const AIPathSegment before = host::toHost(path.anchors[at]);
    const AIPathSegment behind = host::toHost(path.anchors[after]);
    const std::vector<AIPathSegment> old = read(static_cast<int>(at), 1);
    const int place = static_cast<int>(at) + 1;
    if (old.empty() || !call<&AIPathSuite::InsertPathSegments>(asIndex(place), std::int16_t{1}, &made)) return false;
    if (write(static_cast<int>(at), 1, &before) && write(static_cast<int>(after), 1, &behind)) return true;
    write(static_cast<int>(at), 1, old.data());
    call<&AIPathSuite::DeletePathSegments>(asIndex(place), std::int16_t{1});
    return false;
}

bool PathArt::deleteSegPoints(std::int16_t index, std::int16_t count) {
    const auto known = extent();
    if (!known) return false;
    const int first = clamped(index, 0, known->points - 1);
    const std::int16_t gone = clamped(count, 0, known->points - first);
    return gone == 0 || call<&AIPathSuite::DeletePathSegments>(asIndex(first), gone);
}

bool PathArt::rotateSegPoints(std::int16_t by) {
    const auto known = extent();
    if (!known || by == 0 || known->points == 0) return known.has_value();
    const int count = known->points;
    const std::vector<AIPathSegment> old = read(0, count);
    const auto parts = selectedParts(count);
    if (old.empty() || !parts) return false;
    std::vector<AIPathSegment> records = old;
    Parts selected = *parts;
    const int first = (by % count + count) % count;
    std::rotate(records.begin(), records.begin() + first, records.end());
    if (!selected.empty()) std::rotate(selected.begin(), selected.begin() + first, selected.end());
    if (write(0, count, records.data()) && select(selected)) return true;
    write(0, count, old.data());
    select(*parts);
    return false;
}

std::int16_t PathArt::segPointClosestToPoint(const core::ArtboardPoint& point) const {
    const std::vector<AIPathSegment> records = read(0, segPointCount());
    double nearest = std::numeric_limits<float>::max(); // what is farther is as far as anything
    std::size_t best = 0;
    for (std::size_t i = 0; i < records.size(); ++i) {
        const double distance = host::getOr<&AIRealMathSuite::RealPointLength>(nearest, &records[i].p, point);
        if (!(distance < nearest)) continue;
        nearest = distance;
        best = i;
    }
    return static_cast<std::int16_t>(best);
}

void PathArt::endPoints(core::ArtboardPoint& first, core::ArtboardPoint& last) const {
    const int known = segPointCount();
    const SegPoints start = host::fromHost<core::ArtboardSegPoint>(read(0, std::min(known, 1)));
    const SegPoints end = host::fromHost<core::ArtboardSegPoint>(read(known - 1, std::min(known, 1)));
    if (start.empty() || end.empty()) return;
    first = start.front().p;
    last = end.front().p;
}

std::vector<std::int16_t> PathArt::phantomSegPoints() const {
    const geo::Path path = shape();
    std::vector<std::int16_t> found;
    for (std::size_t i = 0; i < path.segCount(); ++i) {
        if (hasNoLength(path.seg(i))) found.push_back(asIndex(static_cast<int>((i + 1) % path.anchors.size())));
    }
    return found;
}

} // namespace kzo::plugin
