// Meetings of curves whose points all lie on lines: exact where handles are retracted, and by stretches where both lie
// on the same line.
#pragma once

#include <optional>
#include <vector>

#include "geo/Crossings.h"

namespace kzo::geo {

/// None unless each of the curves lies on a line, to 1e-12 of their extent.
[[nodiscard]] std::optional<std::vector<Crossing>> flatCrossings(const Bezier& a, const Bezier& b);

} // namespace kzo::geo
