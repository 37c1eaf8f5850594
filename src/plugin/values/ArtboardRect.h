// The rectangle of the artboard: the host's record as a box with artboard points.
#pragma once

#include "geo/Box.h"
#include "plugin/values/ArtboardPoint.h"

struct AIRealRect;

namespace kzo::plugin {

/// Edges in artboard points, y down: the top edge is the smaller y. The border belongs to the rectangle.
struct ArtboardRect {
    geo::Box box;

    constexpr ArtboardRect() = default;
    constexpr explicit ArtboardRect(const geo::Box& edges) : box(edges) {}
    constexpr ArtboardRect(double left, double top, double right, double bottom) : box{{left, top}, {right, bottom}} {}
    explicit ArtboardRect(const AIRealRect& rect);

    [[nodiscard]] AIRealRect toAIRealRect() const;
    [[nodiscard]] constexpr double left() const { return box.min.x; }
    [[nodiscard]] constexpr double top() const { return box.min.y; }
    [[nodiscard]] constexpr double right() const { return box.max.x; }
    [[nodiscard]] constexpr double bottom() const { return box.max.y; }
    /// The point at these parts of width and height, counted from the top left.
    [[nodiscard]] ArtboardPoint at(double partX, double partY) const { return ArtboardPoint(box.at(partX, partY)); }
    [[nodiscard]] constexpr ArtboardRect resize(double width, double height) const {
        return {left(), top(), left() + width, top() + height};
    }
    constexpr bool operator==(const ArtboardRect&) const = default; // exact
};

} // namespace kzo::plugin
