// How the options, enumerations and times of tools, plug-ins, timers and undo stand in the host's calls. Modifier keys
// have the host's bits.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "core/values/FrameEnumerations.h"
#include "hostapi/AIMenuSuite.h"
#include "hostapi/AITimerSuite.h"
#include "hostapi/AIUndoSuite.h"
#include "plugin/frame/MenuGroup.h"
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

template <> struct HostForm<MenuGroupPlace> {
    static constexpr std::int32_t toHost(const MenuGroupPlace& place) {
        std::int32_t options = place.sorted ? kMenuGroupSortedOption : 0;
        if (!place.merged) return options;
        options |= kMenuGroupPartialOption;
        if (place.subMenu) options |= kMenuGroupSubMenuOption;
        if (place.onTop) options |= kMenuGroupOnTopOption;
        return options;
    }
};

/// A time, which the host counts in ticks.
struct Seconds {
    double value = 0;
};
inline constexpr double kTicks = kTicksPerSecond;
template <> struct HostForm<Seconds> {
    /// The nearest tick; what is beyond the host's range is as far as that goes, and what is no number is 0.
    static std::int32_t toHost(Seconds time) {
        constexpr double kLeast = std::numeric_limits<std::int32_t>::min();
        constexpr double kMost = std::numeric_limits<std::int32_t>::max();
        if (std::isnan(time.value)) return 0;
        return static_cast<std::int32_t>(std::clamp(std::round(time.value * kTicks), kLeast, kMost));
    }
    static Seconds fromHost(std::int32_t ticks) { return {ticks / kTicks}; }
};

inline constexpr std::int16_t kNoUndoContext = -1;
inline constexpr Pair<core::UndoContext> kUndoContexts[] = {
    {core::UndoContext::Standard, kAIStandardUndoContext},
    {core::UndoContext::Silent, kAISilentUndoContext},
    {core::UndoContext::Append, kAIAppendUndoContext},
};
template <> struct HostForm<core::UndoContext> : Paired<kUndoContexts, core::UndoContext::Standard, kNoUndoContext> {};

} // namespace kzo::plugin::host
