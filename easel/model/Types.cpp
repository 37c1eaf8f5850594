// Boxes, and the bounds and moves of path data.
#include "model/Types.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace easel::model {

namespace {

constexpr double kSameMove = 1e-9; ///< against the size of coordinates: of points that were moved together

/// Adds where the cubic with these four coordinates turns back, inside (0, 1): the zeros of its derivative
/// 3 (a t^2 + 2 b t + c).
void addTurns(Turns& turns, double p0, double p1, double p2, double p3) {
    const double a = p3 - 3 * p2 + 3 * p1 - p0;
    const double b = p2 - 2 * p1 + p0;
    const double c = p1 - p0;
    const double root = std::sqrt(std::max(b * b - a * c, 0.0));
    // Without cancellation, and for a = 0 as well: q / a and c / q.
    const double q = b < 0 ? root - b : -root - b;
    for (const double t : {q / a, c / q})
        if (t > 0 && t < 1) turns.t[turns.count++] = t;
}

double cubicAt(double p0, double p1, double p2, double p3, double t) {
    const double s = 1 - t;
    return s * s * s * p0 + 3 * s * s * t * p1 + 3 * s * t * t * p2 + t * t * t * p3;
}

bool isMovedBy(const PathData& was, const PathData& is, Point move) {
    if (was.closed != is.closed || was.smooth != is.smooth) return false;
    const auto agrees = [](double from, double to, double by) {
        return std::fabs(to - from - by) <= kSameMove * (1 + std::fabs(from) + std::fabs(to));
    };
    for (std::size_t i = 0; i < was.points.size(); ++i) {
        for (const auto part : {&PathPoint::anchor, &PathPoint::in, &PathPoint::out}) {
            const Point& from = was.points[i].*part;
            const Point& to = is.points[i].*part;
            if (!agrees(from.x, to.x, move.x) || !agrees(from.y, to.y, move.y)) return false;
        }
    }
    return true;
}

} // namespace

Turns turnsOf(const Cubic& curve) {
    Turns turns;
    addTurns(turns, curve[0].x, curve[1].x, curve[2].x, curve[3].x);
    addTurns(turns, curve[0].y, curve[1].y, curve[2].y, curve[3].y);
    return turns;
}

Point pointAt(const Cubic& c, double t) {
    return {cubicAt(c[0].x, c[1].x, c[2].x, c[3].x, t), cubicAt(c[0].y, c[1].y, c[2].y, c[3].y, t)};
}

bool Box::meets(const Box& other) const {
    return left <= other.right && other.left <= right && top <= other.bottom && other.top <= bottom;
}

Affine operator*(const Affine& first, const Affine& second) {
    const Point moved = second({first.e, first.f});
    return {second.a * first.a + second.c * first.b,
            second.b * first.a + second.d * first.b,
            second.a * first.c + second.c * first.d,
            second.b * first.c + second.d * first.d,
            moved.x,
            moved.y};
}

Affine inverse(const Affine& affine) {
    if (affine.isMove()) return {.e = -affine.e, .f = -affine.f}; // without rounding
    const bool isScale = affine.b == 0 && affine.c == 0;          // with less rounding
    const double area = affine.a * affine.d - affine.b * affine.c;
    Affine back = isScale ? Affine{1 / affine.a, 0, 0, 1 / affine.d}
                          : Affine{affine.d / area, -affine.b / area, -affine.c / area, affine.a / area};
    const Point moved = back({affine.e, affine.f});
    back.e = -moved.x;
    back.f = -moved.y;
    return back;
}

Box transformed(const Box& box, const Affine& by) {
    Box result;
    if (box.isEmpty()) return result;
    for (const double x : {box.left, box.right})
        for (const double y : {box.top, box.bottom}) result.include(by({x, y}));
    return result;
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

SmoothPoints::SmoothPoints(const PointFlags& flags) {
    const std::size_t first = std::min(flags.size(), kFirst);
    for (std::size_t i = 0; i < first; ++i) first_ |= static_cast<std::uint64_t>(flags[i]) << i;
    const auto rest = flags.begin() + static_cast<std::ptrdiff_t>(first);
    if (std::find(rest, flags.end(), true) != flags.end()) rest_ = Shared(PointFlags(rest, flags.end()));
}

PointFlags SmoothPoints::flags(std::size_t count) const {
    PointFlags flags(count);
    if (*this)
        for (std::size_t i = 0; i < count; ++i) flags[i] = (*this)[i];
    return flags;
}

void PathData::setCorners(std::size_t index, const PointFlags& corners) {
    if (!smooth && std::find(corners.begin(), corners.end(), false) == corners.end()) return;
    PointFlags flags = smooth.flags(points.size());
    for (std::size_t i = 0; i < corners.size(); ++i) flags[index + i] = !corners[i];
    smooth = SmoothPoints(flags);
}

void PathData::resize(std::size_t count) {
    if (smooth) {
        PointFlags flags = smooth.flags(points.size());
        flags.resize(count);
        smooth = SmoothPoints(flags);
    }
    points.resize(count);
}

void PathData::insert(std::size_t index, const PathPoint* first, std::size_t count) {
    const auto at = static_cast<std::ptrdiff_t>(index);
    if (smooth) {
        PointFlags flags = smooth.flags(points.size());
        flags.insert(flags.begin() + at, count, false);
        smooth = SmoothPoints(flags);
    }
    points.insert(points.begin() + at, first, first + count);
}

void PathData::erase(std::size_t index, std::size_t count) {
    const auto cut = [&](auto& list) {
        const auto at = list.begin() + static_cast<std::ptrdiff_t>(index);
        list.erase(at, at + static_cast<std::ptrdiff_t>(count));
    };
    if (smooth) {
        PointFlags flags = smooth.flags(points.size());
        cut(flags);
        smooth = SmoothPoints(flags);
    }
    cut(points);
}

void PathData::reverse() {
    if (smooth) {
        PointFlags flags = smooth.flags(points.size());
        std::reverse(flags.begin(), flags.end());
        smooth = SmoothPoints(flags);
    }
    std::reverse(points.begin(), points.end());
    for (PathPoint& point : points) std::swap(point.in, point.out);
}

Cubic PathData::segment(std::size_t index) const {
    const PathPoint& start = points[index];
    const PathPoint& end = points[index + 1 == points.size() ? 0 : index + 1];
    return {start.anchor, start.out, end.in, end.anchor};
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

std::optional<Point> commonMove(const OutlineList& was, const OutlineList& is) {
    if (was.size() != is.size()) return std::nullopt;
    std::optional<Point> move;
    for (std::size_t i = 0; i < was.size(); ++i) {
        if (was[i]->points.size() != is[i]->points.size()) return std::nullopt;
        if (was[i]->points.empty()) continue;
        const Point from = was[i]->points[0].anchor;
        const Point to = is[i]->points[0].anchor;
        if (!move) move = Point{to.x - from.x, to.y - from.y};
        if (!isMovedBy(*was[i], *is[i], *move)) return std::nullopt;
    }
    return move;
}

Box TextData::bounds() const {
    constexpr double kWidth = 0.5; // of a letter, in sizes; above and below the baseline likewise
    constexpr double kAscent = 0.8;
    constexpr double kDescent = 0.2;
    const auto letters = std::count_if(contents.begin(), contents.end(), [](char c) { return (c & 0xC0) != 0x80; });
    const double width = static_cast<double>(letters) * kWidth * size;
    const double part = justification == Justification::Left ? 0 : justification == Justification::Center ? 0.5 : 1;
    const Box box = orientation == Orientation::Vertical
                        ? Box{-size / 2, -part * width, size / 2, (1 - part) * width}
                        : Box{-part * width, -kAscent * size, (1 - part) * width, kDescent * size};
    return transformed(box, {turned[0], turned[1], turned[2], turned[3], anchor.x, anchor.y});
}

Box PathData::bounds() const {
    Box box;
    for (const PathPoint& point : points) box.include(point.anchor);
    for (std::size_t i = 0; i < segmentCount(); ++i) {
        const Cubic curve = segment(i);
        for (const double t : turnsOf(curve)) box.include(pointAt(curve, t));
    }
    return box;
}

Box OpaqueData::hull() const { return bounds ? transformed(*bounds, placed()) : Box{}; }

const std::string& Style::fillServer() const {
    static const std::string none;
    return servers ? servers->fill : none;
}

const std::string& Style::strokeServer() const {
    static const std::string none;
    return servers ? servers->stroke : none;
}

void Style::setServers(Servers served) {
    servers = served == Servers() ? Shared<Servers>() : Shared(std::move(served));
}

void Style::setFill(const std::optional<Color>& color) {
    setServers({{}, strokeServer()});
    fill = color.has_value();
    if (color) fillColor = *color;
}

void Style::setStroke(const std::optional<Color>& color) {
    setServers({fillServer(), {}});
    stroke = color.has_value();
    if (color) strokeColor = *color;
}

const Dashes& Style::dashes() const {
    static const Dashes solid;
    return dash ? *dash : solid;
}

void Style::setDashes(const Dashes& dashes) { dash = dashes == Dashes() ? Shared<Dashes>() : Shared(dashes); }

} // namespace easel::model
