// Marks as the painter's paths, in pixels.
#include "render/Marks.h"

#include <cairo.h>
#include <glib.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>
#include <utility>

#include "svg/Limits.h"

namespace easel::render {

namespace {

using model::Mark;
using model::Point;

// Pixels from the corner of the picture, in which places are below kMostPixels. The painter draws longer straight lines
// askew, and some millions of pixels away it takes one place for another.
constexpr double kFarthestCorner = 30'000;
constexpr double kFarthestCurve = 4e6;
static_assert(kFarthestCorner > svg::kMostPixels);

bool areNear(const std::vector<Point>& points, double farthest) {
    return std::all_of(points.begin(), points.end(),
                       [=](Point point) { return std::abs(point.x) <= farthest && std::abs(point.y) <= farthest; });
}

Point toPixels(Point point, double scale) {
    constexpr double kMost = 1e12; // beyond that there are no fractions to tell places by
    return {std::clamp(point.x * scale, -kMost, kMost), std::clamp(point.y * scale, -kMost, kMost)};
}

/// What of an outline is near. A closed one goes on along the limit, where nobody sees it.
void keepNear(std::vector<Point>& points, bool closed) {
    if (areNear(points, kFarthestCorner)) return;
    for (double Point::*const axis : {&Point::x, &Point::y}) {
        for (const double side : {-1, 1}) {
            if (points.empty()) return;
            const auto beyond = [&](Point point) { return side * point.*axis - kFarthestCorner; };
            const std::vector<Point> all = std::exchange(points, {});
            Point from = closed ? all.back() : all.front();
            for (const Point to : all) {
                const double before = beyond(from);
                const double after = beyond(to);
                if ((before > 0) != (after > 0)) {
                    const double t = before / (before - after);
                    points.push_back({from.x + t * (to.x - from.x), from.y + t * (to.y - from.y)});
                    points.back().*axis = side * kFarthestCorner;
                }
                if (after <= 0) points.push_back(to);
                from = to;
            }
        }
    }
}

void addEllipse(cairo_t* cairo, Point from, Point to) {
    cairo_matrix_t plain;
    cairo_get_matrix(cairo, &plain);
    cairo_translate(cairo, (from.x + to.x) / 2, (from.y + to.y) / 2);
    // A flat one is a line; the painter takes no scale of nothing.
    constexpr double kLeast = 1e-6;
    cairo_scale(cairo, std::max(std::abs(to.x - from.x) / 2, kLeast), std::max(std::abs(to.y - from.y) / 2, kLeast));
    cairo_new_sub_path(cairo);
    cairo_arc(cairo, 0, 0, 1, 0, 2 * std::numbers::pi);
    cairo_close_path(cairo);
    cairo_set_matrix(cairo, &plain);
}

void addText(cairo_t* cairo, const Mark& mark, Point at) {
    // The painter stops at a byte that is no text.
    const std::unique_ptr<char, decltype(&g_free)> text(
        g_utf8_make_valid(mark.text.data(), static_cast<gssize>(mark.text.size())), g_free);
    cairo_select_font_face(cairo, "sans-serif", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(cairo, mark.pen.fontSize);
    cairo_move_to(cairo, at.x, at.y);
    cairo_text_path(cairo, text.get());
}

void addPath(cairo_t* cairo, const Mark& mark, std::vector<Point> points) {
    const bool hasCorners = mark.kind != Mark::Kind::Ellipse && mark.kind != Mark::Kind::Text;
    if (!hasCorners && !areNear(points, kFarthestCurve)) return;
    if (mark.kind == Mark::Kind::Ellipse) return addEllipse(cairo, points[0], points[1]);
    if (mark.kind == Mark::Kind::Text) return addText(cairo, mark, points[0]);
    if (mark.kind == Mark::Kind::Rectangle)
        points = {points[0], {points[1].x, points[0].y}, points[1], {points[0].x, points[1].y}};
    const bool closed = mark.kind != Mark::Kind::Line;
    keepNear(points, closed);
    for (const Point point : points) cairo_line_to(cairo, point.x, point.y);
    if (closed) cairo_close_path(cairo);
}

} // namespace

void drawMarks(_cairo_surface* surface, const std::vector<Mark>& marks, double scale) {
    const std::unique_ptr<cairo_t, decltype(&cairo_destroy)> owned(cairo_create(surface), cairo_destroy);
    cairo_t* const cairo = owned.get();
    cairo_set_line_join(cairo, CAIRO_LINE_JOIN_ROUND);
    for (const Mark& mark : marks) {
        std::vector<Point> points;
        for (const Point point : mark.points) points.push_back(toPixels(point, scale));
        const model::Color& color = mark.pen.color;
        cairo_set_source_rgba(cairo, color.red, color.green, color.blue, mark.pen.opacity);
        cairo_set_line_width(cairo, mark.pen.lineWidth);
        cairo_set_dash(cairo, &mark.pen.dash, mark.pen.dash > 0 ? 1 : 0, 0);
        cairo_new_path(cairo);
        addPath(cairo, mark, std::move(points));
        if (mark.filled)
            cairo_fill(cairo);
        else
            cairo_stroke(cairo);
    }
}

} // namespace easel::render
