// Outlines of elements: path data and the basic shapes, as anchors and handles in the element's own units.
#pragma once

#include <2geom/affine.h>

#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "model/Types.h"

namespace easel::svg {

struct Outline {
    std::vector<model::PathData> subpaths;
    bool damaged = false; ///< the data goes wrong, and only the segments before that are here
};

[[nodiscard]] Outline pathOutline(std::string_view data);

/// Answers the value of an attribute, or none.
using AttributeOf = std::function<std::optional<std::string_view>(std::string_view name)>;

[[nodiscard]] bool isShape(std::string_view element); ///< a path among them
/// Empty when the shape has no extent or lacks what it needs.
[[nodiscard]] Outline shapeOutline(std::string_view element, const AttributeOf& attribute);

void transformBy(model::PathData& path, const Geom::Affine& transform);

/// Marks a point as smooth when both its handles are drawn out, in opposite directions.
[[nodiscard]] bool looksSmooth(const model::PathPoint& point);

} // namespace easel::svg
