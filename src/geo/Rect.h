// A rectangle by origin and size, as screens have them.
#pragma once

#include "geo/Box.h"
#include "geo/Point.h"
#include "geo/Size.h"

namespace kzo::geo {

/// y down: the origin is the top left corner. The border belongs to the rectangle.
struct Rect {
    Point origin;
    Size size;

    constexpr bool operator==(const Rect&) const = default; // exact

    [[nodiscard]] constexpr Box box() const { return {origin, origin.offset(size.width, size.height)}; }
    [[nodiscard]] static constexpr Rect fromBox(const Box& box) { return {box.min, {box.width(), box.height()}}; }

    [[nodiscard]] constexpr Rect offset(double dx, double dy) const { return {origin.offset(dx, dy), size}; }
    [[nodiscard]] constexpr Rect resize(double width, double height) const { return {origin, {width, height}}; }
    [[nodiscard]] constexpr Rect inset(double dx, double dy) const {
        return {origin.offset(dx, dy), size - Size{2.0 * dx, 2.0 * dy}};
    }
};

} // namespace kzo::geo
