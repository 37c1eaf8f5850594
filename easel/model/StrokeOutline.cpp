// Strokes as areas: offset curves, joins and caps.
#include "model/StrokeOutline.h"

#include <boost/geometry.hpp>
#include <boost/geometry/geometries/linestring.hpp>
#include <boost/geometry/geometries/multi_linestring.hpp>
#include <boost/geometry/geometries/multi_polygon.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/geometries/polygon.hpp>

#include <algorithm>
#include <cmath>

namespace easel::model {

namespace {

namespace bg = boost::geometry;

using Place = bg::model::d2::point_xy<double>;
using Line = bg::model::linestring<Place>;
using Lines = bg::model::multi_linestring<Line>;
using Area = bg::model::multi_polygon<bg::model::polygon<Place>>;

constexpr double kExact = 0.05;     ///< points that polygons may be off
constexpr double kMostPieces = 100; ///< of a curve
constexpr std::size_t kMostDashes = 10'000;
constexpr std::size_t kMostPoints = 50'000;
constexpr double kFarthest = 1e9; ///< points, from which on the arithmetic is not to be trusted

double lengthOf(Point a, Point b) { return std::hypot(b.x - a.x, b.y - a.y); }
Point between(Point a, Point b, double t) { return {a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t}; }

void addTo(std::vector<Point>& line, Point point) {
    if (line.empty() || !(line.back() == point)) line.push_back(point);
}

/// How far a curve is from its chords goes with its second differences.
void addCurve(std::vector<Point>& line, const Cubic& c) {
    const auto bend = [&](int i) {
        return std::hypot(c[i].x - 2 * c[i + 1].x + c[i + 2].x, c[i].y - 2 * c[i + 1].y + c[i + 2].y);
    };
    const double pieces = std::ceil(std::sqrt(6 * std::max(bend(0), bend(1)) / (8 * kExact)));
    const int count = isStraight(c) ? 1 : static_cast<int>(std::clamp(pieces, 1.0, kMostPieces));
    for (int i = 1; i < count; ++i) addTo(line, pointAt(c, double(i) / count));
    addTo(line, c[3]);
}

std::vector<Point> flattened(const PathData& path) {
    std::vector<Point> line;
    if (path.points.empty()) return line;
    addTo(line, path.points.front().anchor);
    for (std::size_t i = 0; i < path.segmentCount(); ++i) addCurve(line, path.segment(i));
    return line;
}

/// A ring, whose last point is its first, as a line that begins in the middle of a side, and goes on along it at its
/// end, so that each corner is joined.
std::vector<Point> opened(const std::vector<Point>& ring) {
    std::vector<Point> line{between(ring[0], ring[1], 0.5)};
    for (std::size_t i = 1; i < ring.size(); ++i) addTo(line, ring[i]);
    line.push_back(between(ring[0], ring[1], 0.75));
    return line;
}

/// The pieces of a line that dashes leave.
std::vector<std::vector<Point>> dashed(const std::vector<Point>& line, const Dashes& dashes) {
    std::vector<double> lengths(dashes.lengths.begin(), dashes.lengths.begin() + dashes.count);
    if (lengths.size() % 2 != 0) lengths.insert(lengths.end(), lengths.begin(), lengths.end());
    double period = 0;
    for (const double length : lengths) period += length;
    if (!(period > 0)) return {line};
    double rest = std::fmod(dashes.offset, period);
    if (rest < 0) rest += period;
    std::size_t at = 0;
    while (rest >= lengths[at]) {
        rest -= lengths[at];
        at = (at + 1) % lengths.size();
    }
    double left = lengths[at] - rest;
    std::vector<std::vector<Point>> pieces(1, {line.front()});
    for (std::size_t i = 1; i < line.size(); ++i) {
        Point from = line[i - 1];
        double length = lengthOf(from, line[i]);
        while (length > left && pieces.size() < kMostDashes) {
            from = between(from, line[i], left / length);
            length -= left;
            if (at % 2 == 0) addTo(pieces.back(), from);
            at = (at + 1) % lengths.size();
            left = lengths[at];
            if (at % 2 == 0) pieces.push_back({from});
        }
        left -= length;
        if (at % 2 == 0) addTo(pieces.back(), line[i]);
    }
    return pieces;
}

/// A miter that is a bevel where it would reach beyond the limit, which the library's own cuts off.
class Corner {
  public:
    explicit Corner(double limit) : limit_(limit) {}

    template <class Distance, class Range>
    bool apply(const Place& tip, const Place& vertex, const Place& before, const Place& after, const Distance& reach,
               Range& range) const {
        if (bg::equals(tip, vertex) || bg::equals(before, after)) return false;
        range.push_back(before);
        if (bg::distance(tip, vertex) <= std::fabs(reach) * limit_) range.push_back(tip);
        range.push_back(after);
        return true;
    }
    template <class Distance> Distance max_distance(const Distance& reach) const {
        return reach * std::max(limit_, 1.0);
    }

  private:
    double limit_;
};

template <class Join, class End> Area widened(const Lines& lines, double half, const Join& join, const End& end) {
    Area area;
    const std::size_t around = static_cast<std::size_t>(std::clamp(4 * std::sqrt(half / kExact), 16.0, 360.0));
    bg::buffer(lines, area, bg::strategy::buffer::distance_symmetric<double>(half),
               bg::strategy::buffer::side_straight(), join, end, bg::strategy::buffer::point_circle(around));
    return area;
}

template <class Join> Area widened(const Lines& lines, const Style& style, const Join& join) {
    const double half = style.strokeWidth / 2;
    if (style.cap == Cap::Round) return widened(lines, half, join, bg::strategy::buffer::end_round(36));
    return widened(lines, half, join, bg::strategy::buffer::end_flat());
}

Area widened(const Lines& lines, const Style& style) {
    if (style.join == Join::Round) return widened(lines, style, bg::strategy::buffer::join_round(36));
    return widened(lines, style, Corner(style.join == Join::Miter ? style.miterLimit : 0));
}

/// A square cap goes on by half the width.
void lengthen(std::vector<Point>& line, double by) {
    const auto beyond = [by](Point inner, Point end) { return between(inner, end, 1 + by / lengthOf(inner, end)); };
    if (line.size() < 2 || lengthOf(line[1], line[0]) == 0 || lengthOf(line[line.size() - 2], line.back()) == 0) return;
    const Point begin = beyond(line[1], line[0]);
    line.back() = beyond(line[line.size() - 2], line.back());
    line.front() = begin;
}

template <class Ring> PathData pathOf(const Ring& ring) {
    PathData path;
    path.closed = true;
    for (std::size_t i = 0; i + 1 < ring.size(); ++i) path.points.push_back(cornerAt({ring[i].x(), ring[i].y()}));
    return path;
}

} // namespace

std::vector<PathData> strokeOutline(const PathData& path, const Style& style) {
    std::vector<Point> line = flattened(path);
    std::vector<PathData> outline;
    const auto isNear = [](Point point) { return std::fabs(point.x) <= kFarthest && std::fabs(point.y) <= kFarthest; };
    const bool isDrawn = line.size() >= 2 && style.strokeWidth > 0;
    const bool isTrusted = style.strokeWidth <= kFarthest && std::all_of(line.begin(), line.end(), isNear);
    if (!isDrawn || !isTrusted || line.size() > kMostPoints) return outline;
    const bool isDashed = style.dashes().count > 0;
    const bool isRing = path.closed && line.size() > 2;
    if (isRing && !isDashed) line = opened(line);
    Lines lines;
    for (std::vector<Point>& piece :
         isDashed ? dashed(line, style.dashes()) : std::vector<std::vector<Point>>(1, line)) {
        if (piece.size() < 2) continue;
        if (style.cap == Cap::Projecting && (isDashed || !isRing)) lengthen(piece, style.strokeWidth / 2);
        Line& made = lines.emplace_back();
        for (const Point point : piece) made.emplace_back(point.x, point.y);
    }
    try {
        for (const auto& polygon : widened(lines, style)) {
            outline.push_back(pathOf(polygon.outer()));
            for (const auto& hole : polygon.inners()) outline.push_back(pathOf(hole));
        }
    } catch (const bg::exception&) { // the stroke crosses itself in a way that the library cannot follow
        outline.clear();
    }
    return outline;
}

} // namespace easel::model
