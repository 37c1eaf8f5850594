// Help with cubics whose coordinates are of any size.
#pragma once

#include <array>
#include <cstddef>

#include "geo/Bezier.h"

namespace kzo::geo {

/// Parameters within (0, 1), in order.
struct Turns {
    std::array<double, 2> t{};
    std::size_t count = 0;

    [[nodiscard]] const double* begin() const { return t.data(); }
    [[nodiscard]] const double* end() const { return t.data() + count; }
};

/// Where one coordinate of a cubic, told by its control points, turns round.
[[nodiscard]] Turns turns(double p0, double p1, double p2, double p3);

/// A curve about its start.
struct Resized {
    Bezier curve;
    double size = 1.0; ///< of the curve, in units of the resized one
};

/// The curve at a size at which the products of its coordinates neither overflow nor vanish. Most curves are that as
/// they are, and stay in their place.
[[nodiscard]] Resized usableSize(const Bezier& curve);

} // namespace kzo::geo
