// Fill, then stroke, within the masks that lie on the path and on what it stands in.
#include "app/PathPainter.h"

#include "model/Clip.h"

namespace easel::app {

namespace {

using model::Node;
using model::Point;
using model::Style;

/// The masks of the node and of all around it. What no matrix leads back from masks nothing here.
void clip(cairo_t* cairo, const Node& node) {
    for (const Node* at = &node; at; at = at->parent()) {
        const model::Clip* const clip = at->clip();
        if (!clip) continue;
        const std::optional<model::Affine> m = model::wayToMask(*at);
        if (!m) continue;
        cairo_matrix_t toPage;
        cairo_matrix_init(&toPage, m->a, m->b, m->c, m->d, m->e, m->f);
        if (cairo_matrix_invert(&toPage) != CAIRO_STATUS_SUCCESS) continue;
        cairo_save(cairo);
        cairo_transform(cairo, &toPage);
        cairo_new_path(cairo);
        for (const model::Mask::Shape& shape : clip->mask->shapes()) {
            for (const model::PathData& subpath : shape.subpaths) addOutline(cairo, subpath);
            cairo_set_fill_rule(cairo, shape.evenOdd ? CAIRO_FILL_RULE_EVEN_ODD : CAIRO_FILL_RULE_WINDING);
        }
        cairo_restore(cairo); // the matrix; the outline stays
        cairo_clip(cairo);
        cairo_set_fill_rule(cairo, CAIRO_FILL_RULE_WINDING);
    }
}

/// Of the art with all that it stands in. A group whose art overlaps shows through itself until the truth is there.
double opacityOf(const Node& node) {
    double opacity = 1;
    for (const Node* at = &node; at; at = at->parent()) opacity *= at->extras().opacity;
    return opacity;
}

void setSource(cairo_t* cairo, const model::Color& color) {
    cairo_set_source_rgb(cairo, color.red, color.green, color.blue);
}

void stroke(cairo_t* cairo, const Style& style) {
    setSource(cairo, style.strokeColor);
    cairo_set_line_width(cairo, style.strokeWidth);
    cairo_set_miter_limit(cairo, style.miterLimit);
    cairo_set_line_cap(cairo, style.cap == model::Cap::Butt    ? CAIRO_LINE_CAP_BUTT
                              : style.cap == model::Cap::Round ? CAIRO_LINE_CAP_ROUND
                                                               : CAIRO_LINE_CAP_SQUARE);
    cairo_set_line_join(cairo, style.join == model::Join::Miter   ? CAIRO_LINE_JOIN_MITER
                               : style.join == model::Join::Round ? CAIRO_LINE_JOIN_ROUND
                                                                  : CAIRO_LINE_JOIN_BEVEL);
    const model::Dashes& dashes = style.dashes();
    cairo_set_dash(cairo, dashes.lengths.data(), dashes.count, dashes.offset);
    cairo_stroke(cairo);
}

void paintBox(cairo_t* cairo, const model::Box& box, double pixel) {
    if (box.isEmpty()) return;
    const double dash = 4 * pixel;
    cairo_set_source_rgba(cairo, 0.45, 0.5, 0.58, 0.8);
    cairo_set_line_width(cairo, pixel);
    cairo_set_dash(cairo, &dash, 1, 0);
    cairo_rectangle(cairo, box.left, box.top, box.right - box.left, box.bottom - box.top);
    cairo_stroke(cairo);
}

} // namespace

void addOutline(cairo_t* cairo, const model::PathData& path) {
    if (path.points.empty()) return;
    const Point start = path.points.front().anchor;
    cairo_move_to(cairo, start.x, start.y);
    for (std::size_t i = 0; i < path.segmentCount(); ++i) {
        const model::Cubic c = path.segment(i);
        const bool closes = path.closed && i + 1 == path.segmentCount();
        if (closes && model::isStraight(c)) break; // closing draws it
        if (model::isStraight(c))
            cairo_line_to(cairo, c[3].x, c[3].y);
        else
            cairo_curve_to(cairo, c[1].x, c[1].y, c[2].x, c[2].y, c[3].x, c[3].y);
    }
    if (path.closed) cairo_close_path(cairo);
}

bool isClipped(const Node& node) {
    for (const Node* at = &node; at; at = at->parent())
        if (at->clip()) return true;
    return false;
}

void paint(cairo_t* cairo, const Node& node, double pixel) {
    const bool clipped = isClipped(node);
    if (clipped) {
        cairo_save(cairo);
        clip(cairo, node);
    }
    const double opacity = opacityOf(node);
    if (opacity < 1) cairo_push_group(cairo);
    cairo_new_path(cairo);
    if (node.isOutlined()) {
        const Style& style = node.style();
        for (const model::Shared<model::PathData>& outline : node.outlines()) addOutline(cairo, *outline);
        cairo_set_fill_rule(cairo, style.evenOdd ? CAIRO_FILL_RULE_EVEN_ODD : CAIRO_FILL_RULE_WINDING);
        if (style.fill) {
            setSource(cairo, style.fillColor);
            cairo_fill_preserve(cairo);
        }
        if (style.stroke && style.strokeWidth > 0) stroke(cairo, style);
    } else {
        paintBox(cairo, node.hull(), pixel);
    }
    if (opacity < 1) {
        cairo_pop_group_to_source(cairo);
        cairo_paint_with_alpha(cairo, opacity);
    }
    if (clipped) cairo_restore(cairo);
}

} // namespace easel::app
