// A segment is handed to the collector when all its numbers have been read. Whatever is not a cubic is made one; only
// arcs are cut by lib2geom.
#include "svg/PathScanner.h"

#include <2geom/elliptical-arc.h>
#include <2geom/exception.h>

#include <algorithm>
#include <array>
#include <boost/container/small_vector.hpp>
#include <cmath>
#include <stdexcept>
#include <utility>

#include "svg/Values.h"

namespace easel::svg {

namespace {

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
Geom::Point asPeer(Point point) { return {point.x, point.y}; }
Point fromPeer(const Geom::Point& point) { return {point.x(), point.y()}; }
Point mirrored(Point point, Point around) { return {2 * around.x - point.x, 2 * around.y - point.y}; }
Point twoThirds(Point from, Point to) {
    return {from.x + (to.x - from.x) * (2.0 / 3), from.y + (to.y - from.y) * (2.0 / 3)};
}

class PathScan {
  public:
    explicit PathScan(std::string_view data) : scanner_(data) {}

    Outline run() {
        Outline outline;
        try {
            outline.damaged = !scan();
        } catch (const std::range_error&) { // a number beyond all numbers
            outline.damaged = true;
        } catch (const Geom::Exception&) { // an arc that has no shape
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
        const Geom::EllipticalArc arc(asPeer(from), std::fabs(rx), std::fabs(ry), degrees * (M_PI / 180), large != 0,
                                      sweep != 0, asPeer(to));
        const Geom::Affine toArc = arc.unitCircleTransform();
        const double quarters = std::fabs(arc.sweepAngle()) / (M_PI / 2);
        const int pieces = std::clamp(static_cast<int>(std::ceil(quarters - kSlightlyMore)), 1, 4);
        const double step = arc.sweepAngle() / pieces;
        const double reach = handleReach(step);
        std::array<Point, 12> curves; // no more than a whole turn in quarters
        for (int i = 0; i < pieces; ++i) {
            const double before = arc.initialAngle() + i * step;
            const Geom::Point first(std::cos(before), std::sin(before));
            const Geom::Point second(std::cos(before + step), std::sin(before + step));
            const Geom::Point out = (first + first.ccw() * -reach) * toArc;
            const Geom::Point in = (second + second.ccw() * reach) * toArc;
            if (!out.isFinite() || !in.isFinite()) throw std::range_error("an arc is out of range");
            Point* const curve = &curves[static_cast<std::size_t>(i) * 3];
            curve[0] = fromPeer(out);
            curve[1] = fromPeer(in);
            curve[2] = i + 1 == pieces ? to : fromPeer(second * toArc);
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
