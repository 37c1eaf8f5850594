// The anchors of elementary shapes. Closed shapes run clockwise on screen, with y down, and start at their top or top
// left. Curves are cubics of at most a quarter turn each, which keep within 0.03 % of the radius.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "geo/Box.h"
#include "geo/Path.h"

namespace kzo::geo {

/// Anchors at the four extremes; the sign of a size is dropped.
[[nodiscard]] Path ellipse(Point center, double width, double height);
/// Corners at the box's, which may be in any order.
[[nodiscard]] Path rectangle(const Box& box);
/// The radius is held to half the shorter side. Sides of no length have no anchors.
[[nodiscard]] Path roundedRectangle(const Box& box, double radius);
[[nodiscard]] Path chamferedRectangle(const Box& box, double size); // the same for the cut from each side of a corner
/// The open arc of a circle from `start` past `through` to `end`; a straight line when `through` lies between them.
/// None where no circle passes all three, or more than one does.
[[nodiscard]] std::optional<Path> arc(Point start, Point through, Point end);
/// `first` is a corner; the others follow clockwise. None with fewer than three sides.
[[nodiscard]] std::optional<Path> regularPolygon(Point center, Point first, int sides);
/// Tips at `tipRadius`, the first at the top, and notches at `notchRadius` between them. None with fewer than two tips.
[[nodiscard]] std::optional<Path> star(Point center, int tips, double tipRadius, double notchRadius);
[[nodiscard]] Path polygon(const std::vector<Point>& corners); // closed

} // namespace kzo::geo
