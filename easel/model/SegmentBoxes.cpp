// A slanted box around each segment, looked through in one pass.
#include "model/SegmentBoxes.h"

#include <algorithm>
#include <cmath>

namespace easel::model {

namespace {

constexpr double kRounding = 1e-6; // of the path's size, more than all steps in single precision lose

} // namespace

SegmentBoxes::SegmentBoxes(const PathData& path) {
    const Box hull = path.hull();
    middle_ = {0.5 * (hull.left + hull.right), 0.5 * (hull.top + hull.bottom)};
    size_ = std::max(hull.right - hull.left, hull.bottom - hull.top);
    const std::size_t count = path.segmentCount();
    boxes_.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        const Cubic curve = path.segment(i);
        const double x = curve[3].x - curve[0].x;
        const double y = curve[3].y - curve[0].y;
        const double length = std::hypot(x, y);
        Slanted box{.alongX = 1, .alongY = 0, .first = INFINITY, .last = -INFINITY, .low = INFINITY, .high = -INFINITY};
        if (length > 0) {
            box.alongX = static_cast<float>(x / length);
            box.alongY = static_cast<float>(y / length);
        }
        for (const Point& control : curve) {
            const auto atX = static_cast<float>(control.x - middle_.x);
            const auto atY = static_cast<float>(control.y - middle_.y);
            const float along = box.alongX * atX + box.alongY * atY;
            const float across = box.alongX * atY - box.alongY * atX;
            box.first = std::min(box.first, along);
            box.last = std::max(box.last, along);
            box.low = std::min(box.low, across);
            box.high = std::max(box.high, across);
        }
        boxes_.push_back(box);
    }
}

const std::vector<std::uint32_t>& SegmentBoxes::near(Point point, double reach) {
    if (point == askedAt_ && reach == askedReach_) return near_;
    near_.clear();
    askedAt_ = point;
    askedReach_ = reach;
    const auto x = static_cast<float>(point.x - middle_.x);
    const auto y = static_cast<float>(point.y - middle_.y);
    const auto slack = static_cast<float>((reach + kRounding * (size_ + reach)) * (1 + kRounding));
    for (std::size_t i = 0; i < boxes_.size(); ++i) {
        const Slanted& box = boxes_[i];
        const float across = box.alongX * y - box.alongY * x;
        if (across < box.low - slack || across > box.high + slack) continue;
        const float along = box.alongX * x + box.alongY * y;
        if (along < box.first - slack || along > box.last + slack) continue;
        near_.push_back(static_cast<std::uint32_t>(i));
    }
    return near_;
}

} // namespace easel::model
