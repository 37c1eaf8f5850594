// Where a point or a box lies against a curve: nearest point, inside or outside, met or not. Knows no node.
#pragma once

#include <optional>

#include "model/Types.h"

namespace easel::model {

/// By how much a limit is widened where rounding must not give up what lies right on it.
constexpr double kWider = 1 + 1e-12;

struct NearestPoint {
    double distanceSquared = 0;
    Point point;
    double t = 0;
};

/// The point of the curve that is nearest to `from`, if its squared distance is at most `limit`. The smaller the limit,
/// the sooner a curve is given up.
[[nodiscard]] std::optional<NearestPoint> nearestOn(const Cubic& curve, Point from, double limit);

/// Whether a part of the curve lies in the box.
[[nodiscard]] bool meetsBox(const Cubic& curve, const Box& box);

/// How often the path goes round the point, clockwise as seen on the page less counter-clockwise; an open path is
/// closed by a straight line.
[[nodiscard]] int windingNumber(const PathData& path, Point point);

[[nodiscard]] constexpr bool isInside(int windingNumber, bool evenOdd) {
    return evenOdd ? windingNumber % 2 != 0 : windingNumber != 0;
}

[[nodiscard]] inline double distanceSquared(Point a, Point b) {
    return (a.x - b.x) * (a.x - b.x) + (a.y - b.y) * (a.y - b.y);
}

} // namespace easel::model
