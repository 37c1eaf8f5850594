// Which places coordinates are trusted at, and which transforms lead back.
#pragma once

#include <2geom/affine.h>

#include "model/Types.h"
#include "svg/Limits.h"

namespace easel::svg {

/// Whether all of it lies where coordinates are trusted; false for what is no number, and for a box that is empty.
[[nodiscard]] bool withinReach(const model::PathData& path);
[[nodiscard]] bool withinReach(const model::Box& box);
[[nodiscard]] bool withinReach(const Geom::Affine& transform);
/// The box, if all of it lies there; else an empty one.
[[nodiscard]] model::Box trusted(const model::Box& box);

/// Whether it leaves no area, or none that is a number, so that nothing comes back from it.
[[nodiscard]] bool isFlat(const Geom::Affine& transform);

} // namespace easel::svg
