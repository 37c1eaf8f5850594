// A gradient as bands of one colour each, and a pattern as places of its tile.
#pragma once

#include <vector>

#include "model/Types.h"
#include "svg/Gradients.h"

namespace easel::svg {

constexpr std::size_t kMostBands = 10'000; ///< of one gradient

/// One colour of a gradient, and all the place that it may take: the next ones lie below it.
struct Band {
    std::vector<model::PathData> outline; ///< in the document's units; filled by the even-odd rule
    model::Color color;
    double opacity = 1;
};

/// The bands that are seen in some outlines, the topmost first. `toPage` leads from the units of what it paints, with
/// its box where it is fitted to that. None at all where they cannot be told, or are too many.
[[nodiscard]] std::vector<Band> bandsOf(const Gradient& gradient, const model::Affine& toPage,
                                        const model::OutlineList& outlines, int steps);

} // namespace easel::svg
