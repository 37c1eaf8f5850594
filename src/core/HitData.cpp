// HitData: forwards to its implementation.
#include "core/HitData.h"

#include "core/Art.h"
#include "core/Forward.h"
#include "plugin/HitData.h"

namespace kzo::core {

HitData::HitData(const Art* art, const ArtboardPoint& point, HitRequest request, double tolerance, bool inViewUnits)
    : impl_(std::make_shared<plugin::HitData>(art ? art->aiArtHandle() : nullptr, point.impl(), request, tolerance,
                                              inViewUnits)) {}

HitData::HitData(std::unique_ptr<plugin::HitData> impl) : impl_(std::move(impl)) {}

bool HitData::hit() const { return ask(impl_, &plugin::HitData::hit); }
HitType HitData::hitType() const { return ask(impl_, &plugin::HitData::hitType); }
HitRequest HitData::request() const { return ask(impl_, &plugin::HitData::request); }
ArtboardPoint HitData::point() const { return ArtboardPoint(ask(impl_, &plugin::HitData::point)); }
std::unique_ptr<Art> HitData::art() const { return newHandle<Art>(ask(impl_, &plugin::HitData::art)); }
bool HitData::inGroup() const { return ask(impl_, &plugin::HitData::inGroup); }

std::int16_t HitData::segPointIndex() const { return impl_ ? impl_->segPointIndex() : std::int16_t{-1}; }
std::int16_t HitData::segIndex() const { return impl_ ? impl_->segIndex() : std::int16_t{-1}; }
double HitData::tValue() const { return ask(impl_, &plugin::HitData::tValue); }

} // namespace kzo::core
