// The area that a stroke covers, as paths.
#pragma once

#include <vector>

#include "model/Types.h"

namespace easel::model {

/// Closed polygons whose fill by the nonzero rule is what a stroke of this style paints along the path, to a twentieth
/// of a point; holes run the other way round. None where nothing is painted, or where that cannot be told.
[[nodiscard]] std::vector<PathData> strokeOutline(const PathData& path, const Style& style);

} // namespace easel::model
