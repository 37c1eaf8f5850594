// The hit test suite's call, and what follows from where a path was hit.
#include "plugin/HitData.h"

#include <cmath>

#include "plugin/Convert.h"
#include "plugin/CurrentDocument.h"
#include "plugin/HostCall.h"
#include "plugin/Layer.h"
#include "plugin/PathArt.h"

namespace kzo::plugin {

namespace {

// Near, but never on, the ends of a path: a split there leaves no empty piece.
constexpr double justAfterStart = 9.999999999999999e-05;
constexpr double justBeforeEnd = 0.9999;

} // namespace

HitData::HitData(ArtObject* art, const ArtboardPoint& point, core::HitRequest request, double tolerance,
                 bool inViewUnits)
    : request_(request), point_(point) {
    const CurrentDocument document;
    if (!document.exists()) return;
    tested_ = true;
    const double inPoints = std::abs(tolerance) / (inViewUnits ? document.zoom() : 1.0);
    if (art) {
        static_cast<void>(test(art, inPoints));
        return;
    }
    const int layers = document.layerCount();
    for (int i = 0; i < layers; ++i)
        if (test(Layer(document.layerAtIndex(i)).group(), inPoints)) return;
}

bool HitData::test(ArtObject* art, double tolerance) {
    const AIRealPoint point = point_.toAIRealPoint();
    AIHitRecord record{};
    // Without its group a layer would stand for the whole document.
    if (!art || !host::call<&AIHitTestSuite::HitTest>(art, &point, tolerance, bits(request_), &record)) return false;
    type_ = fromHost(hitTypes, record.type, core::HitType::None);
    if (type_ == core::HitType::None) return false;
    art_ = record.art;
    featurePoint_ = record.point;
    index_ = record.segment;
    t_ = record.t;
    inGroup_ = record.inGroup != 0;
    return true;
}

bool HitData::onSegPoint() const {
    return type_ == core::HitType::Anchor || type_ == core::HitType::InControl || type_ == core::HitType::OutControl;
}

bool HitData::atLastOfOpenPath() const {
    const PathArt path(art_);
    return !path.closed() && index_ == path.segPointCount() - 1;
}

std::int16_t HitData::segPointIndex() const {
    return onSegPoint() || type_ == core::HitType::Segment ? index_ : std::int16_t{-1};
}

std::int16_t HitData::segIndex() const {
    if (type_ == core::HitType::Segment) return index_;
    if (!onSegPoint()) return -1;
    return atLastOfOpenPath() ? static_cast<std::int16_t>(index_ - 1) : index_;
}

double HitData::tValue() const {
    if (type_ == core::HitType::Segment) return t_;
    if (!onSegPoint() || PathArt(art_).closed()) return 0;
    if (index_ == 0) return justAfterStart;
    return atLastOfOpenPath() ? justBeforeEnd : 0;
}

std::optional<core::Bezier> HitData::bezier() const {
    return segIndex() < 0 ? std::nullopt : PathArt(art_).bezier(segIndex());
}

std::optional<ArtboardPoint> HitData::snapped() const { return hit() ? std::optional(featurePoint_) : std::nullopt; }

std::optional<ArtboardPoint> HitData::snappedTo(core::HitType type) const {
    return type_ == type ? snapped() : std::nullopt;
}

} // namespace kzo::plugin
