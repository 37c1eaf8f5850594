// Places in boxes, and boxes against each other.
#include "geo/Box.h"

#include <algorithm>

#include "geo/Vector.h"

namespace kzo::geo {

namespace {

Point lower(Point a, Point b) { return {std::min(a.x, b.x), std::min(a.y, b.y)}; }
Point upper(Point a, Point b) { return {std::max(a.x, b.x), std::max(a.y, b.y)}; }

} // namespace

Point Box::at(double partX, double partY) const { return {between(min, max, partX).x, between(min, max, partY).y}; }

Box Box::offset(double dx, double dy) const { return {min.offset(dx, dy), max.offset(dx, dy)}; }
Box Box::inset(double dx, double dy) const { return {min.offset(dx, dy), max.offset(-dx, -dy)}; }
Box Box::unionWith(const Box& other) const { return {lower(min, other.min), upper(max, other.max)}; }
Box Box::intersection(const Box& other) const {
    return overlaps(other) ? Box{upper(min, other.min), lower(max, other.max)} : Box();
}

bool Box::overlaps(const Box& other) const {
    return min.x <= other.max.x && other.min.x <= max.x && min.y <= other.max.y && other.min.y <= max.y;
}

bool Box::contains(Point point) const { return overlaps({point, point}); }

} // namespace kzo::geo
