// Marks drawn over a picture.
#pragma once

#include <vector>

#include "model/Mark.h"

struct _cairo_surface;

namespace easel::render {

/// Draws on what is there. `scale` is pixels a point of the document; a screen unit is a pixel.
void drawMarks(_cairo_surface* surface, const std::vector<model::Mark>& marks, double scale);

} // namespace easel::render
