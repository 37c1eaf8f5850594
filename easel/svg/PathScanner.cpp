// A segment is handed to the collector when all its numbers have been read. Whatever is not a cubic is made one.
#include "svg/PathScanner.h"

#include <algorithm>
#include <array>
#include <boost/container/small_vector.hpp>
#include <cmath>
#include <stdexcept>
#include <utility>

#include "svg/Values.h"

namespace easel::svg {

namespace {

using model::Affine;
using model::PathData;
using model::PathPoint;
using model::Point;

constexpr double kLargestNumber = 1e100; ///< beyond that data counts as damaged; sums of these stay finite
constexpr double kSlightlyMore = 1e-6;   ///< than a quarter turn: rounding makes as much of half a turn in one piece
constexpr std::size_t kUsualAnchors = 32;

/// Collects subpaths of cubics.
class Collector {
  public:
    void moveTo(Point point) {
        flush(false);
        start_ = point;
        begin();
    }
    void lineTo(Point point) {
        begin();
        points_.push_back(model::cornerAt(point));
    }
    void curveTo(Point out, Point in, Point point) {
        begin();
        points_.back().out = out;
        points_.push_back({point, in, point});
    }
    void close() {
        if (points_.empty()) return;
        // A last segment that is drawn back to the start ends at the first anchor, not at another one in the same
        // place.
        if (points_.size() > 1 && points_.back().anchor == points_.front().anchor) {
            points_.front().in = points_.back().in;
            points_.pop_back();
        }
        flush(true);
    }
    /// Where the next segment begins.
    [[nodiscard]] Point current() const { return points_.empty() ? start_ : points_.back().anchor; }

    std::vector<PathData> take() {
        flush(false);
        return std::move(subpaths_);
    }

  private:
    void begin() {
        if (points_.empty()) points_.push_back(model::cornerAt(start_));
    }
    void flush(bool closed) {
        if (points_.empty()) return;
        PathData& path = subpaths_.emplace_back();
        path.points.assign(points_.begin(), points_.end()); // no larger than need be
        path.closed = closed;
        if (std::any_of(points_.begin(), points_.end(), looksSmooth)) {
            model::PointFlags smooth;
            for (const PathPoint& point : points_) smooth.push_back(looksSmooth(point));
            path.smooth = model::SmoothPoints(smooth);
        }
        points_.clear();
    }

    Point start_;
    boost::container::small_vector<PathPoint, kUsualAnchors> points_;
    std::vector<PathData> subpaths_;
};

/// Numbers of one segment, by its lower-case command.
int parameterCount(char command) {
    switch (command) {
    case 'h':
    case 'v': return 1;
    case 'm':
    case 'l':
    case 't': return 2;
    case 's':
    case 'q': return 4;
    case 'c': return 6;
    case 'a': return 7;
    default: return 0;
    }
}

Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }
Point mirrored(Point point, Point around) { return {2 * around.x - point.x, 2 * around.y - point.y}; }
Point twoThirds(Point from, Point to) {
    return {from.x + (to.x - from.x) * (2.0 / 3), from.y + (to.y - from.y) * (2.0 / 3)};
}

/// A part of an ellipse: from an angle on, by an angle, in radians, on the unit circle.
struct Arc {
    Affine fromUnitCircle;
    double begin;
    double sweep;
};

/// By the way from end points to the centre in SVG 1.1, F.6.5, in units in which the ellipse is the unit circle. Radii
/// that are too small grow until they reach. What is out of range gives what is no number.
Arc arcBetween(Point from, Point to, Point radii, double degrees, bool isLarge, bool isClockwise) {
    const double cosine = std::cos(degrees * (M_PI / 180));
    const double sine = std::sin(degrees * (M_PI / 180));
    const double longest = std::max(radii.x, radii.y);
    radii = {radii.x / longest, radii.y / longest};
    const Affine turned{radii.x * cosine, radii.x * sine, -radii.y * sine, radii.y * cosine};
    const Point chord = inverse(turned)({(from.x - to.x) / longest, (from.y - to.y) / longest});
    const double half = std::hypot(chord.x, chord.y) / 2;
    const double growth = std::max(half, 1.0);
    const Point toFrom{chord.x / 2 / growth, chord.y / 2 / growth}; // from the middle of the chord
    const double away = half < 1 ? std::sqrt((1 - half) * (1 + half)) / half : 0;
    const double side = isLarge == isClockwise ? -away : away;
    const Point center{side * toFrom.y, -side * toFrom.x};
    const Point first{toFrom.x - center.x, toFrom.y - center.y};
    const double small = 2 * std::asin(std::min(half, 1.0)); // of the two arcs over the chord
    const double sweep = isLarge ? 2 * M_PI - small : small;
    const double size = longest * growth;
    Affine fromUnitCircle{turned.a * size, turned.b * size, turned.c * size, turned.d * size};
    const Point middle = fromUnitCircle(center);
    fromUnitCircle.e = from.x / 2 + to.x / 2 + middle.x;
    fromUnitCircle.f = from.y / 2 + to.y / 2 + middle.y;
    return {fromUnitCircle, std::atan2(first.y, first.x), isClockwise ? sweep : -sweep};
}

class PathScan {
  public:
    explicit PathScan(std::string_view data) : scanner_(data) {}

    Outline run() {
        Outline outline;
        try {
            outline.damaged = !scan();
        } catch (const std::range_error&) { // a number beyond all numbers, an arc that has no shape
            outline.damaged = true;
        }
        outline.subpaths = collector_.take();
        return outline;
    }

  private:
    bool scan() {
        bool begun = false;
        for (scanner_.skipSpace(); !scanner_.atEnd(); scanner_.skipSpace()) {
            const char letter = scanner_.peek();
            scanner_.take(letter);
            command_ = static_cast<char>(letter | 0x20);
            relative_ = letter == command_;
            if (!begun && command_ != 'm') return false;
            begun = true;
            if (command_ == 'z') {
                collector_.close();
                previous_ = command_;
                continue;
            }
            if (parameterCount(command_) == 0 || !scanSegments()) return false;
        }
        return true;
    }

    /// The segments that one letter stands for: at least one.
    bool scanSegments() {
        scanner_.skipSpace();
        if (!scanSegment()) return false;
        for (;;) {
            scanner_.skipSpace();
            const bool comma = scanner_.take(',');
            if (comma) scanner_.skipSpace();
            if (!comma && !scanner_.atNumber()) return true;
            if (command_ == 'm') command_ = 'l';
            if (!scanSegment()) return false;
        }
    }

    bool scanSegment() {
        const int count = parameterCount(command_);
        for (int i = 0; i < count; ++i) {
            if (i > 0) scanner_.skipSeparator();
            const bool flag = command_ == 'a' && (i == 3 || i == 4);
            if (flag ? !scanFlag(i) : !scanNumber(i)) return false;
        }
        const Point from = collector_.current();
        const Point base = relative_ ? from : Point{};
        addSegment(from, base);
        return true;
    }

    bool scanFlag(int index) {
        numbers_[static_cast<std::size_t>(index)] = scanner_.peek() == '1' ? 1 : 0;
        return scanner_.take('0') || scanner_.take('1');
    }
    bool scanNumber(int index) {
        const std::optional<double> value = scanner_.number();
        numbers_[static_cast<std::size_t>(index)] = value.value_or(0);
        return value && std::fabs(*value) <= kLargestNumber;
    }

    void addSegment(Point from, Point base) {
        const auto& n = numbers_;
        const auto at = [&](std::size_t i) { return base + Point{n[i], n[i + 1]}; };
        const bool wasCubic = previous_ == 'c' || previous_ == 's';
        const bool wasQuadratic = previous_ == 'q' || previous_ == 't';
        switch (command_) {
        case 'm': collector_.moveTo(at(0)); break;
        case 'l': collector_.lineTo(at(0)); break;
        case 'h': collector_.lineTo({base.x + n[0], from.y}); break;
        case 'v': collector_.lineTo({from.x, base.y + n[0]}); break;
        case 'c': addCubic(at(0), at(2), at(4)); break;
        case 's': addCubic(wasCubic ? mirrored(control_, from) : from, at(0), at(2)); break;
        case 'q': addQuadratic(from, at(0), at(2)); break;
        case 't': addQuadratic(from, wasQuadratic ? mirrored(control_, from) : from, at(0)); break;
        default: addArc(from, at(5));
        }
        previous_ = command_;
    }

    void addCubic(Point out, Point in, Point to) {
        collector_.curveTo(out, in, to);
        control_ = in;
    }
    void addQuadratic(Point from, Point control, Point to) {
        collector_.curveTo(twoThirds(from, control), twoThirds(to, control), to);
        control_ = control;
    }
    void addArc(Point from, Point to) {
        if (from == to) return;
        const auto& [rx, ry, degrees, large, sweep, x, y] = numbers_;
        if (rx == 0 || ry == 0) return collector_.lineTo(to);
        const Arc arc = arcBetween(from, to, {std::fabs(rx), std::fabs(ry)}, degrees, large != 0, sweep != 0);
        if (!std::isfinite(arc.sweep)) throw std::range_error("an arc is out of range");
        const double quarters = std::fabs(arc.sweep) / (M_PI / 2);
        const int pieces = std::clamp(static_cast<int>(std::ceil(quarters - kSlightlyMore)), 1, 4);
        const double step = arc.sweep / pieces;
        const double reach = handleReach(step);
        std::array<Point, 12> curves; // no more than a whole turn in quarters
        for (int i = 0; i < pieces; ++i) {
            const double before = arc.begin + i * step;
            const Point first{std::cos(before), std::sin(before)};
            const Point second{std::cos(before + step), std::sin(before + step)};
            const Point out = arc.fromUnitCircle({first.x - reach * first.y, first.y + reach * first.x});
            const Point in = arc.fromUnitCircle({second.x + reach * second.y, second.y - reach * second.x});
            if (!std::isfinite(out.x + out.y + in.x + in.y)) throw std::range_error("an arc is out of range");
            Point* const curve = &curves[static_cast<std::size_t>(i) * 3];
            curve[0] = out;
            curve[1] = in;
            curve[2] = i + 1 == pieces ? to : arc.fromUnitCircle(second);
        }
        for (int i = 0; i < pieces; ++i) {
            const Point* const curve = &curves[static_cast<std::size_t>(i) * 3];
            collector_.curveTo(curve[0], curve[1], curve[2]);
        }
    }

    Scanner scanner_;
    Collector collector_;
    char command_ = 0;
    char previous_ = 0; // the command before, in lower case
    bool relative_ = false;
    Point control_; // of the curve before, next to its end
    std::array<double, 7> numbers_{};
};

} // namespace

Outline scanPath(std::string_view data) {
    data = trimmed(data);
    if (data.empty() || data == "none") return {};
    return PathScan(data).run();
}

} // namespace easel::svg
