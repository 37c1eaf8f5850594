// Forwards every operation of the public plane point to its implementation.
#include "core/values/Point.h"

#include "geo/Point.h"

namespace kzo::core {

Point::Point() : Point(geo::Point()) {}
Point::Point(double x, double y) : Point(geo::Point{x, y}) {}
Point::Point(const geo::Point& impl) : impl_(impl) {}
const geo::Point& Point::impl() const { return impl_.get(); }

double Point::x() const { return impl_->x; }
double Point::y() const { return impl_->y; }
void Point::setX(double x) { impl_->x = x; }
void Point::setY(double y) { impl_->y = y; }

bool Point::operator==(const Point& other) const { return impl() == other.impl(); }

Point& Point::operator+=(const Point& other) {
    impl_.get() += other.impl();
    return *this;
}

Point& Point::operator-=(const Point& other) {
    impl_.get() -= other.impl();
    return *this;
}

Point Point::offset(double dx, double dy) const { return Point(impl_->offset(dx, dy)); }

bool Point::insidePolygon(const std::vector<Point>& vertices) const {
    std::vector<geo::Point> plain;
    plain.reserve(vertices.size());
    for (const Point& vertex : vertices) plain.push_back(vertex.impl());
    return impl_->insidePolygon(plain);
}

} // namespace kzo::core
