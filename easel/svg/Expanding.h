// Takes art apart. What comes of it looks as before, and takes the place of the art: strokes become filled paths,
// gradients bands of one colour, patterns copies of their tile, texts the outlines of their letters.
#pragma once

#include <vector>

#include "model/Document.h"
#include "model/PaintExpansion.h"

namespace easel::svg {

/// Of a path or compound path. Returns false, and changes nothing, where it has nothing of that, and where that cannot
/// be told: under markers, of patterns with something in them of which no copy can be made, of too many tiles or bands.
bool expandPaint(model::Document& document, model::Node& path, const model::PaintExpansion& what);

/// Asks the renderer's process for all of them together. Returns whether any has been taken apart; not one that the
/// renderer does not draw with plain colours alone.
bool expandTexts(model::Document& document, const std::vector<model::Node*>& texts);

} // namespace easel::svg
