// Where a cubic turns, and curves resized so that products of their coordinates stay finite.
#include "geo/Cubic.h"

#include <algorithm>
#include <cmath>

#include "geo/Vector.h"

namespace kzo::geo {

namespace {

constexpr double kUsable = 1e100;

/// A power of 2, which changes no digit, about as large as a value; 1 where products of such values can be told.
double unitFor(double value) {
    if (!(value > kUsable || (value > 0.0 && value < 1.0 / kUsable)) || !std::isfinite(value)) return 1.0;
    return std::exp2(std::ilogb(value));
}

} // namespace

Turns turns(double p0, double p1, double p2, double p3) {
    Turns found;
    double first = p1 - p0;
    double second = p2 - p1;
    double third = p3 - p2;
    const bool never = (first >= 0 && second >= 0 && third >= 0) || (first <= 0 && second <= 0 && third <= 0);
    if (never) return found;
    const double unit = unitFor(std::max({std::abs(first), std::abs(second), std::abs(third)}));
    first /= unit;
    second /= unit;
    third /= unit;
    // The roots of a·t² + 2·half·t + first, in the form that avoids cancellation; what is none is NaN or infinite.
    const double half = second - first;
    const double a = third - second - half;
    const double q = -(half + std::copysign(std::sqrt(half * half - a * first), half));
    for (const double t : {q / a, first / q}) {
        if (t > 0.0 && t < 1.0) found.t[found.count++] = t;
    }
    if (found.count == 2 && found.t[0] > found.t[1]) std::swap(found.t[0], found.t[1]);
    return found;
}

Resized usableSize(const Bezier& b) {
    const double size = unitFor(std::max({largest(b.p1 - b.p0), largest(b.p2 - b.p0), largest(b.p3 - b.p0)}));
    if (size == 1.0) return {b};
    const auto at = [&](Point p) { return Point{(p.x - b.p0.x) / size, (p.y - b.p0.y) / size}; };
    return {{Point(), at(b.p1), at(b.p2), at(b.p3)}, size};
}

} // namespace kzo::geo
