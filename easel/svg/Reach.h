// Which places coordinates are trusted at.
#pragma once

#include "model/Types.h"
#include "svg/Limits.h"

namespace easel::svg {

/// Whether all of it lies where coordinates are trusted; false for what is no number, and for a box that is empty.
[[nodiscard]] bool withinReach(const model::PathData& path);
[[nodiscard]] bool withinReach(const model::Box& box);
[[nodiscard]] bool withinReach(const model::Affine& transform);
/// The box, if all of it lies there; else an empty one.
[[nodiscard]] model::Box trusted(const model::Box& box);

} // namespace easel::svg
