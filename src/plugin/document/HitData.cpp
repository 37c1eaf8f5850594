// The hit test suite's call, and what follows from where a path was hit.
#include "plugin/document/HitData.h"

#include <cmath>

#include "hostapi/AIHitTestSuite.h"
#include "plugin/document/Convert.h"
#include "plugin/document/CurrentDocument.h"
#include "plugin/document/Layer.h"
#include "plugin/document/PathArt.h"

namespace kzo::plugin {

namespace host {

inline constexpr Pair<core::HitType> kHitTypes[] = {
    {core::HitType::Anchor, kAIAnchorHit},
    {core::HitType::InControl, kAIInHandleHit},
    {core::HitType::OutControl, kAIOutHandleHit},
    {core::HitType::Segment, kAISegmentHit},
    {core::HitType::Fill, kAIFillHit},
};
template <> struct HostForm<core::HitType> : Paired<kHitTypes, core::HitType::None> {};

} // namespace host

namespace {

// Near, but never on, the ends of a path: a split there leaves no empty piece.
constexpr double kJustAfterStart = 9.999999999999999e-05;
constexpr double kJustBeforeEnd = 0.9999;

} // namespace

HitData::HitData(ArtObject* art, const core::ArtboardPoint& point, core::HitRequest request, double tolerance,
                 bool inViewUnits, HitOrder order)
    : request_(request), point_(point) {
    const CurrentDocument document;
    if (!document.exists()) return;
    tested_ = true;
    const double inPoints = std::abs(tolerance) / (inViewUnits ? document.zoom() : 1.0);
    if (art) {
        static_cast<void>(test(art, inPoints, order));
        return;
    }
    for (AILayer* layer = document.firstLayer(); layer; layer = Layer(layer).next())
        if (test(Layer(layer).group(), inPoints, order)) return;
}

bool HitData::test(ArtObject* art, double tolerance, HitOrder order) {
    // Without its group a layer would stand for the whole document.
    if (!art) return false;
    const AIHitRecord record = order == HitOrder::Paint
                                   ? host::get<&AIHitTestSuite::HitTestTopmost>(art, point_, tolerance, request_)
                                   : host::get<&AIHitTestSuite::HitTest>(art, point_, tolerance, request_);
    type_ = host::fromHost<core::HitType>(record.type);
    if (type_ == core::HitType::None) return false;
    art_ = record.art;
    textRange_ = record.textRange;
    inGroup_ = host::fromHost<bool>(record.inGroup);
    featurePoint_ = host::fromHost<core::ArtboardPoint>(record.point);
    if (type_ == core::HitType::Fill || record.segment < 0) return true; // text has anchors, but no segments
    if (type_ == core::HitType::Segment) {
        segPointIndex_ = segIndex_ = record.segment;
        t_ = record.t;
    } else {
        noteSegPoint(record.segment);
    }
    if (segIndex_ < 0) return true;
    bezier_ = PathArt(art_).bezier(segIndex_);
    if (!bezier_) { // no path after all
        segPointIndex_ = segIndex_ = -1;
        t_ = 0;
    }
    return true;
}

void HitData::noteSegPoint(std::int16_t index) {
    const PathArt path(art_);
    segPointIndex_ = segIndex_ = index;
    if (path.closed()) return;
    const bool last = index == path.segPointCount() - 1;
    if (last) --segIndex_; // no segment starts there
    if (index == 0)
        t_ = kJustAfterStart;
    else if (last)
        t_ = kJustBeforeEnd;
}

std::optional<core::ArtboardPoint> HitData::snapped() const {
    return hit() ? std::optional(featurePoint_) : std::nullopt;
}

std::optional<core::ArtboardPoint> HitData::snappedTo(core::HitType type) const {
    return type_ == type ? snapped() : std::nullopt;
}

} // namespace kzo::plugin
