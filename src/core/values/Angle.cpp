// Forwards every operation of the public angle to its implementation.
#include "core/values/Angle.h"

#include "geo/Angle.h"

namespace kzo::core {

namespace {

geo::Angle::Units toImpl(Angle::Units units) { return static_cast<geo::Angle::Units>(units); }

} // namespace

// Construction

Angle::Angle() : Angle(geo::Angle()) {}
Angle::Angle(double value, Units units) : Angle(geo::Angle(value, toImpl(units))) {}
Angle::Angle(const geo::Angle& impl) : impl_(impl) {}
const geo::Angle& Angle::impl() const { return impl_.get(); }

Angle Angle::Zero() { return Angle(geo::Angle::Zero()); }
Angle Angle::Pi() { return Angle(geo::Angle::Pi()); }
Angle Angle::TwoPi() { return Angle(geo::Angle::TwoPi()); }

// Values

double Angle::asRadians() const { return impl_->asRadians(); }
double Angle::asDegrees() const { return impl_->asDegrees(); }
double Angle::asGradians() const { return impl_->asGradians(); }
double Angle::asTurns() const { return impl_->asTurns(); }
double Angle::valueInUnits(Units units) const { return impl_->valueInUnits(toImpl(units)); }
void Angle::setValueInUnits(double value, Units units) { impl_->setValueInUnits(value, toImpl(units)); }

// Arithmetic

Angle Angle::operator-() const { return Angle(-impl()); }

Angle& Angle::operator+=(const Angle& other) {
    impl_.get() += other.impl();
    return *this;
}

Angle& Angle::operator-=(const Angle& other) {
    impl_.get() -= other.impl();
    return *this;
}

Angle& Angle::operator*=(const Angle& other) {
    impl_.get() *= other.impl();
    return *this;
}

Angle& Angle::operator/=(const Angle& other) {
    impl_.get() /= other.impl();
    return *this;
}

Angle& Angle::operator*=(double factor) {
    impl_.get() *= factor;
    return *this;
}

Angle& Angle::operator/=(double divisor) {
    impl_.get() /= divisor;
    return *this;
}

// Comparison

bool Angle::operator==(const Angle& other) const { return impl() == other.impl(); }
bool Angle::operator<(const Angle& other) const { return impl() < other.impl(); }
bool Angle::operator<=(const Angle& other) const { return impl() <= other.impl(); }
bool Angle::operator>(const Angle& other) const { return impl() > other.impl(); }
bool Angle::operator>=(const Angle& other) const { return impl() >= other.impl(); }
bool Angle::equalWithinTol(const Angle& other, const Angle& tol) const {
    return impl_->equalWithinTol(other.impl(), tol.impl());
}

// Normalisation

Angle Angle::range0To2Pi() const { return Angle(impl_->range0To2Pi()); }
Angle Angle::rangeNegPiToPi() const { return Angle(impl_->rangeNegPiToPi()); }
Angle Angle::nearest45() const { return Angle(impl_->nearest45()); }
Angle Angle::constrain0ToPi() const { return Angle(impl_->constrain0ToPi()); }
Angle Angle::constrainPiOver2To3PiOver2() const { return Angle(impl_->constrainPiOver2To3PiOver2()); }
Angle Angle::constrainPiTo2Pi() const { return Angle(impl_->constrainPiTo2Pi()); }
Angle Angle::constrainNegPiOver2ToPiOver2() const { return Angle(impl_->constrainNegPiOver2ToPiOver2()); }

// Relations

Angle Angle::delta(const Angle& other) const { return Angle(impl_->delta(other.impl())); }
Angle Angle::bisect(const Angle& other) const { return Angle(impl_->bisect(other.impl())); }
bool Angle::firstQuadrant() const { return impl_->firstQuadrant(); }
bool Angle::secondQuadrant() const { return impl_->secondQuadrant(); }
bool Angle::thirdQuadrant() const { return impl_->thirdQuadrant(); }
bool Angle::fourthQuadrant() const { return impl_->fourthQuadrant(); }
int Angle::quadrantNumber() const { return impl_->quadrantNumber(); }

// Trigonometry

double Angle::sin(double tol) const { return impl_->sin(tol); }
double Angle::cos(double tol) const { return impl_->cos(tol); }
double Angle::tan(double tol) const { return impl_->tan(tol); }
Angle Angle::asin(double value, double tol) { return Angle(geo::Angle::asin(value, tol)); }
Angle Angle::acos(double value, double tol) { return Angle(geo::Angle::acos(value, tol)); }
Angle Angle::atan(double value, double tol) { return Angle(geo::Angle::atan(value, tol)); }

} // namespace kzo::core
