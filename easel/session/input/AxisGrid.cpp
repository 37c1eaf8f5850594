// The crossings are a lattice: all sums of whole multiples of two steps.
#include "session/input/AxisGrid.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace easel::session {

namespace {

using model::Point;

constexpr double kLeastSpacing = 1e-3; // points; beyond these there are no places to tell apart
constexpr double kMostSpacing = 1e9;
constexpr double kLeastSine = 0.02; // of the angle between two axes, about a degree

Point sum(Point a, Point b, double times = 1) { return {a.x + times * b.x, a.y + times * b.y}; }
double dot(Point a, Point b) { return a.x * b.x + a.y * b.y; }
double cross(Point a, Point b) { return a.x * b.y - a.y * b.x; }

/// Upright is upright, but for rounding.
Point straightened(Point direction) {
    const auto part = [](double value) { return std::fabs(value) < 1e-12 ? 0 : value; };
    return {part(direction.x), part(direction.y)};
}

Point directionOf(double degrees) {
    const double angle = degrees * std::numbers::pi / 180;
    return straightened({std::cos(angle), -std::sin(angle)});
}

bool areParallel(Point a, Point b) { return std::fabs(cross(a, b)) < kLeastSine; }

/// The shortest steps to the same crossings.
void shorten(Point& a, Point& b) {
    while (true) {
        if (dot(b, b) < dot(a, a)) std::swap(a, b);
        const double times = std::round(dot(a, b) / dot(a, a));
        if (times == 0) return;
        const Point shorter = sum(b, a, -times);
        if (dot(shorter, shorter) >= dot(b, b)) return;
        b = shorter;
    }
}

} // namespace

AxisGrid::AxisGrid(const std::vector<double>& axes, double spacing) {
    if (axes.size() < 2 || !(spacing >= kLeastSpacing && spacing <= kMostSpacing)) return;
    const Point first = directionOf(axes[0]);
    const Point second = directionOf(axes[1]);
    if (areParallel(first, second)) return;
    Point a{spacing * first.x, spacing * first.y};
    double along = spacing;
    if (axes.size() > 2) {
        const Point third = directionOf(axes[2]);
        if (areParallel(first, third) || areParallel(second, third)) return;
        along = -cross(a, third) / cross(second, third); // a step of both together leads along the third
    }
    Point b{along * second.x, along * second.y};
    steps_ = {a, b};
    addLines(a);
    addLines(b);
    if (axes.size() > 2) addLines(sum(a, b));
    shorten(a, b);
    steps_ = {a, b};
}

void AxisGrid::addLines(Point step) {
    const double length = std::hypot(step.x, step.y);
    lines_.push_back(
        {straightened({step.x / length, step.y / length}), std::fabs(cross(steps_[0], steps_[1])) / length, length});
}

Point AxisGrid::alongAxis(Point way) const {
    const auto aside = [&](const Lines& lines) { return std::fabs(cross(way, lines.direction)); };
    const Lines& axis = *std::min_element(lines_.begin(), lines_.end(),
                                          [&](const Lines& a, const Lines& b) { return aside(a) < aside(b); });
    const double steps = std::round(std::hypot(way.x, way.y) / axis.step);
    const double length = std::copysign(steps * axis.step, dot(way, axis.direction));
    return {length * axis.direction.x, length * axis.direction.y};
}

Point AxisGrid::nearest(Point place) const {
    const auto [a, b] = steps_;
    const double area = cross(a, b);
    const double u = std::floor(cross(place, b) / area);
    const double v = std::floor(cross(a, place) / area);
    Point best;
    double least = HUGE_VAL;
    for (const double du : {0, 1}) {
        for (const double dv : {0, 1}) {
            const Point crossing = sum({(u + du) * a.x, (u + du) * a.y}, b, v + dv);
            const Point way = sum(place, crossing, -1);
            if (dot(way, way) >= least) continue;
            least = dot(way, way);
            best = crossing;
        }
    }
    return best;
}

} // namespace easel::session
