// Basic shapes begin where renderers begin them, and go their way round.
#include "svg/Outlines.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>
#include <utility>

#include "svg/PathScanner.h"
#include "svg/Values.h"

namespace easel::svg {

namespace {

using model::Affine;
using model::cornerAt;
using model::PathData;
using model::PathPoint;
using model::Point;

constexpr double kSmoothSine = 1e-6; ///< between the handles of a smooth point

std::vector<PathData> ellipse(Point center, double rx, double ry) {
    if (!(rx > 0 && ry > 0)) return {};
    const double reach = handleReach(M_PI / 2);
    PathData path;
    path.closed = true;
    // Clockwise from the right, as renderers begin.
    for (const Point& unit : {Point{1, 0}, Point{0, 1}, Point{-1, 0}, Point{0, -1}}) {
        const Point along{-unit.y * reach, unit.x * reach};
        const auto at = [&](double x, double y) { return Point{center.x + rx * x, center.y + ry * y}; };
        path.points.push_back(
            {at(unit.x, unit.y), at(unit.x - along.x, unit.y - along.y), at(unit.x + along.x, unit.y + along.y)});
    }
    path.setCorners(0, model::PointFlags(path.points.size(), false));
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
        path.points.push_back({start, start, {corner.x - coming.x * rx * left, corner.y - coming.y * ry * left}});
        path.points.push_back({end, {corner.x + going.x * rx * left, corner.y + going.y * ry * left}, end});
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

bool isShape(std::string_view element) {
    static constexpr std::array<std::string_view, 7> kShapes{"path", "line",   "polyline", "polygon",
                                                             "rect", "circle", "ellipse"};
    return std::find(kShapes.begin(), kShapes.end(), element) != kShapes.end();
}

Outline shapeOutline(std::string_view element, const Attributes& attributes, const Units& units) {
    if (element == "path") return scanPath(attributes.get(Name::D));
    if (element == "polyline") return polyline(attributes.get(Name::Points), false);
    if (element == "polygon") return polyline(attributes.get(Name::Points), true);
    const auto measure = [&](Name name, Along along) { return units.length(attributes.get(name), along); };
    const auto x = [&](Name name) { return measure(name, Along::X).value_or(0); };
    const auto y = [&](Name name) { return measure(name, Along::Y).value_or(0); };
    if (element == "line") {
        return {{{{cornerAt({x(Name::X1), y(Name::Y1)}), cornerAt({x(Name::X2), y(Name::Y2)})}, false}}, false};
    }
    const Point center{x(Name::Cx), y(Name::Cy)};
    if (element == "circle") {
        const double radius = measure(Name::R, Along::Diagonal).value_or(0);
        return {ellipse(center, radius, radius), false};
    }
    // Of two radii, one that is not given follows the other.
    const std::optional<double> rx = measure(Name::Rx, Along::X);
    const std::optional<double> ry = measure(Name::Ry, Along::Y);
    const double radiusX = rx ? *rx : ry.value_or(0);
    const double radiusY = ry ? *ry : rx.value_or(0);
    if (element == "ellipse") return {ellipse(center, radiusX, radiusY), false};
    return {rectangle(x(Name::X), y(Name::Y), x(Name::Width), y(Name::Height), radiusX, radiusY), false};
}

void transformBy(PathData& path, const Affine& transform) {
    if ((transform == Affine{})) return;
    for (PathPoint& point : path.points) {
        for (Point* const p : {&point.anchor, &point.in, &point.out}) *p = transform(*p);
    }
}

double scaleOf(const Affine& transform) {
    return std::sqrt(std::fabs(transform.a * transform.d - transform.b * transform.c));
}

bool looksSmooth(const PathPoint& point) {
    const Point in{point.in.x - point.anchor.x, point.in.y - point.anchor.y};
    const Point out{point.out.x - point.anchor.x, point.out.y - point.anchor.y};
    const double along = in.x * out.x + in.y * out.y;
    if (!(along < 0)) return false; // also where there is no handle
    // Across is their lengths times the sine of the angle, and along its cosine, which is about 1 if they are opposite.
    const double across = in.x * out.y - in.y * out.x;
    return std::fabs(across) <= kSmoothSine * -along;
}

double handleReach(double angle) { return 4.0 / 3 * std::tan(angle / 4); }

} // namespace easel::svg
