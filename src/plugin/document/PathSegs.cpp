// Segments of a path: runs of them, their direction, and what of them is selected.
#include <algorithm>

#include "hostapi/AIPathSuite.h"
#include "plugin/document/ConvertPath.h"
#include "plugin/document/PathArt.h"
#include "plugin/document/PathRecords.h"
#include "plugin/host/HostCall.h"
#include "plugin/values/Bezier.h"

namespace kzo::plugin {

// Segments

PathArt::SegPoints PathArt::segs(std::int16_t index, std::int16_t count) const {
    const auto known = extent();
    if (!known || known->segs() == 0) return {};
    const int points = known->points;
    const int first = known->segStart(index);
    const int last = first + clamped(count, 1, known->segs() - first); // the point that ends the run
    const std::vector<AIPathSegment> records = read(0, points);
    if (records.empty()) return {};
    std::vector<AIPathSegment> run;
    for (int i = first; i <= last; ++i) run.push_back(records[static_cast<std::size_t>((i + points) % points)]);
    return host::fromHost<core::ArtboardSegPoint>(run);
}

bool PathArt::setSegs(std::int16_t index, const SegPoints& points) {
    const auto known = extent();
    if (!known || points.empty()) return known.has_value();
    const std::vector<AIPathSegment> records = host::toHost(points);
    const int written = static_cast<int>(records.size()) - 1; // segments
    const int now = known->points;
    if (!known->closed) {
        const int first = known->segStart(index);
        const int end = std::min(first + written + 1, kMostSegPoints);
        if (end > now && !setSegPointCount(asIndex(end))) return false;
        if (write(first, end - first, records.data())) return true;
        if (end > now) setSegPointCount(asIndex(now));
        return false;
    }
    if (now == 0) return true;
    const int first = (known->segStart(index) + now) % now;
    // A whole closed path has as many points as segments; the point that closes it again is not written twice.
    const int count = std::min(written + 1, now);
    if (first + count <= now) return write(first, count, records.data());
    std::vector<AIPathSegment> all = read(0, now);
    if (all.empty()) return false;
    for (int i = 0; i < count; ++i)
        all[static_cast<std::size_t>((first + i) % now)] = records[static_cast<std::size_t>(i)];
    return write(0, now, all.data());
}

bool PathArt::insertSegs(std::int16_t index, const SegPoints& points) {
    const auto known = extent();
    if (!known) return false;
    return insertSegPoints(index < 0 && known->segs() > 0 ? asIndex(known->segIndex(index)) : index, points);
}

bool PathArt::deleteSegs(std::int16_t index, std::int16_t count) {
    const auto known = extent();
    if (!known) return false;
    const int first = known->segStart(index);
    const int gone = std::min<int>(clamped(count, 0, known->segs()), known->segs() - first);
    if (gone == 0) return true;
    if (first >= 0) return deleteSegPoints(asIndex(first), asIndex(gone));
    // The closing segment goes with the last point, and those that follow it with the first ones: renumbered, they are
    // the first.
    if (!rotateSegPoints(-1)) return false;
    if (deleteSegPoints(0, asIndex(gone))) return true;
    rotateSegPoints(1);
    return false;
}

bool PathArt::reverseSegs() { return call<&AIPathSuite::ReversePathSegments>(); }

bool PathArt::phantomSeg(std::int16_t index) const {
    const auto found = bezier(index);
    return found && hasNoLength(*found);
}

std::optional<core::Bezier> PathArt::bezier(std::int16_t index) const {
    const auto known = extent();
    if (!known || known->segs() == 0) return std::nullopt;
    const int start = known->segIndex(index);
    const SegPoints a = host::fromHost<core::ArtboardSegPoint>(read(start, 1));
    const SegPoints b = host::fromHost<core::ArtboardSegPoint>(read((start + 1) % known->points, 1));
    return a.empty() || b.empty() ? std::nullopt : std::optional(core::Bezier(a[0], b[0]));
}

// Selection

core::SegPointSelectionState PathArt::segPointSelected(std::int16_t index) const {
    const int known = segPointCount();
    if (known == 0) return core::SegPointSelectionState::None;
    return get<&AIPathSuite::GetPathSegmentSelected, core::SegPointSelectionState>(clamped(index, 0, known - 1));
}

bool PathArt::setSegPointSelected(std::int16_t index, core::SegPointSelectionState state) {
    const int known = segPointCount();
    return known > 0 && call<&AIPathSuite::SetPathSegmentSelected>(clamped(index, 0, known - 1), state);
}

bool PathArt::allSegPointsSelected() const { return get<&AIPathSuite::GetPathAllSegmentsSelected>(); }

bool PathArt::segSelected(std::int16_t index) const {
    using enum core::SegPointSelectionState;
    const auto known = extent();
    if (!known || known->segs() == 0) return false;
    const int start = known->segIndex(index);
    const auto from = segPointSelected(asIndex(start));
    const auto to = segPointSelected(asIndex((start + 1) % known->points));
    return (any(from & OutControl) && any(to & InControl)) || (any(from & Anchor) && any(to & Anchor));
}

} // namespace kzo::plugin
