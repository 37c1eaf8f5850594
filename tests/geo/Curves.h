// Curves for tests of geometry: random ones, and all kinds of awkward ones.
#pragma once

#include <random>
#include <vector>

#include <2geom/bezier-curve.h>
#include <2geom/path.h>

#include "geo/Path.h"

namespace kzo::geo::test {

inline Geom::Point peer(Point p) { return {p.x, p.y}; }
inline Geom::CubicBezier peer(const Bezier& b) { return {peer(b.p0), peer(b.p1), peer(b.p2), peer(b.p3)}; }

inline Geom::Path peer(const Path& path) {
    Geom::Path made(peer(path.anchors.front().p));
    for (std::size_t i = 0; i < path.segCount(); ++i) made.append(peer(path.seg(i)));
    made.close();
    return made;
}

/// Makes the same curves at every run.
class Curves {
  public:
    explicit Curves(unsigned seed) : random_(seed) {}

    double number(double low, double high) { return std::uniform_real_distribution<double>(low, high)(random_); }
    Point point() { return {number(-300, 300), number(-300, 300)}; }

    /// Any control polygon: inflections, loops and sharp turns among them.
    Bezier any() { return {point(), point(), point(), point()}; }

    /// Coincident points, cusps, loops, all but straight curves, and lines that turn back, in turn.
    Bezier nasty() {
        const Point a = point();
        const Point b = point();
        const Point c = point();
        const auto near = [&](Point p) { return p.offset(number(-1e-7, 1e-7), number(-1e-7, 1e-7)); };
        const auto along = [&](double t) { return Point{a.x + t * (b.x - a.x), a.y + t * (b.y - a.y)}; };
        switch (kind_++ % 10) {
        case 0: return {a, a, b, c};
        case 1: return {a, b, c, c};
        case 2: return {a, a, b, b};
        case 3: return {a, a, a, b};
        case 4: return {a, b, a, b};
        case 5: return {a, {a.x + b.x, a.y + b.y}, b, {a.x + b.x - b.x, c.y}};
        case 6: return {a, b, c, a};
        case 7: return {a, near(along(0.3)), near(along(0.7)), b};
        case 8: return {a, along(number(-1, 2)), along(number(-1, 2)), b};
        default: return {a, c, {a.x + b.x - c.x, a.y + b.y - c.y}, near(a)}; // there and back
        }
    }

    Path path(std::size_t anchors, bool closed) {
        Path made{{}, closed};
        while (made.anchors.size() < anchors) made.anchors.emplace_back(point(), point(), point(), true);
        return made;
    }

  private:
    std::mt19937 random_;
    int kind_ = 0;
};

} // namespace kzo::geo::test
