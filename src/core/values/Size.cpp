// Forwards every operation of the public size to its implementation.
#include "core/values/Size.h"

#include "core/values/Angle.h"
#include "geo/Size.h"

namespace kzo::core {

Size::Size() : Size(geo::Size()) {}
Size::Size(double width, double height) : Size(geo::Size{width, height}) {}
Size::Size(const geo::Size& impl) : impl_(impl) {}
const geo::Size& Size::impl() const { return impl_.get(); }

double Size::width() const { return impl_->width; }
double Size::height() const { return impl_->height; }
void Size::setWidth(double width) { impl_->width = width; }
void Size::setHeight(double height) { impl_->height = height; }

bool Size::operator==(const Size& other) const { return impl() == other.impl(); }

Size& Size::operator+=(const Size& other) {
    impl_.get() += other.impl();
    return *this;
}

Size& Size::operator-=(const Size& other) {
    impl_.get() -= other.impl();
    return *this;
}

double Size::diagonalLength() const { return impl_->diagonalLength(); }
Angle Size::diagonalAngle() const { return Angle(impl_->diagonalAngle()); }

} // namespace kzo::core
