// Turns free directions into directions along the axes of the drawing, and a few kindred snaps and tests.
// Nothing here keeps state; only constrainToAxo looks further than its arguments, at the axes of the drawing globals.
#pragma once

#include "core/values/Angle.h"

/// Angles run counter-clockwise on screen, 0 to the right. Plain numbers are degrees.
namespace vl::constrain {

// Directions
/// The nearest of the drawing's three axes in both senses. Of equally near ones the first in this order: Z, vertical,
/// X, then the opposite senses. An X or Z axis at exactly 90° has its upward sense only; one that is not finite is
/// none, and without any the direction is 0.
[[nodiscard]] kzo::core::Angle constrainToAxo(kzo::core::Angle angle);
/// The nearest of 30°, 90°, 150°, 210°, 270° and 330°; 0 for a direction midway between two, unless rounding favours
/// one.
[[nodiscard]] kzo::core::Angle constrainToIso(kzo::core::Angle angle);
/// The sense of the line along `line` that is within a quarter turn of `angle`. The flag takes no part.
[[nodiscard]] kzo::core::Angle constrainedTo(kzo::core::Angle angle, kzo::core::Angle line, bool);
/// Whether lo < angle < hi. A range that wraps through 0 holds nothing, because the comparison normalises its end; one
/// that ends at 0 reaches up to the full turn.
[[nodiscard]] bool withinRange(kzo::core::Angle angle, kzo::core::Angle lo, kzo::core::Angle hi);

// Degrees
/// Snaps to `base` plus a multiple of `step` when within half of `tol`, and returns [−180, 180]. Without a match it
/// returns the first multiple beyond a full turn from `angle`, folded once. Without a tolerance, with a step that leads
/// nowhere, and with an angle or base beyond one fold, there is no snap.
[[nodiscard]] double constrainTo(double angle, double base, double step, double tol);
/// By how much the host turns what it constrains, a preference of its own; 0 when it has none.
[[nodiscard]] double sysConstrainAngle();
/// Whether the shortest turn is clockwise. No turn is not, nor is a half turn onwards.
[[nodiscard]] bool isClockwise(double from, double to);
/// Whether `v` is between `a` and `b`, in either order, both included.
[[nodiscard]] bool within(double v, double a, double b);

} // namespace vl::constrain
