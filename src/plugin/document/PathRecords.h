// Numbers of a path as the host's 16-bit ones. For the sources of PathArt.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

namespace kzo::plugin {

inline constexpr int kMostSegPoints = std::numeric_limits<std::int16_t>::max();

/// The nearest of `low` to `high`; `low` when there is none between.
[[nodiscard]] inline std::int16_t clamped(int value, int low, int high) {
    return static_cast<std::int16_t>(std::clamp(value, low, std::max(low, high)));
}

/// Sums of 16-bit numbers are computed in `int`, and held to what the host can be told.
[[nodiscard]] inline std::int16_t asIndex(int value) {
    return clamped(value, std::numeric_limits<std::int16_t>::min(), kMostSegPoints);
}

/// Nothing shows of such a segment: its ends and handles are in one place.
template <class Bezier> [[nodiscard]] bool hasNoLength(const Bezier& b) {
    return b.p0 == b.p1 && b.p0 == b.p2 && b.p0 == b.p3;
}

} // namespace kzo::plugin
