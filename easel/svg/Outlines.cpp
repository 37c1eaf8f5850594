// Path data is parsed by lib2geom, which tells it curve by curve; what is not a cubic is made one.
#include "svg/Outlines.h"

#include <2geom/elliptical-arc.h>
#include <2geom/path-sink.h>
#include <2geom/svg-path-parser.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <new>
#include <stdexcept>
#include <string>
#include <utility>

#include "svg/Values.h"

namespace easel::svg {

namespace {

using model::PathData;
using model::PathPoint;
using model::Point;

constexpr double kLargestNumber = 1e100; ///< in data that is damaged anyway; sums of these stay finite
constexpr double kSmoothSine = 1e-6;     ///< between the handles of a smooth point

PathPoint cornerAt(Point at) { return {at, at, at, true}; }

/// How far the handles of an arc of this angle reach, against the radius.
double handleReach(double angle) { return 4.0 / 3 * std::tan(angle / 4); }

/// Collects subpaths, up to the first point that is not finite: relative segments can add up to one.
class Collector : public Geom::PathSink {
  public:
    using Geom::PathSink::feed;

    void moveTo(const Geom::Point& p) override {
        if (!finite(p)) return;
        flush();
        start_ = point(p);
        begin();
    }
    void lineTo(const Geom::Point& p) override {
        if (!finite(p)) return;
        begin();
        current_.points.push_back(cornerAt(point(p)));
    }
    void curveTo(const Geom::Point& c0, const Geom::Point& c1, const Geom::Point& p) override {
        if (!finite(c0, c1, p)) return;
        begin();
        current_.points.back().out = point(c0);
        current_.points.push_back({point(p), point(c1), point(p), true});
    }
    void quadTo(const Geom::Point& c, const Geom::Point& p) override {
        if (!finite(c, p)) return;
        begin();
        const Point from = current_.points.back().anchor;
        const Geom::Point start(from.x, from.y);
        curveTo(start + (c - start) * (2.0 / 3), p + (c - p) * (2.0 / 3), p);
    }
    void arcTo(Geom::Coord rx, Geom::Coord ry, Geom::Coord angle, bool large, bool sweep,
               const Geom::Point& p) override {
        if (!finite(p)) return;
        begin();
        const Point from = current_.points.back().anchor;
        const Geom::EllipticalArc arc({from.x, from.y}, rx, ry, angle, large, sweep, p);
        const Geom::Affine toArc = arc.unitCircleTransform();
        const int pieces = std::max(1, static_cast<int>(std::ceil(std::fabs(arc.sweepAngle()) / (M_PI / 2) - 1e-9)));
        const double step = arc.sweepAngle() / pieces;
        const double reach = handleReach(step);
        for (int i = 0; i < pieces; ++i) {
            const double before = arc.initialAngle() + i * step;
            const double after = before + step;
            const Geom::Point first(std::cos(before), std::sin(before));
            const Geom::Point second(std::cos(after), std::sin(after));
            curveTo((first + first.ccw() * -reach) * toArc, (second + second.ccw() * reach) * toArc,
                    i + 1 == pieces ? p : second * toArc);
        }
    }
    void closePath() override {
        if (current_.points.empty() || wentTooFar_) return;
        // A last segment that is drawn back to the start ends at the first anchor, not at another one in the same
        // place.
        if (current_.points.size() > 1 && current_.points.back().anchor == current_.points.front().anchor) {
            current_.points.front().in = current_.points.back().in;
            current_.points.pop_back();
        }
        current_.closed = true;
        flush();
    }
    void flush() override {
        if (!current_.points.empty()) subpaths_.push_back(std::exchange(current_, {}));
    }

    [[nodiscard]] bool wentTooFar() const { return wentTooFar_; }

    std::vector<PathData> take() {
        for (PathData& subpath : subpaths_) {
            for (PathPoint& p : subpath.points) p.corner = !looksSmooth(p);
        }
        return std::exchange(subpaths_, {});
    }

  private:
    static Point point(const Geom::Point& p) { return {p.x(), p.y()}; }
    /// Whether everything is still finite.
    template <class... Points> bool finite(const Points&... points) {
        wentTooFar_ = wentTooFar_ || !(... && (std::isfinite(points.x()) && std::isfinite(points.y())));
        return !wentTooFar_;
    }
    void begin() {
        if (current_.points.empty()) current_.points.push_back(cornerAt(start_));
    }

    Point start_;
    bool wentTooFar_ = false;
    PathData current_;
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
    default: return -1;
    }
}

/// The longest beginning of path data that holds nothing but complete segments of usable numbers.
std::string_view completeSegments(std::string_view data) {
    Scanner scanner(data);
    std::size_t complete = 0;
    const auto usableNumber = [&] {
        try {
            const std::optional<double> value = scanner.number();
            return value && std::fabs(*value) <= kLargestNumber;
        } catch (const std::range_error&) {
            return false;
        }
    };
    for (scanner.skipSpace(); !scanner.atEnd(); scanner.skipSpace()) {
        const char command = scanner.peek();
        scanner.take(command);
        const char lower = static_cast<char>(command | 0x20);
        if (complete == 0 && lower != 'm') break;
        if (lower == 'z') {
            complete = data.size() - scanner.left();
            continue;
        }
        const int count = parameterCount(lower);
        if (count < 0) break;
        bool whole = true;
        int segments = 0;
        while (whole) {
            for (int i = 0; i < count && whole; ++i) {
                i == 0 && segments == 0 ? scanner.skipSpace() : scanner.skipSeparator();
                const bool flag = lower == 'a' && (i == 3 || i == 4);
                whole = flag ? scanner.take('0') || scanner.take('1') : usableNumber();
            }
            if (!whole) break;
            complete = data.size() - scanner.left();
            ++segments;
        }
        if (segments == 0) break;
    }
    return data.substr(0, complete);
}

std::vector<PathData> ellipse(Point center, double rx, double ry) {
    if (!(rx > 0 && ry > 0)) return {};
    const double reach = handleReach(M_PI / 2);
    PathData path;
    path.closed = true;
    // Clockwise from the right, as renderers begin.
    for (const Point& unit : {Point{1, 0}, Point{0, 1}, Point{-1, 0}, Point{0, -1}}) {
        const Point along{-unit.y * reach, unit.x * reach};
        const auto at = [&](double x, double y) { return Point{center.x + rx * x, center.y + ry * y}; };
        path.points.push_back({at(unit.x, unit.y), at(unit.x - along.x, unit.y - along.y),
                               at(unit.x + along.x, unit.y + along.y), false});
    }
    return {path};
}

std::vector<PathData> rectangle(double x, double y, double width, double height, double rx, double ry) {
    if (!(width > 0 && height > 0)) return {};
    rx = std::min(rx, width / 2);
    ry = std::min(ry, height / 2);
    if (!(rx > 0 && ry > 0)) {
        return {
            {{cornerAt({x, y}), cornerAt({x + width, y}), cornerAt({x + width, y + height}), cornerAt({x, y + height})},
             true}};
    }
    const double left = 1 - handleReach(M_PI / 2); // from the corner to the handle, against the radius
    PathData path;
    path.closed = true;
    // For each corner, clockwise from the upper right one: the corner, and which way the outline comes and goes.
    const struct {
        Point corner, coming, going;
    } corners[] = {{{x + width, y}, {1, 0}, {0, 1}},
                   {{x + width, y + height}, {0, 1}, {-1, 0}},
                   {{x, y + height}, {-1, 0}, {0, -1}},
                   {{x, y}, {0, -1}, {1, 0}}};
    for (const auto& [corner, coming, going] : corners) {
        const Point start{corner.x - coming.x * rx, corner.y - coming.y * ry};
        const Point end{corner.x + going.x * rx, corner.y + going.y * ry};
        path.points.push_back({start, start, {corner.x - coming.x * rx * left, corner.y - coming.y * ry * left}, true});
        path.points.push_back({end, {corner.x + going.x * rx * left, corner.y + going.y * ry * left}, end, true});
    }
    return {path};
}

Outline polyline(std::string_view text, bool closed) {
    Outline outline;
    std::vector<double> values;
    Scanner scanner(text);
    try {
        scanner.skipSpace();
        while (const std::optional<double> value = scanner.number()) {
            values.push_back(*value);
            scanner.skipSeparator();
        }
        outline.damaged = !scanner.atEnd();
    } catch (const std::range_error&) {
        outline.damaged = true;
    }
    outline.damaged = outline.damaged || values.size() % 2 != 0;
    PathData path;
    path.closed = closed;
    for (std::size_t i = 0; i + 1 < values.size(); i += 2) path.points.push_back(cornerAt({values[i], values[i + 1]}));
    if (!path.points.empty()) outline.subpaths.push_back(std::move(path));
    return outline;
}

} // namespace

Outline pathOutline(std::string_view data) {
    data = trimmed(data);
    if (data.empty() || data == "none") return {};
    // The parser is given complete segments only: it loses memory over others.
    const std::string_view complete = completeSegments(data);
    Outline outline;
    outline.damaged = complete.size() < data.size();
    Collector collector;
    Geom::SVGPathParser parser(collector);
    try {
        parser.parse(complete.data(), static_cast<int>(complete.size()));
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception&) { // of an arc that has no shape, say
        outline.damaged = true;
        collector.flush();
    }
    outline.subpaths = collector.take();
    outline.damaged = outline.damaged || collector.wentTooFar();
    return outline;
}

bool isShape(std::string_view element) {
    static constexpr std::array<std::string_view, 7> shapes{"path", "line",   "polyline", "polygon",
                                                            "rect", "circle", "ellipse"};
    return std::find(shapes.begin(), shapes.end(), element) != shapes.end();
}

Outline shapeOutline(std::string_view element, const AttributeOf& attribute) {
    const auto measure = [&](std::string_view name) {
        const std::optional<std::string_view> value = attribute(name);
        return value ? length(*value) : std::nullopt;
    };
    const auto get = [&](std::string_view name) { return measure(name).value_or(0); };
    if (element == "path") return pathOutline(attribute("d").value_or(""));
    if (element == "polyline") return polyline(attribute("points").value_or(""), false);
    if (element == "polygon") return polyline(attribute("points").value_or(""), true);
    if (element == "line") {
        return {{{{cornerAt({get("x1"), get("y1")}), cornerAt({get("x2"), get("y2")})}, false}}, false};
    }
    if (element == "circle") return {ellipse({get("cx"), get("cy")}, get("r"), get("r")), false};
    // Of two radii, one that is not given follows the other.
    const std::optional<double> rx = measure("rx");
    const std::optional<double> ry = measure("ry");
    const double radiusX = rx ? *rx : ry.value_or(0);
    const double radiusY = ry ? *ry : rx.value_or(0);
    if (element == "ellipse") return {ellipse({get("cx"), get("cy")}, radiusX, radiusY), false};
    return {rectangle(get("x"), get("y"), get("width"), get("height"), radiusX, radiusY), false};
}

void transformBy(PathData& path, const Geom::Affine& transform) {
    if (transform.isIdentity(0)) return;
    for (PathPoint& point : path.points) {
        for (Point* const p : {&point.anchor, &point.in, &point.out}) {
            const Geom::Point moved = Geom::Point(p->x, p->y) * transform;
            *p = {moved.x(), moved.y()};
        }
    }
}

bool looksSmooth(const PathPoint& point) {
    const Geom::Point in(point.in.x - point.anchor.x, point.in.y - point.anchor.y);
    const Geom::Point out(point.out.x - point.anchor.x, point.out.y - point.anchor.y);
    const double lengths = in.length() * out.length();
    return lengths > 0 && Geom::dot(in, out) < 0 && std::fabs(Geom::cross(in, out)) <= kSmoothSine * lengths;
}

} // namespace easel::svg
