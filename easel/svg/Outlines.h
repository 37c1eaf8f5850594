// Outlines of elements: path data and the basic shapes, as anchors and handles in the element's own units.
#pragma once

#include <string_view>
#include <vector>

#include "model/Types.h"
#include "svg/Attributes.h"

namespace easel::svg {

struct Outline {
    std::vector<model::PathData> subpaths;
    bool damaged = false; ///< the data goes wrong, and only the segments before that are here
};

[[nodiscard]] bool isShape(std::string_view element); ///< a path among them
/// Empty when the shape has no extent or lacks what it needs. Throws UnknownUnit.
[[nodiscard]] Outline shapeOutline(std::string_view element, const Attributes& attributes, const Units& units);

void transformBy(model::PathData& path, const model::Affine& transform);
[[nodiscard]] double scaleOf(const model::Affine& transform); ///< of lengths, on average

/// Whether both handles of a point are drawn out, in opposite directions.
[[nodiscard]] bool looksSmooth(const model::PathPoint& point);
/// How far the handles of an arc of this angle reach, against the radius.
[[nodiscard]] double handleReach(double angle);

} // namespace easel::svg
