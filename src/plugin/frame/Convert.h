// How the options of tools and plug-ins stand in the host's calls. What one source alone passes stands in that source.
#pragma once

#include <cstdint>

#include "core/values/FrameEnumerations.h"
#include "plugin/host/HostCall.h"

namespace kzo::plugin::host {

/// Bits of ours that the host does not know are dropped on the way, and the host's that we do not know.
template <class Ours, std::int32_t kKnown, int kShift = 0> struct KnownBits {
    static constexpr std::int32_t toHost(Ours options) {
        return static_cast<std::int32_t>((utils::bits(options) & kKnown) << kShift);
    }
    static constexpr Ours fromHost(std::int32_t options) { return Ours((options >> kShift) & kKnown); }
};
template <> struct HostForm<core::ToolOptions> : KnownBits<core::ToolOptions, 0xFF> {};
template <> struct HostForm<core::PluginOptions> : KnownBits<core::PluginOptions, 3, 1> {}; // the host's lie one higher

} // namespace kzo::plugin::host
