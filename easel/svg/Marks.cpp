// Marks as the painter's paths, in pixels.
#include "svg/Marks.h"

#include <cairo.h>
#include <glib.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>

namespace easel::svg {

namespace {

using model::Mark;
using model::Point;

void addEllipse(cairo_t* cairo, Point from, Point to) {
    cairo_matrix_t plain;
    cairo_get_matrix(cairo, &plain);
    cairo_translate(cairo, (from.x + to.x) / 2, (from.y + to.y) / 2);
    // A flat one is a line; the painter takes no scale of nothing.
    constexpr double least = 1e-6;
    cairo_scale(cairo, std::max(std::abs(to.x - from.x) / 2, least), std::max(std::abs(to.y - from.y) / 2, least));
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

void addPath(cairo_t* cairo, const Mark& mark, const std::vector<Point>& points) {
    switch (mark.kind) {
    case Mark::Kind::Rectangle:
        return cairo_rectangle(cairo, points[0].x, points[0].y, points[1].x - points[0].x, points[1].y - points[0].y);
    case Mark::Kind::Ellipse: return addEllipse(cairo, points[0], points[1]);
    case Mark::Kind::Text: return addText(cairo, mark, points[0]);
    case Mark::Kind::Line:
    case Mark::Kind::Polygon: break;
    }
    for (const Point point : points) cairo_line_to(cairo, point.x, point.y);
    if (mark.kind == Mark::Kind::Polygon) cairo_close_path(cairo);
}

} // namespace

void drawMarks(_cairo_surface* surface, const std::vector<Mark>& marks, double scale) {
    const std::unique_ptr<cairo_t, decltype(&cairo_destroy)> owned(cairo_create(surface), cairo_destroy);
    cairo_t* const cairo = owned.get();
    cairo_set_line_join(cairo, CAIRO_LINE_JOIN_ROUND);
    for (const Mark& mark : marks) {
        std::vector<Point> points;
        for (const Point point : mark.points) points.push_back({point.x * scale, point.y * scale});
        const model::Color& color = mark.pen.color;
        cairo_set_source_rgba(cairo, color.red, color.green, color.blue, mark.pen.opacity);
        cairo_set_line_width(cairo, mark.pen.lineWidth);
        cairo_set_dash(cairo, &mark.pen.dash, mark.pen.dash > 0 ? 1 : 0, 0);
        cairo_new_path(cairo);
        addPath(cairo, mark, points);
        if (mark.filled)
            cairo_fill(cairo);
        else
            cairo_stroke(cairo);
    }
}

} // namespace easel::svg
