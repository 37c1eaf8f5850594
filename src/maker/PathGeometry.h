// Directions at the ends of paths.
#pragma once

#include "core/document/PathArt.h"
#include "core/values/Angle.h"

namespace vl::geo {

/// The direction in which the path leaves its last anchor; 0 for a path without segments.
[[nodiscard]] kzo::core::Angle getExitAngle(const kzo::core::PathArt* path);

} // namespace vl::geo
