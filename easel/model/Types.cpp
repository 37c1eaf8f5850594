// Boxes, and what path data says about itself.
#include "model/Types.h"

#include <algorithm>

namespace easel::model {

bool Box::meets(const Box& other) const {
    return left <= other.right && other.left <= right && top <= other.bottom && other.top <= bottom;
}

void Box::include(Point point) {
    left = std::min(left, point.x);
    top = std::min(top, point.y);
    right = std::max(right, point.x);
    bottom = std::max(bottom, point.y);
}

void Box::include(const Box& other) {
    left = std::min(left, other.left);
    top = std::min(top, other.top);
    right = std::max(right, other.right);
    bottom = std::max(bottom, other.bottom);
}

std::size_t PathData::segmentCount() const {
    if (points.size() < 2) return 0;
    return closed ? points.size() : points.size() - 1;
}

Box PathData::hull() const {
    Box box;
    for (const PathPoint& point : points) {
        box.include(point.anchor);
        box.include(point.in);
        box.include(point.out);
    }
    return box;
}

} // namespace easel::model
