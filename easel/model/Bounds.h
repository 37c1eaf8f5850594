// How much place art takes, with or without what its strokes add.
#pragma once

#include "model/Node.h"

namespace easel::model {

/// What counts beside the outlines.
struct BoundsOptions {
    bool strokes = false;   ///< as far as they reach, joins and caps included
    bool controls = false;  ///< control points
    bool hidden = true;     ///< what is hidden
    bool unselected = true; ///< what is not selected
    bool unpainted = true;  ///< paths with neither fill nor stroke
};

/// Of the node and all it holds, after a transform; empty for what takes no place, or none that is known.
[[nodiscard]] Box boundsOf(const Node& node, const BoundsOptions& options, const Affine& transform = {});

} // namespace easel::model
