// Forwards every operation of the public artboard point to its implementation.
#include "core/values/ArtboardPoint.h"

#include "core/values/TransformMatrix.h"
#include "geo/Angle.h"
#include "geo/TransformMatrix.h"
#include "plugin/values/ArtboardPoint.h"

namespace kzo::core {

// Construction

ArtboardPoint::ArtboardPoint() : ArtboardPoint(plugin::ArtboardPoint()) {}
ArtboardPoint::ArtboardPoint(double x, double y) : ArtboardPoint(plugin::ArtboardPoint(x, y)) {}
ArtboardPoint::ArtboardPoint(const AIRealPoint& point) : ArtboardPoint(plugin::ArtboardPoint(point)) {}
ArtboardPoint::ArtboardPoint(const plugin::ArtboardPoint& impl) : impl_(impl) {}
const plugin::ArtboardPoint& ArtboardPoint::impl() const { return impl_.get(); }

ArtboardPoint ArtboardPoint::LengthAngle(double length, const Angle& angle) {
    return ArtboardPoint(plugin::ArtboardPoint::LengthAngle(length, angle.impl()));
}

// Values

double ArtboardPoint::x() const { return impl_->x; }
double ArtboardPoint::y() const { return impl_->y; }
void ArtboardPoint::setX(double x) { impl_->x = x; }
void ArtboardPoint::setY(double y) { impl_->y = y; }
bool ArtboardPoint::operator==(const ArtboardPoint& other) const { return impl() == other.impl(); }
bool ArtboardPoint::operator<(const ArtboardPoint& other) const { return impl() < other.impl(); }
bool ArtboardPoint::operator<=(const ArtboardPoint& other) const { return impl() <= other.impl(); }
bool ArtboardPoint::operator>(const ArtboardPoint& other) const { return impl() > other.impl(); }
bool ArtboardPoint::operator>=(const ArtboardPoint& other) const { return impl() >= other.impl(); }
bool ArtboardPoint::closeTo(const ArtboardPoint& other, double tol) const { return impl_->closeTo(other.impl(), tol); }

// Arithmetic

ArtboardPoint& ArtboardPoint::operator+=(const ArtboardPoint& other) {
    impl_.get() += other.impl();
    return *this;
}

ArtboardPoint& ArtboardPoint::operator-=(const ArtboardPoint& other) {
    impl_.get() -= other.impl();
    return *this;
}

ArtboardPoint& ArtboardPoint::operator*=(const ArtboardPoint& other) {
    impl_.get() *= other.impl();
    return *this;
}

ArtboardPoint& ArtboardPoint::operator/=(const ArtboardPoint& other) {
    impl_.get() /= other.impl();
    return *this;
}

ArtboardPoint& ArtboardPoint::operator+=(double value) {
    impl_.get() += value;
    return *this;
}

ArtboardPoint& ArtboardPoint::operator-=(double value) {
    impl_.get() -= value;
    return *this;
}

ArtboardPoint& ArtboardPoint::operator*=(double value) {
    impl_.get() *= value;
    return *this;
}

ArtboardPoint& ArtboardPoint::operator/=(double value) {
    impl_.get() /= value;
    return *this;
}

// Relations

double ArtboardPoint::operator|(const ArtboardPoint& other) const { return impl_->distance(other.impl()); }
Angle ArtboardPoint::operator^(const ArtboardPoint& other) const { return Angle(impl_->direction(other.impl())); }
double ArtboardPoint::dotProduct(const ArtboardPoint& other) const { return impl_->dotProduct(other.impl()); }

bool ArtboardPoint::insidePolygon(const std::vector<ArtboardPoint>& vertices) const {
    std::vector<plugin::ArtboardPoint> plain;
    plain.reserve(vertices.size());
    for (const ArtboardPoint& vertex : vertices) plain.push_back(vertex.impl());
    return impl_->insidePolygon(plain);
}

// Moved points

ArtboardPoint ArtboardPoint::offset(double dx, double dy) const { return ArtboardPoint(impl_->offset(dx, dy)); }

ArtboardPoint ArtboardPoint::move(double distance, const Angle& angle) const {
    return ArtboardPoint(impl_->move(distance, angle.impl()));
}

ArtboardPoint ArtboardPoint::rotate(const ArtboardPoint& origin, const Angle& angle) const {
    return ArtboardPoint(impl_->rotate(origin.impl(), angle.impl()));
}

ArtboardPoint ArtboardPoint::transform(const TransformMatrix& matrix) const {
    return ArtboardPoint(impl_->transform(matrix.impl()));
}

} // namespace kzo::core
