// Transforms that nothing comes back from.
#pragma once

#include <cmath>

#include "model/Types.h"

namespace easel::model {

/// Whether what an area becomes is too small, or too large, to be told from none.
[[nodiscard]] inline bool isFlat(const Affine& by) {
    constexpr double kLeastArea = 1e-12;
    const double area = std::fabs(by.a * by.d - by.b * by.c);
    return !(area > kLeastArea && std::isfinite(area));
}

} // namespace easel::model
