// Paths painted with cairo the way the renderer of whole drawings does it, which gives the same pixels.
#pragma once

#include <cairo.h>

#include "model/Node.h"

namespace easel::app {

/// Paints a path or a compound path, or the outline of a box where art lies that only the renderer can draw. The units
/// of `cairo` are the document's points; `pixel` is the size of a pixel in them.
void paint(cairo_t* cairo, const model::Node& node, double pixel);

/// Whether a mask lies on it, or on what it stands in.
[[nodiscard]] bool isClipped(const model::Node& node);

/// Adds the path's outline.
void addOutline(cairo_t* cairo, const model::PathData& path);

} // namespace easel::app
