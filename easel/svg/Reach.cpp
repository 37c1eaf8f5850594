// Paths, boxes and transforms, tested number by number.
#include "svg/Reach.h"

#include <algorithm>

#include "model/Flat.h"

namespace easel::svg {

bool withinReach(const model::PathData& path) {
    return std::all_of(path.points.begin(), path.points.end(), [](const model::PathPoint& point) {
        bool reaches = true;
        for (const model::Point at : {point.anchor, point.in, point.out})
            reaches = reaches && withinReach(at.x) && withinReach(at.y);
        return reaches;
    });
}

bool withinReach(const model::Box& box) {
    return withinReach(box.left) && withinReach(box.top) && withinReach(box.right) && withinReach(box.bottom);
}

bool withinReach(const Geom::Affine& transform) {
    bool reaches = true;
    for (unsigned i = 0; i < 6; ++i) reaches = reaches && withinReach(transform[i]);
    return reaches;
}

model::Box trusted(const model::Box& box) { return withinReach(box) ? box : model::Box{}; }

bool isFlat(const Geom::Affine& transform) {
    return model::isFlat({transform[0], transform[1], transform[2], transform[3], transform[4], transform[5]});
}

} // namespace easel::svg
