// Straight segments are solved exactly. Curved ones are halved as long as the box of a piece's control points could
// contain something nearer than what is known; short pieces are finished by Newton steps.
#include "model/Nearest.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace easel::model {

namespace {

constexpr int kNewtonDepth = 4; // pieces of a sixteenth of the curve
constexpr int kNewtonSteps = 8;
constexpr double kParameterError = 1e-14;

Point mix(Point a, Point b, double t) { return {a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t}; }

Point pointOn(const Cubic& c, double t) {
    if (t == 1) return c[3]; // neighbouring curves must meet in exactly one point
    const Point ab = mix(c[0], c[1], t);
    const Point bc = mix(c[1], c[2], t);
    const Point cd = mix(c[2], c[3], t);
    return mix(mix(ab, bc, t), mix(bc, cd, t), t);
}

std::pair<Cubic, Cubic> halves(const Cubic& c) {
    const Point ab = mix(c[0], c[1], 0.5);
    const Point bc = mix(c[1], c[2], 0.5);
    const Point cd = mix(c[2], c[3], 0.5);
    const Point abc = mix(ab, bc, 0.5);
    const Point bcd = mix(bc, cd, 0.5);
    const Point middle = mix(abc, bcd, 0.5);
    return {{c[0], ab, abc, middle}, {middle, bcd, cd, c[3]}};
}

double squaredDistanceToBox(const Cubic& c, Point from) {
    Box box;
    for (const Point& control : c) box.include(control);
    const Point inBox{std::clamp(from.x, box.left, box.right), std::clamp(from.y, box.top, box.bottom)};
    return distanceSquared(inBox, from);
}

void improve(NearestPoint& best, const Cubic& c, double t, Point from) {
    const Point at = pointOn(c, t);
    const double squared = distanceSquared(at, from);
    if (squared < best.distanceSquared) best = {squared, at, t};
}

/// Looks for a zero of (B(t) - from) * B'(t) near `t`.
void newton(NearestPoint& best, const Cubic& c, double t, Point from) {
    // Power basis of the curve relative to `from`.
    const Point d{c[0].x - from.x, c[0].y - from.y};
    const Point l{3 * (c[1].x - c[0].x), 3 * (c[1].y - c[0].y)};
    const Point q{3 * (c[0].x - 2 * c[1].x + c[2].x), 3 * (c[0].y - 2 * c[1].y + c[2].y)};
    const Point k{c[3].x - c[0].x + 3 * (c[1].x - c[2].x), c[3].y - c[0].y + 3 * (c[1].y - c[2].y)};
    for (int step = 0; step < kNewtonSteps; ++step) {
        const Point at{d.x + t * (l.x + t * (q.x + t * k.x)), d.y + t * (l.y + t * (q.y + t * k.y))};
        const Point first{l.x + t * (2 * q.x + 3 * t * k.x), l.y + t * (2 * q.y + 3 * t * k.y)};
        const Point second{2 * q.x + 6 * t * k.x, 2 * q.y + 6 * t * k.y};
        const double value = at.x * first.x + at.y * first.y;
        const double slope = first.x * first.x + first.y * first.y + at.x * second.x + at.y * second.y;
        if (slope <= 0) break; // heading for a farthest point
        const double next = std::clamp(t - value / slope, 0.0, 1.0);
        const double moved = std::fabs(next - t);
        t = next;
        if (moved < kParameterError) break;
    }
    improve(best, c, t, from);
}

/// Whether the strip along the chord that contains the curve is farther away than the root of `limit`.
bool isBesideStrip(const Cubic& c, Point from, double limit) {
    const Point across{c[0].y - c[3].y, c[3].x - c[0].x};
    const auto distance = [&](Point p) { return across.x * (p.x - from.x) + across.y * (p.y - from.y); };
    const auto [low, high] = std::minmax({distance(c[0]), distance(c[1]), distance(c[2]), distance(c[3])});
    const double reach = limit * kWider * (across.x * across.x + across.y * across.y);
    return (low > 0 && low * low > reach) || (high < 0 && high * high > reach);
}

/// Replaces `best` by the nearest point of the curve if that is nearer.
void improveOnCurve(NearestPoint& best, const Cubic& curve, Point from) {
    struct Piece {
        Cubic cubic;
        double start;
        int depth;
        double distance; // squared, at least
    };
    std::array<Piece, kNewtonDepth + 2> pieces; // each halving leaves one more to do
    std::size_t count = 0;
    const auto add = [&](const Cubic& cubic, double start, int depth) {
        const double distance = squaredDistanceToBox(cubic, from);
        if (distance < best.distanceSquared && !isBesideStrip(cubic, from, best.distanceSquared))
            pieces[count++] = {cubic, start, depth, distance};
    };
    add(curve, 0, 0);
    if (count == 0) return;
    improve(best, curve, 0, from);
    improve(best, curve, 1, from);
    while (count > 0) {
        const Piece piece = pieces[--count];
        if (piece.distance >= best.distanceSquared) continue;
        const double middle = piece.start + std::ldexp(0.5, -piece.depth);
        improve(best, curve, middle, from);
        if (piece.depth == kNewtonDepth) {
            newton(best, curve, middle, from);
            continue;
        }
        const auto [first, second] = halves(piece.cubic);
        const std::size_t before = count;
        add(first, piece.start, piece.depth + 1);
        add(second, middle, piece.depth + 1);
        // The nearer half comes first, for what it finds spares the other.
        if (count == before + 2 && pieces[before].distance < pieces[before + 1].distance)
            std::swap(pieces[before], pieces[before + 1]);
    }
}

NearestPoint nearestOnLine(Point start, Point end, Point from) {
    const Point along{end.x - start.x, end.y - start.y};
    const double lengthSquared = along.x * along.x + along.y * along.y;
    if (lengthSquared == 0) return {distanceSquared(start, from), start, 0};
    const double projected = ((from.x - start.x) * along.x + (from.y - start.y) * along.y) / lengthSquared;
    if (projected <= 0) return {distanceSquared(start, from), start, 0};
    if (projected >= 1) return {distanceSquared(end, from), end, 1};
    const Point at = mix(start, end, projected);
    // With retracted handles the curve is where 3t^2 - 2t^3 says, so the fraction of the length is not the parameter.
    const double t = 0.5 - std::sin(std::asin(1 - 2 * projected) / 3);
    return {distanceSquared(at, from), at, t};
}

/// How often the curve crosses the ray that goes right from `point` on its way down, less how often on its way up. Each
/// piece that is monotone in y counts for the half-open range of its heights, so that a crossing at a joint counts
/// once.
int crossings(const Cubic& c, Point point) {
    const auto [lowest, highest] = std::minmax({c[0].y, c[1].y, c[2].y, c[3].y});
    if (point.y < lowest || point.y > highest || point.x > std::max({c[0].x, c[1].x, c[2].x, c[3].x})) return 0;

    // The turning points of y: zeros of its derivative a t^2 + b t + e (divided by 3).
    const double a = c[3].y - c[0].y + 3 * (c[1].y - c[2].y);
    const double b = 2 * (c[0].y - 2 * c[1].y + c[2].y);
    const double e = c[1].y - c[0].y;
    std::array<double, 4> stops{0, 1, 1, 1};
    std::size_t pieces = 1;
    const auto addStop = [&](double t) {
        if (t > 0 && t < 1) stops[pieces++] = t;
    };
    const double discriminant = b * b - 4 * a * e;
    if (discriminant >= 0) {
        const double q = -0.5 * (b + std::copysign(std::sqrt(discriminant), b));
        if (a != 0) addStop(q / a);
        if (q != 0) addStop(e / q);
    }
    stops[pieces] = 1;
    if (pieces == 3 && stops[1] > stops[2]) std::swap(stops[1], stops[2]);

    int count = 0;
    for (std::size_t i = 0; i < pieces; ++i) {
        double below = stops[i];
        double above = stops[i + 1];
        const bool up = pointOn(c, below).y > pointOn(c, above).y;
        if (up) std::swap(below, above);
        if (point.y < pointOn(c, below).y || point.y >= pointOn(c, above).y) continue;
        for (int step = 0; step < 60 && below != above; ++step) {
            const double middle = (below + above) / 2;
            (pointOn(c, middle).y <= point.y ? below : above) = middle;
        }
        if (pointOn(c, below).x > point.x) count += up ? -1 : 1;
    }
    return count;
}

bool isIn(const Box& box, Point point) { return box.meets({point.x, point.y, point.x, point.y}); }

/// Whether the straight line meets the box: cuts off what lies beyond one edge after the other.
bool lineMeetsBox(Point start, Point end, const Box& box) {
    double from = 0;
    double to = 1;
    const auto cut = [&](double at, double along, double low, double high) {
        if (along == 0) return at >= low && at <= high;
        const double first = (low - at) / along;
        const double second = (high - at) / along;
        from = std::max(from, std::min(first, second));
        to = std::min(to, std::max(first, second));
        return from <= to;
    };
    return cut(start.x, end.x - start.x, box.left, box.right) && cut(start.y, end.y - start.y, box.top, box.bottom);
}

/// Whether all of the curve lies farther away on one side; most curves of a long path do.
bool isAside(const Cubic& c, Point from, double reach) {
    const auto aside = [&](double Point::*axis) {
        const double low = from.*axis - reach;
        const double high = from.*axis + reach;
        return (c[0].*axis < low && c[1].*axis < low && c[2].*axis < low && c[3].*axis < low) ||
               (c[0].*axis > high && c[1].*axis > high && c[2].*axis > high && c[3].*axis > high);
    };
    return aside(&Point::x) || aside(&Point::y);
}

} // namespace

std::optional<NearestPoint> nearestOn(const Cubic& curve, Point from, double limit) {
    if (isAside(curve, from, std::sqrt(limit) * kWider)) return std::nullopt;
    if (isStraight(curve)) {
        const NearestPoint nearest = nearestOnLine(curve[0], curve[3], from);
        return nearest.distanceSquared <= limit ? std::optional(nearest) : std::nullopt;
    }
    constexpr double kNone = -1;
    NearestPoint best{std::nextafter(limit, INFINITY), {}, kNone}; // what lies right on the limit is nearer than this
    improveOnCurve(best, curve, from);
    return best.t == kNone ? std::nullopt : std::optional(best);
}

bool meetsBox(const Cubic& curve, const Box& box) {
    if (isIn(box, curve[0]) || isIn(box, curve[3])) return true;
    if (isStraight(curve)) return lineMeetsBox(curve[0], curve[3], box);

    constexpr int kFinestDepth = 10; // pieces of a thousandth of the curve are as good as straight
    struct Piece {
        Cubic cubic;
        int depth;
    };
    std::array<Piece, kFinestDepth + 2> pieces; // each halving leaves one more to do
    std::size_t count = 0;
    pieces[count++] = {curve, 0};
    while (count > 0) {
        const Piece piece = pieces[--count];
        Box hull;
        for (const Point& control : piece.cubic) hull.include(control);
        if (!hull.meets(box)) continue;
        if (isIn(box, piece.cubic[3])) return true;
        if (piece.depth == kFinestDepth) {
            if (lineMeetsBox(piece.cubic[0], piece.cubic[3], box)) return true;
            continue;
        }
        const auto [first, second] = halves(piece.cubic);
        pieces[count++] = {second, piece.depth + 1};
        pieces[count++] = {first, piece.depth + 1};
    }
    return false;
}

int windingNumber(const PathData& path, Point point) {
    int count = 0;
    const std::size_t segments = path.segmentCount();
    for (std::size_t i = 0; i < segments; ++i) count += crossings(path.segment(i), point);
    if (!path.closed && segments > 0) {
        const Point first = path.points.front().anchor;
        const Point last = path.points.back().anchor;
        count += crossings({last, last, first, first}, point);
    }
    return count;
}

} // namespace easel::model
