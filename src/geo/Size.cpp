// The diagonal of a size.
#include "geo/Size.h"

#include <cmath>

namespace kzo::geo {

double Size::diagonalLength() const { return std::hypot(width, height); }
Angle Size::diagonalAngle() const { return {std::atan2(height, width), Angle::Units::Radians}; }

} // namespace kzo::geo
