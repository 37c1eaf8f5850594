// What shape a path has.
#include "geo/Path.h"

#include <array>
#include <cmath>
#include <numbers>

#include "geo/Vector.h"

namespace kzo::geo {

namespace {

/// The corners of a closed polygon with straight sides: anchors that repeat, or where nothing turns, are left out.
std::vector<Point> corners(const Path& path) {
    constexpr double kTurns = 1e-9;
    std::vector<Point> distinct;
    for (const Anchor& anchor : path.anchors) {
        if (distinct.empty() || distinct.back() != anchor.p) distinct.push_back(anchor.p);
    }
    while (distinct.size() > 1 && distinct.back() == distinct.front()) distinct.pop_back();
    std::vector<Point> found;
    const std::size_t count = distinct.size();
    for (std::size_t i = 0; i < count; ++i) {
        const Point before = distinct[i] - distinct[(i + count - 1) % count];
        const Point after = distinct[(i + 1) % count] - distinct[i];
        const bool straightOn = std::abs(cross(before, after)) <= kTurns * norm(before) * norm(after);
        if (!straightOn || dot(before, after) < 0) found.push_back(distinct[i]);
    }
    return found;
}

} // namespace

bool Path::isStraight() const {
    if (closed || anchors.size() < 2) return false;
    const Point start = anchors.front().p;
    const Point chord = anchors.back().p - start;
    double reach = 0.0;
    for (const Anchor& anchor : anchors) reach = std::max(reach, largest(anchor.p - start));
    const double length = norm(chord);
    // As strict as a single curve is about its handles.
    constexpr double kStraight = 1e-9;
    const double limit = kStraight * reach;
    if (!(length > limit)) return false;
    const Point unit = scaled(chord, 1.0 / length);
    double before = 0.0;
    for (std::size_t i = 0; i < segCount(); ++i) {
        const Bezier b = seg(i);
        const Point end = b.p3 - start;
        const double along = dot(end, unit);
        const bool returns = b.p0 != b.p3 ? b.curved() : b.p1 != b.p0 || b.p2 != b.p3;
        if (returns || along < before - limit || std::abs(cross(end, unit)) > limit) return false;
        before = along;
    }
    return true;
}

bool Path::hasStraightSegs() const {
    if (!finite()) return false;
    for (std::size_t i = 0; i < segCount(); ++i) {
        const Bezier b = seg(i);
        if (b.p0 != b.p3 && !b.curved()) return true;
    }
    return false;
}

bool Path::isCircular() const {
    constexpr double kStray = 1.0 / 500.0;
    constexpr double kOnce = 0.01; // of the area; twice round, or there and back, is far from it
    constexpr int kSamples = 8;
    const std::size_t count = segCount();
    if (!closed || count < 2) return false;
    const double third = static_cast<double>(count) / 3.0;
    const auto circle = circleThrough(at(0.0), at(third), at(2.0 * third));
    if (!circle) return false;
    for (std::size_t i = 0; i < count; ++i) {
        const Bezier b = seg(i);
        for (int k = 0; k < kSamples; ++k) {
            const double radius = norm(b.evaluate(static_cast<double>(k) / kSamples) - circle->center);
            if (!(std::abs(radius - circle->radius) <= kStray * circle->radius)) return false;
        }
    }
    const double whole = std::numbers::pi * circle->radius * circle->radius;
    return std::abs(std::abs(signedArea()) - whole) <= kOnce * whole;
}

bool Path::isRectangular() const {
    constexpr double kRightAngle = 1e-3; // the cosine of what still counts as one
    if (!closed) return false;
    for (std::size_t i = 0; i < segCount(); ++i) {
        const Bezier b = seg(i);
        if (b.p0 == b.p3 ? b.p1 != b.p0 || b.p2 != b.p3 : b.curved()) return false;
    }
    const std::vector<Point> four = corners(*this);
    if (four.size() != 4) return false;
    double sense = 0.0;
    for (std::size_t i = 0; i < 4; ++i) {
        const Point before = four[i] - four[(i + 3) % 4];
        const Point after = four[(i + 1) % 4] - four[i];
        const double turn = cross(before, after);
        if (!(std::abs(dot(before, after)) <= kRightAngle * norm(before) * norm(after))) return false;
        if (sense * turn < 0.0) return false;
        sense = turn;
    }
    return true;
}

} // namespace kzo::geo
