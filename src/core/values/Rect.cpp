// Forwards every operation of the public screen rectangle to its implementation.
#include "core/values/Rect.h"

#include "geo/Rect.h"

namespace kzo::core {

Rect::Rect() : Rect(geo::Rect()) {}
Rect::Rect(const Point& topLeft, const Size& extent) : Rect(geo::Rect{topLeft.impl(), extent.impl()}) {}
Rect::Rect(double x, double y, double width, double height) : Rect(geo::Rect{{x, y}, {width, height}}) {}
Rect::Rect(const geo::Rect& impl) : origin(impl.origin), size(impl.size), impl_(impl) {}

const geo::Rect& Rect::impl() const {
    impl_.get() = {origin.impl(), size.impl()};
    return impl_.get();
}

// Reference points

Point Rect::topLeft() const { return Point(impl().box().at(0.0, 0.0)); }
Point Rect::topCenter() const { return Point(impl().box().at(0.5, 0.0)); }
Point Rect::topRight() const { return Point(impl().box().at(1.0, 0.0)); }
Point Rect::midLeft() const { return Point(impl().box().at(0.0, 0.5)); }
Point Rect::midCenter() const { return Point(impl().box().at(0.5, 0.5)); }
Point Rect::midRight() const { return Point(impl().box().at(1.0, 0.5)); }
Point Rect::bottomLeft() const { return Point(impl().box().at(0.0, 1.0)); }
Point Rect::bottomCenter() const { return Point(impl().box().at(0.5, 1.0)); }
Point Rect::bottomRight() const { return Point(impl().box().at(1.0, 1.0)); }

// Measures

double Rect::area() const { return impl().box().area(); }
double Rect::perimeter() const { return impl().box().perimeter(); }
bool Rect::overlaps(const Rect& other) const { return impl().box().overlaps(other.impl().box()); }
bool Rect::containsPoint(const Point& point) const { return impl().box().contains(point.impl()); }
bool Rect::operator==(const Rect& other) const { return impl() == other.impl(); }

// Changed rectangles

Rect Rect::offset(double dx, double dy) const { return Rect(impl().offset(dx, dy)); }
Rect Rect::resize(double width, double height) const { return Rect(impl().resize(width, height)); }
Rect Rect::inset(double dx, double dy) const { return Rect(impl().inset(dx, dy)); }

// Union and intersection

Rect& Rect::operator+=(const Rect& other) {
    return *this = Rect(geo::Rect::fromBox(impl().box().unionWith(other.impl().box())));
}

Rect& Rect::operator-=(const Rect& other) {
    return *this = Rect(geo::Rect::fromBox(impl().box().intersection(other.impl().box())));
}

} // namespace kzo::core
