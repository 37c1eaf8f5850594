// Distances, directions and moves of artboard points, and the host's record.
#include "plugin/values/ArtboardPoint.h"

#include <cmath>

#include "geo/Polygon.h"
#include "hostapi/SPTypes.h"
#include "utils/Tolerance.h"

namespace kzo::plugin {

namespace {

constexpr double kSnap = 1e-10;

} // namespace

ArtboardPoint::ArtboardPoint(const AIRealPoint& point) : x(point.h), y(point.v) {}

ArtboardPoint& ArtboardPoint::operator=(const AIRealPoint& point) { return *this = ArtboardPoint(point); }

ArtboardPoint ArtboardPoint::LengthAngle(double length, geo::Angle angle) {
    return {length * angle.cos(kSnap), -length * angle.sin(kSnap)};
}

AIRealPoint ArtboardPoint::toAIRealPoint() const { return {x, y}; }

bool ArtboardPoint::closeTo(const ArtboardPoint& other, double tol) const {
    return utils::equalWithinTol(x, other.x, tol) && utils::equalWithinTol(y, other.y, tol);
}

double ArtboardPoint::distance(const ArtboardPoint& other) const { return std::hypot(other.x - x, other.y - y); }

geo::Angle ArtboardPoint::direction(const ArtboardPoint& other) const {
    return {-std::atan2(other.y - y, other.x - x), geo::Angle::Units::Radians};
}

bool ArtboardPoint::insidePolygon(const std::vector<ArtboardPoint>& vertices) const {
    return geo::insidePolygon(*this, vertices);
}

ArtboardPoint ArtboardPoint::move(double length, geo::Angle angle) const { return *this + LengthAngle(length, angle); }

ArtboardPoint ArtboardPoint::rotate(const ArtboardPoint& origin, geo::Angle angle) const {
    // The y offsets look reversed: a matrix's translation takes y upwards.
    geo::TransformMatrix matrix;
    matrix.setTranslate(-origin.x, origin.y);
    matrix.concatRotate(angle);
    matrix.concatTranslate(origin.x, -origin.y);
    return transform(matrix);
}

ArtboardPoint ArtboardPoint::transform(const geo::TransformMatrix& matrix) const {
    return {matrix.a * x + matrix.c * y + matrix.tx, matrix.b * x + matrix.d * y + matrix.ty};
}

} // namespace kzo::plugin
