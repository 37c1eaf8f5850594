// A point in which a path meets itself or another path.
#pragma once

#include <cstdint>

#include "core/values/ArtboardPoint.h"

namespace kzo::core {

/// Where it lies on the path that was asked, and on the other one (or once more on the same).
struct PathIntersection {
    ArtboardPoint point;
    std::int16_t seg = 0;
    double t = 0;
    std::int16_t otherSeg = 0;
    double otherT = 0;
};

} // namespace kzo::core
