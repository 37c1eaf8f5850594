// The parts of a path that its selected anchors make.
#pragma once

#include <vector>

#include "model/Node.h"

namespace easel::session {

/// The runs of anchors that are selected, or else of those that are not, as open paths. A lone anchor is none.
[[nodiscard]] std::vector<model::PathData> piecesOf(const model::Node& path, bool selected);

} // namespace easel::session
