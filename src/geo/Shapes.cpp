// Point computations of elementary shapes.
#include "geo/Shapes.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <utility>

#include "geo/Vector.h"

namespace kzo::geo {

namespace {

/// The customary handle of a quarter circle of radius 1: the curve's middle lies on the circle.
constexpr double kQuarterHandle = 4.0 / 3.0 * (std::numbers::sqrt2 - 1.0);

/// What is not finite stays so: comparing would lose it, and a shape without an edge would be drawn.
Box ordered(const Box& box) {
    if (!std::isfinite(box.min.x + box.min.y + box.max.x + box.max.y)) return box;
    return {{std::min(box.min.x, box.max.x), std::min(box.min.y, box.max.y)},
            {std::max(box.min.x, box.max.x), std::max(box.min.y, box.max.y)}};
}

/// A unit vector, clockwise from straight up by this part of a turn; exact at quarters.
Point direction(double turns) {
    const double quarters = turns * 4.0;
    const double nearest = std::round(quarters);
    const double rest = (quarters - nearest) * std::numbers::pi / 2.0;
    const Point v{std::sin(rest), -std::cos(rest)};
    switch ((static_cast<int>(nearest) % 4 + 4) % 4) {
    case 1: return {-v.y, v.x};
    case 2: return {-v.x, -v.y};
    case 3: return {v.y, -v.x};
    default: return v;
    }
}

/// What two cuts leave of a side; nothing where it is no longer than `rounding`, so that they meet in its middle.
std::pair<double, double> sideBetween(double low, double high, double cut, double rounding) {
    const std::pair<double, double> side(low + cut, high - cut);
    if (side.second - side.first > rounding || !std::isfinite(cut)) return side;
    const double middle = 0.5 * low + 0.5 * high;
    return {middle, middle};
}

/// Eight anchors where corners are cut off, clockwise from the top side's left end. `cut` is how far along its sides.
Path withoutCorners(const Box& box, double cut) {
    const auto [left, top] = box.min;
    const auto [right, bottom] = box.max;
    const double rounding = 4.0 * std::numeric_limits<double>::epsilon() * std::max(largest(box.min), largest(box.max));
    const auto [x1, x2] = sideBetween(left, right, cut, rounding);
    const auto [y1, y2] = sideBetween(top, bottom, cut, rounding);
    const Point points[] = {{x1, top},    {x2, top},    {right, y1}, {right, y2},
                            {x2, bottom}, {x1, bottom}, {left, y2},  {left, y1}};
    Path path{{}, true};
    for (const Point p : points) path.anchors.emplace_back(p);
    return path;
}

/// Takes out the sides that have no length: of two anchors in one place the handles that lead away from it stay.
void mergeEmptySides(Path& path) {
    std::vector<Anchor> kept;
    for (const Anchor& anchor : path.anchors) {
        if (!kept.empty() && kept.back().p == anchor.p)
            kept.back().out = anchor.out;
        else
            kept.push_back(anchor);
    }
    if (kept.size() > 1 && kept.back().p == kept.front().p) {
        kept.front().in = kept.back().in;
        kept.pop_back();
    }
    path.anchors = std::move(kept);
}

/// At most half the shorter side; what is not finite stays so.
double heldCut(const Box& box, double size) {
    return std::isfinite(size) ? std::clamp(size, 0.0, 0.5 * std::min(box.width(), box.height())) : size;
}

} // namespace

Path ellipse(Point center, double width, double height) {
    const double rx = 0.5 * std::abs(width);
    const double ry = 0.5 * std::abs(height);
    Path path{{}, true};
    for (int quarter = 0; quarter < 4; ++quarter) {
        const Point out = direction(quarter / 4.0);
        const Point along = direction((quarter + 1) / 4.0);
        const Point anchor = center + Point{out.x * rx, out.y * ry};
        const Point handle{along.x * rx * kQuarterHandle, along.y * ry * kQuarterHandle};
        path.anchors.emplace_back(anchor, anchor - handle, anchor + handle, false);
    }
    return path;
}

Path rectangle(const Box& box) {
    const Box b = ordered(box);
    return polygon({b.min, {b.max.x, b.min.y}, b.max, {b.min.x, b.max.y}});
}

Path roundedRectangle(const Box& box, double radius) {
    const Box b = ordered(box);
    const double cut = heldCut(b, radius);
    if (cut == 0.0) return rectangle(b);
    Path path = withoutCorners(b, cut);
    const double handle = cut * kQuarterHandle;
    for (std::size_t i = 0; i < 8; ++i) {
        // Travel at the two ends of side k goes clockwise from the right.
        const std::size_t side = i / 2;
        const Point along = scaled(direction((static_cast<double>(side) + 1.0) / 4.0), handle);
        Anchor& anchor = path.anchors[i];
        (i % 2 == 0 ? anchor.in : anchor.out) = i % 2 == 0 ? anchor.p - along : anchor.p + along;
        anchor.corner = false;
    }
    mergeEmptySides(path);
    return path;
}

Path chamferedRectangle(const Box& box, double size) {
    const Box b = ordered(box);
    const double cut = heldCut(b, size);
    if (cut == 0.0) return rectangle(b);
    Path path = withoutCorners(b, cut);
    mergeEmptySides(path);
    return path;
}

std::optional<Path> arc(Point start, Point through, Point end) {
    const Point toStart = start - through;
    const Point toEnd = end - through;
    if (toStart == Point() || toEnd == Point() || start == end) return std::nullopt;
    const double turn = cross(toStart, toEnd);
    // Of three points on a line rounding leaves some turn.
    constexpr double kStraight = 1e-12;
    const bool straight = std::abs(turn) <= kStraight * std::sqrt(dot(toStart, toStart) * dot(toEnd, toEnd));
    if (straight && dot(toStart, toEnd) > 0.0) return std::nullopt;
    // The angle at `through` is half of what the arc leaves of a whole turn. Computed so, an arc that is all but
    // straight needs no center.
    const double sweep = -std::copysign(2.0 * std::atan2(std::abs(turn), -dot(toStart, toEnd)), turn);
    if (!std::isfinite(sweep)) return std::nullopt;
    Path path;
    if (straight) {
        path.anchors = {Anchor(start), Anchor(end)};
        return path;
    }
    const int pieces = std::max(1, static_cast<int>(std::ceil(std::abs(sweep) / (std::numbers::pi / 2.0) - 1e-12)));
    const Point chord = end - start;
    const Point left{-chord.y, chord.x};
    const auto rotated = [](Point v, double by) {
        return Point{v.x * std::cos(by) - v.y * std::sin(by), v.x * std::sin(by) + v.y * std::cos(by)};
    };
    const double radius = norm(chord) / (2.0 * std::abs(std::sin(0.5 * sweep)));
    const double handle = radius * 4.0 / 3.0 * std::tan(std::abs(sweep) / pieces / 4.0);
    const Point center = between(start, end, 0.5) + scaled(left, 0.5 / std::tan(0.5 * sweep));
    const Point travel = rotated(scaled(chord, 1.0 / norm(chord)), -0.5 * sweep);
    for (int i = 0; i <= pieces; ++i) {
        const double by = sweep * i / pieces;
        const Point anchor = i == 0 ? start : i == pieces ? end : center + rotated(start - center, by);
        const Point along = scaled(rotated(travel, by), handle);
        path.anchors.emplace_back(anchor, i == 0 ? anchor : anchor - along, i == pieces ? anchor : anchor + along,
                                  i == 0 || i == pieces);
    }
    return path;
}

std::optional<Path> regularPolygon(Point center, Point first, int sides) {
    if (sides < 3) return std::nullopt;
    const Point arm = first - center;
    std::vector<Point> corners;
    for (int i = 0; i < sides; ++i) {
        const Point up = direction(static_cast<double>(i) / sides);
        // Turned by the same angle as straight up is turned into `up`.
        corners.push_back(i == 0 ? first : center + Point{-arm.x * up.y - arm.y * up.x, arm.x * up.x - arm.y * up.y});
    }
    return polygon(corners);
}

std::optional<Path> star(Point center, int tips, double tipRadius, double notchRadius) {
    if (tips < 2) return std::nullopt;
    std::vector<Point> corners;
    corners.reserve(2 * static_cast<std::size_t>(tips));
    for (int i = 0; i < 2 * tips; ++i)
        corners.push_back(center + scaled(direction(0.5 * i / tips), i % 2 == 0 ? tipRadius : notchRadius));
    return polygon(corners);
}

Path polygon(const std::vector<Point>& corners) {
    Path path{{}, true};
    path.anchors.reserve(corners.size());
    for (const Point corner : corners) path.anchors.emplace_back(corner);
    return path;
}

} // namespace kzo::geo
