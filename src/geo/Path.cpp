// The segments, measures and pieces of a path. Its shape has a file of its own.
#include "geo/Path.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "geo/Cubic.h"
#include "geo/Vector.h"

namespace kzo::geo {

namespace {

bool isFinite(Point p) { return std::isfinite(p.x) && std::isfinite(p.y); }

/// The area between a curve and its chord, and of the triangle that the chord makes with `origin`, by Green's theorem.
double sweptArea(const Bezier& b, Point origin) {
    const Point out = b.p1 - b.p0;
    const Point in = b.p2 - b.p0;
    const Point chord = b.p3 - b.p0;
    return 0.15 * (cross(out, in) + cross(out, chord)) + 0.3 * cross(in, chord) + 0.5 * cross(b.p0 - origin, chord);
}

/// Whether the curve, whose y runs one way from t1 to t2 and passes `point.y`, does so to the right of `point`.
bool passesRight(const Bezier& b, double t1, double t2, bool rising, Point point) {
    constexpr int kMostHalvings = 60;
    for (int i = 0; i < kMostHalvings; ++i) {
        const double middle = 0.5 * (t1 + t2);
        if (!(middle > t1 && middle < t2)) break;
        ((b.evaluate(middle).y > point.y) == rising ? t2 : t1) = middle;
    }
    return b.evaluate(t2).x > point.x;
}

/// Whether an odd number of crossings of the curve lies on the ray from `point` to the right.
bool crossesRay(const Bezier& b, Point point) {
    const auto [lowX, highX] = std::minmax({b.p0.x, b.p1.x, b.p2.x, b.p3.x});
    const auto [lowY, highY] = std::minmax({b.p0.y, b.p1.y, b.p2.y, b.p3.y});
    if (!(point.y >= lowY && point.y <= highY && point.x < highX)) return false;
    const bool above = b.p0.y > point.y;
    // Whatever the curve does further to the right, what counts is whether its ends lie on two sides.
    if (point.x < lowX) return above != (b.p3.y > point.y);
    const Turns found = turns(b.p0.y, b.p1.y, b.p2.y, b.p3.y);
    bool odd = false;
    double from = 0.0;
    bool fromAbove = above;
    for (std::size_t i = 0; i <= found.count; ++i) {
        const double to = i < found.count ? found.t[i] : 1.0;
        const bool toAbove = b.evaluate(to).y > point.y;
        if (fromAbove != toAbove && passesRight(b, from, to, toAbove, point)) odd = !odd;
        from = to;
        fromAbove = toAbove;
    }
    return odd;
}

/// A segment written between two anchors, as the handles that face each other.
void join(Anchor& a, const Bezier& seg, Anchor& b) {
    a.out = seg.p1;
    b.in = seg.p2;
}

} // namespace

Bezier Path::seg(std::size_t index) const {
    const Anchor& a = anchors[index];
    const Anchor& b = anchors[index + 1 == anchors.size() ? 0 : index + 1];
    return {a.p, a.out, b.in, b.p};
}

bool Path::finite() const {
    return std::all_of(anchors.begin(), anchors.end(),
                       [](const Anchor& a) { return isFinite(a.p) && isFinite(a.in) && isFinite(a.out); });
}

// Measures

double Path::length() const {
    double sum = 0.0;
    for (std::size_t i = 0; i < segCount(); ++i) sum += seg(i).length();
    return sum;
}

double Path::sublength(Place from, Place to) const {
    if (segCount() == 0) return 0.0;
    // Once round, the two places are one and the same.
    if (closed && to - from >= static_cast<double>(segCount())) return length();
    SegPlace a = split(from);
    SegPlace b = split(to);
    const auto order = [](const SegPlace& p) { return std::pair(p.seg, p.t); };
    if (!closed && order(b) < order(a)) std::swap(a, b);
    if (a.seg == b.seg && a.t <= b.t) return seg(a.seg).sublength(a.t, b.t);
    double sum = seg(a.seg).sublength(a.t, 1.0) + seg(b.seg).sublength(0.0, b.t);
    for (std::size_t i = (a.seg + 1) % segCount(); i != b.seg; i = (i + 1) % segCount()) sum += seg(i).length();
    return sum;
}

std::optional<Place> Path::placeAtLength(double length) const {
    if (segCount() == 0) return std::nullopt;
    for (std::size_t i = 0; i < segCount(); ++i) {
        const Bezier b = seg(i);
        const double whole = b.length();
        if (length < whole) return static_cast<double>(i) + b.tAtLength(length);
        length -= whole;
    }
    return static_cast<double>(segCount());
}

double Path::signedArea() const {
    if (anchors.empty()) return 0.0;
    const Point origin = anchors.front().p;
    double sum = 0.0;
    for (std::size_t i = 0; i < segCount(); ++i) sum += sweptArea(seg(i), origin);
    return sum;
}

bool Path::contains(Point point) const {
    bool inside = false;
    for (std::size_t i = 0; i < segCount(); ++i) inside ^= crossesRay(seg(i), point);
    if (closed || anchors.size() < 2) return inside;
    const Point first = anchors.front().p;
    const Point last = anchors.back().p;
    return inside ^ crossesRay({last, last, first, first}, point);
}

// Pieces

SegPlace Path::split(Place place) const {
    const auto count = static_cast<double>(segCount());
    if (closed) place -= count * std::floor(place / count);
    if (!(place > 0.0)) return {0, 0.0};
    if (place >= count) return closed ? SegPlace{0, 0.0} : SegPlace{segCount() - 1, 1.0};
    const double whole = std::floor(place);
    return {static_cast<std::size_t>(whole), place - whole};
}

Point Path::at(Place place) const {
    if (segCount() == 0) return anchors.empty() ? Point() : anchors.front().p;
    const SegPlace found = split(place);
    return seg(found.seg).evaluate(found.t);
}

Path Path::piece(Place from, Place to) const {
    Path made;
    if (segCount() == 0) return made;
    const SegPlace a = split(from);
    const SegPlace b = split(to);
    const bool within = a.seg == b.seg && a.t < b.t;
    const Bezier start = seg(a.seg).section(a.t, within ? b.t : 1.0);
    made.anchors.emplace_back(start.p0);
    if (a.t == 0.0) made.anchors.back() = {start.p0, start.p0, start.p1, anchors[a.seg].corner};
    const auto append = [&](const Bezier& piece, bool corner) {
        Anchor end(piece.p3);
        end.corner = corner;
        join(made.anchors.back(), piece, end);
        made.anchors.push_back(end);
    };
    const auto corner = [&](std::size_t seg) { return anchors[(seg + 1) % anchors.size()].corner; };
    append(start, within && b.t < 1.0 ? true : corner(a.seg));
    if (within) return made;
    for (std::size_t i = (a.seg + 1) % segCount(); i != b.seg; i = (i + 1) % segCount()) append(seg(i), corner(i));
    if (b.t > 0.0) append(seg(b.seg).section(0.0, b.t), b.t < 1.0 ? true : corner(b.seg));
    return made;
}

void Path::insertAt(std::size_t index, double t) {
    const Bezier whole = seg(index);
    const Bezier first = whole.section(0.0, t);
    const Bezier second = whole.section(t, 1.0);
    const bool straight = !whole.curved();
    Anchor made(first.p3, first.p2, second.p1, straight);
    join(anchors[index], first, made);
    join(made, second, anchors[(index + 1) % anchors.size()]);
    anchors.insert(anchors.begin() + static_cast<std::ptrdiff_t>(index) + 1, made);
}

void Path::reverse() {
    std::reverse(anchors.begin(), anchors.end());
    for (Anchor& anchor : anchors) std::swap(anchor.in, anchor.out);
}

} // namespace kzo::geo
