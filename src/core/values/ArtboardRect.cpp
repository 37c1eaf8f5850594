// Forwards every operation of the public artboard rectangle to its implementation.
#include "core/values/ArtboardRect.h"

#include "plugin/values/ArtboardRect.h"

namespace kzo::core {

namespace {

ArtboardRect fromBox(const geo::Box& box) { return ArtboardRect(plugin::ArtboardRect(box)); }

} // namespace

ArtboardRect::ArtboardRect() : ArtboardRect(plugin::ArtboardRect()) {}

ArtboardRect::ArtboardRect(double leftEdge, double topEdge, double rightEdge, double bottomEdge)
    : ArtboardRect(plugin::ArtboardRect(leftEdge, topEdge, rightEdge, bottomEdge)) {}

ArtboardRect::ArtboardRect(const plugin::ArtboardRect& impl)
    : left(impl.left()), top(impl.top()), right(impl.right()), bottom(impl.bottom()), impl_(impl) {}

const plugin::ArtboardRect& ArtboardRect::impl() const {
    impl_.get() = {left, top, right, bottom};
    return impl_.get();
}

// Reference points

ArtboardPoint ArtboardRect::topLeft() const { return ArtboardPoint(impl().at(0.0, 0.0)); }
ArtboardPoint ArtboardRect::topCenter() const { return ArtboardPoint(impl().at(0.5, 0.0)); }
ArtboardPoint ArtboardRect::topRight() const { return ArtboardPoint(impl().at(1.0, 0.0)); }
ArtboardPoint ArtboardRect::midLeft() const { return ArtboardPoint(impl().at(0.0, 0.5)); }
ArtboardPoint ArtboardRect::midCenter() const { return ArtboardPoint(impl().at(0.5, 0.5)); }
ArtboardPoint ArtboardRect::midRight() const { return ArtboardPoint(impl().at(1.0, 0.5)); }
ArtboardPoint ArtboardRect::bottomLeft() const { return ArtboardPoint(impl().at(0.0, 1.0)); }
ArtboardPoint ArtboardRect::bottomCenter() const { return ArtboardPoint(impl().at(0.5, 1.0)); }
ArtboardPoint ArtboardRect::bottomRight() const { return ArtboardPoint(impl().at(1.0, 1.0)); }

// Measures

double ArtboardRect::width() const { return impl().box.width(); }
double ArtboardRect::height() const { return impl().box.height(); }
double ArtboardRect::area() const { return impl().box.area(); }
double ArtboardRect::perimeter() const { return impl().box.perimeter(); }
bool ArtboardRect::overlaps(const ArtboardRect& other) const { return impl().box.overlaps(other.impl().box); }
bool ArtboardRect::containsPoint(const ArtboardPoint& point) const { return impl().box.contains(point.impl().plain()); }
bool ArtboardRect::operator==(const ArtboardRect& other) const { return impl() == other.impl(); }

// Changed rectangles

ArtboardRect ArtboardRect::offset(double dx, double dy) const { return fromBox(impl().box.offset(dx, dy)); }
ArtboardRect ArtboardRect::resize(double width, double height) const {
    return ArtboardRect(impl().resize(width, height));
}
ArtboardRect ArtboardRect::inset(double dx, double dy) const { return fromBox(impl().box.inset(dx, dy)); }

// Union and intersection

ArtboardRect& ArtboardRect::operator+=(const ArtboardRect& other) {
    return *this = fromBox(impl().box.unionWith(other.impl().box));
}

ArtboardRect& ArtboardRect::operator-=(const ArtboardRect& other) {
    return *this = fromBox(impl().box.intersection(other.impl().box));
}

} // namespace kzo::core
