// How the values of the platform's services stand in the host's calls.
#pragma once

#include "geo/Point.h"
#include "hostapi/SPTypes.h"
#include "plugin/host/HostCall.h"
#include "plugin/platform/Platform.h"

namespace kzo::plugin::host {

template <> struct HostForm<geo::Point> {
    static constexpr AIRealPoint toHost(const geo::Point& point) { return {point.x, point.y}; }
    static constexpr geo::Point fromHost(const AIRealPoint& point) { return {point.h, point.v}; }
};
template <> struct HostForm<core::ModifierKeys> {
    static constexpr core::ModifierKeys fromHost(std::uint32_t keys) {
        using enum core::ModifierKeys;
        return core::ModifierKeys(keys) & (Shift | Option | Control | Command); // what is no key is dropped
    }
};
template <> struct HostForm<Alert::Kind> : SameNumbers<Alert::Kind> {};

} // namespace kzo::plugin::host
