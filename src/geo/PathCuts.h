// Paths cut at places, and grown until they meet others.
#pragma once

#include <optional>
#include <vector>

#include "geo/Path.h"

namespace kzo::geo {

/// What is left of a path when the stretch around `at` is cut out, up to the nearest of `edges` on each side, or to the
/// path's end where there is none. A side that is not asked for is cut at `at` itself. One path, or two when a gap
/// opens within an open path; none when nothing would be cut off or nothing left.
[[nodiscard]] std::vector<Path> trimmed(const Path& path, Place at, std::vector<Place> edges, bool towardsStart,
                                        bool towardsEnd);

/// The open path, grown straight on at one end until it meets `target`; of several meetings the one nearest to `near`.
/// None for a closed path, one without a direction at that end, and where there is no such meeting.
[[nodiscard]] std::optional<Path> extended(const Path& path, bool atStart, const Path& target, Point near);

} // namespace kzo::geo
