// What of the paint of paths is taken apart (see svg/Expanding.h).
#pragma once

namespace easel::model {

/// A stroke that a gradient or pattern paints is taken apart only together with the stroke itself.
struct PaintExpansion {
    bool strokes = false; ///< into what they cover
    bool gradients = false;
    bool toMeshes = false; ///< the bands of gradients are patches of meshes
    bool patterns = false;
    int steps = 1; ///< of gradients
};

} // namespace easel::model
