// HitData: forwards to its implementation.
#include "core/document/HitData.h"

#include "core/Forward.h"
#include "core/document/Art.h"
#include "core/values/Bezier.h"
#include "plugin/document/HitData.h"

namespace kzo::core {

namespace {

bool moveTo(const std::optional<ArtboardPoint>& place, ArtboardPoint& point) {
    if (place) point = *place;
    return place.has_value();
}

} // namespace

HitData::HitData(const Art* art, const ArtboardPoint& point, HitRequest request, double tolerance, bool inViewUnits) {
    // An empty handle is no art; it does not stand for all of it.
    if (art && art->isEmpty()) return;
    impl_ =
        std::make_shared<plugin::HitData>(art ? art->aiArtHandle() : nullptr, point, request, tolerance, inViewUnits);
}

HitData::HitData(std::unique_ptr<plugin::HitData> impl) : impl_(std::move(impl)) {}

bool HitData::isEmpty() const { return !ask(impl_, &plugin::HitData::tested); }
bool HitData::hit() const { return ask(impl_, &plugin::HitData::hit); }
HitType HitData::hitType() const { return ask(impl_, &plugin::HitData::hitType); }
HitRequest HitData::request() const { return ask(impl_, &plugin::HitData::request); }
ArtboardPoint HitData::point() const { return ask(impl_, &plugin::HitData::point); }
std::unique_ptr<Art> HitData::art() const { return newHandle<Art>(ask(impl_, &plugin::HitData::art)); }
bool HitData::inGroup() const { return ask(impl_, &plugin::HitData::inGroup); }

std::int16_t HitData::segPointIndex() const { return impl_ ? impl_->segPointIndex() : std::int16_t{-1}; }
std::int16_t HitData::segIndex() const { return impl_ ? impl_->segIndex() : std::int16_t{-1}; }
double HitData::tValue() const { return ask(impl_, &plugin::HitData::tValue); }
AITextRange* HitData::textRange() const { return ask(impl_, &plugin::HitData::textRange); }

std::unique_ptr<Bezier> HitData::bezier() const {
    const std::optional<Bezier> found = ask(impl_, &plugin::HitData::bezier);
    return found ? std::make_unique<Bezier>(*found) : nullptr;
}

bool HitData::snapForHit(ArtboardPoint& point) const { return moveTo(ask(impl_, &plugin::HitData::snapped), point); }

bool HitData::snapForHitType(HitType type, ArtboardPoint& point) const {
    return moveTo(ask(impl_, &plugin::HitData::snappedTo, type), point);
}

} // namespace kzo::core
