// Tangents of the end segments.
#include "maker/PathGeometry.h"

namespace vl::geo {

kzo::core::Angle getExitAngle(const kzo::core::PathArt* path) {
    const auto last = path->bezier(static_cast<std::int16_t>(path->segCount() - 1));
    return last ? last->tangentAngle(1.0) : kzo::core::Angle();
}

} // namespace vl::geo
