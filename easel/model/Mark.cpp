// How far marks reach.
#include "model/Mark.h"

#include <algorithm>

namespace easel::model {

Box Mark::bounds(double zoom) const {
    Box box;
    for (const Point point : points) box.include(point);
    // A character is seldom wider than high, and never has less than one byte.
    const double around = kind == Kind::Text ? pen.fontSize : pen.lineWidth / 2;
    const double along = kind == Kind::Text ? pen.fontSize * static_cast<double>(text.size()) : around;
    return {box.left - around / zoom, box.top - around / zoom, box.right + std::max(around, along) / zoom,
            box.bottom + around / zoom};
}

} // namespace easel::model
