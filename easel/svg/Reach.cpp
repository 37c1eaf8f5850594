// Paths, boxes and transforms, tested number by number.
#include "svg/Reach.h"

#include <algorithm>

namespace easel::svg {

using model::Affine;

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

bool withinReach(const Affine& transform) {
    const auto& [a, b, c, d, e, f] = transform;
    return withinReach(a) && withinReach(b) && withinReach(c) && withinReach(d) && withinReach(e) && withinReach(f);
}

model::Box trusted(const model::Box& box) { return withinReach(box) ? box : model::Box{}; }

} // namespace easel::svg
