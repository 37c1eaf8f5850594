// Offset curves turn where their curve does, so a stroke's edges are as far out as at the curve's ends and turns; joins
// and caps add to that.
#include "model/Bounds.h"

#include <cmath>

namespace easel::model {

namespace {

constexpr Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }
constexpr Point operator-(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }
constexpr Point operator*(Point a, double factor) { return {a.x * factor, a.y * factor}; }
constexpr double dot(Point a, Point b) { return a.x * b.x + a.y * b.y; }
constexpr double cross(Point a, Point b) { return a.x * b.y - a.y * b.x; }
constexpr Point leftOf(Point direction) { return {direction.y, -direction.x}; }

Point unit(Point vector) {
    const double length = std::hypot(vector.x, vector.y);
    return length > 0 ? vector * (1 / length) : Point{};
}

/// Of the curve's direction at its start; at its end for the reversed curve. None for a curve without length.
Point startDirection(const Cubic& curve) {
    for (std::size_t i = 1; i < 4; ++i)
        if (!(curve[i] == curve[0])) return unit(curve[i] - curve[0]);
    return {};
}
Point endDirection(const Cubic& curve) { return startDirection({curve[3], curve[2], curve[1], curve[0]}) * -1; }

Point directionAt(const Cubic& c, double t) {
    const double u = 1 - t;
    return unit((c[1] - c[0]) * (u * u) + (c[2] - c[1]) * (2 * u * t) + (c[3] - c[2]) * (t * t));
}

/// What a stroke covers.
class Stroke {
  public:
    explicit Stroke(const Style& style) : style_(style), half_(style.strokeWidth / 2) {}

    void add(const PathData& path) {
        const std::size_t count = path.segmentCount();
        std::vector<Cubic> curves;
        for (std::size_t i = 0; i < count; ++i) {
            const Cubic curve = path.segment(i);
            if (startDirection(curve) == Point{}) continue;
            addEdges(curve);
            curves.push_back(curve);
        }
        if (curves.empty()) {
            if (!path.points.empty()) addPoint(path);
            return;
        }
        for (std::size_t i = 1; i < curves.size(); ++i) addJoin(curves[i - 1], curves[i]);
        if (path.closed) return addJoin(curves.back(), curves.front());
        addCap(curves.front()[0], startDirection(curves.front()) * -1);
        addCap(curves.back()[3], endDirection(curves.back()));
    }

    [[nodiscard]] const Box& box() const { return box_; }

  private:
    void addBoth(Point point, Point direction) {
        const Point side = leftOf(direction) * half_;
        box_.include(point + side);
        box_.include(point - side);
    }

    void addEdges(const Cubic& curve) {
        addBoth(curve[0], startDirection(curve));
        addBoth(curve[3], endDirection(curve));
        if (isStraight(curve)) return;
        for (const double t : turnsOf(curve)) addBoth(pointAt(curve, t), directionAt(curve, t));
    }

    /// The round of a pen at `point` in the directions that `accepts` takes.
    template <class Accepts> void addRound(Point point, Accepts accepts) {
        for (const Point axis : {Point{1, 0}, Point{-1, 0}, Point{0, 1}, Point{0, -1}})
            if (accepts(axis)) box_.include(point + axis * half_);
    }

    void addJoin(const Cubic& before, const Cubic& after) {
        const Point in = endDirection(before);
        const Point out = startDirection(after);
        const double turn = cross(in, out);
        const Point from = leftOf(in) * (turn > 0 ? 1 : -1); // the outer side
        const Point to = leftOf(out) * (turn > 0 ? 1 : -1);
        const Point middle = unit(from + to);
        const Point at = after[0];
        if (style_.join == Join::Round) {
            const double widest = dot(from, middle);
            addRound(at, [&](Point axis) { return dot(axis, middle) >= widest; });
        }
        const double cosine = dot(from, middle); // of half the turn; the tip is that much farther out
        const bool pointed = style_.join == Join::Miter && cosine * style_.miterLimit >= 1;
        if (pointed) box_.include(at + middle * (half_ / cosine));
    }

    void addCap(Point end, Point outwards) {
        if (style_.cap == Cap::Projecting) addBoth(end + outwards * half_, outwards);
        if (style_.cap == Cap::Round) addRound(end, [&](Point axis) { return dot(axis, outwards) >= 0; });
    }

    /// A path without length shows as a dot if its caps reach out, or if it is closed and its joins do.
    void addPoint(const PathData& path) {
        const Point at = path.points.front().anchor;
        box_.include(at);
        if (style_.cap == Cap::Butt) return;
        box_.include(at + Point{half_, half_});
        box_.include(at - Point{half_, half_});
    }

    const Style& style_;
    double half_;
    Box box_;
};

Box ofPath(const Node& node, const BoundsOptions& options, const Affine& transform) {
    const Style& style = node.style();
    if (!options.unpainted && !style.isFilled() && !style.isStroked()) return {};
    PathData path = node.path();
    for (PathPoint& point : path.points)
        for (Point* const place : {&point.anchor, &point.in, &point.out}) *place = transform(*place);
    Box box = options.controls ? path.hull() : path.bounds();
    if (!options.strokes || !style.isStroked()) return box;
    Stroke stroke(style);
    stroke.add(path);
    box.include(stroke.box());
    return box;
}

Box ofOpaque(const Node& node, const Affine& transform) {
    if (transform == Affine{}) return node.hull();
    OpaqueData data = node.opaque();
    data.place(node.placed() * transform);
    return data.hull();
}

} // namespace

Box boundsOf(const Node& node, const BoundsOptions& options, const Affine& transform) {
    Box box;
    const auto counts = [&](const Node& at) {
        return (options.hidden || !at.hidden()) && (options.unselected || at.isContainer() || at.selected());
    };
    for (const Node* at = &node; at;) {
        const bool in = counts(*at);
        if (in && at->type() == NodeType::Path) box.include(ofPath(*at, options, transform));
        if (in && at->type() == NodeType::Opaque) box.include(ofOpaque(*at, transform));
        at = in ? nextWithin(node, *at) : nextAfter(node, *at);
    }
    return box;
}

} // namespace easel::model
