// Where a point or a box lies against a curve: nearest point, inside or outside, met or not. Cubic curves given by
// their four control points; straight ones have their handles retracted. Knows no tolerance and no node.
#pragma once

#include "model/Types.h"

namespace easel::model {

struct NearestPoint {
    double distanceSquared = 0;
    Point point;
    double t = 0;
};

/// The point of the curve from `start` to `end` that is nearest to `from`.
[[nodiscard]] NearestPoint nearestOnSegment(const PathPoint& start, const PathPoint& end, Point from);

/// Whether a part of the curve from `start` to `end` lies in the box.
[[nodiscard]] bool meetsBox(const PathPoint& start, const PathPoint& end, const Box& box);

/// How often the path goes round the point, clockwise as seen on the page less counter-clockwise; an open path is
/// closed by a straight line.
[[nodiscard]] int windingNumber(const PathData& path, Point point);

/// Whether the even-odd rule counts the point as inside; an open path is closed by a straight line.
[[nodiscard]] bool isInside(const PathData& path, Point point);

[[nodiscard]] inline double distanceSquared(Point a, Point b) {
    return (a.x - b.x) * (a.x - b.x) + (a.y - b.y) * (a.y - b.y);
}

} // namespace easel::model
