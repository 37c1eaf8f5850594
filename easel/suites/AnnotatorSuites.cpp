// The annotator and annotator drawer suites on the session's annotations.
#include <cmath>

#include "hostapi/AIAnnotatorDrawerSuite.h"
#include "hostapi/AIAnnotatorSuite.h"
#include "session/frame/Annotations.h"
#include "suites/Enter.h"

namespace easel::suites {

template <> struct Argument<session::Annotator&> {
    static session::Annotator& from(AIAnnotatorHandle handle) {
        return found(host<session::Annotations>().find(handle));
    }
};
template <> struct Argument<session::Drawing&> {
    static session::Drawing& from(AIDrawingContextHandle handle) {
        return found(host<session::Annotations>().findDrawing(handle));
    }
};

namespace {

using model::Mark;
using session::Annotations;
using session::Annotator;
using session::Drawing;

Annotations& annotations() { return host<Annotations>(); }

model::Point point(const AIRealPoint& host) {
    require(std::isfinite(host.h) && std::isfinite(host.v));
    return {host.h, host.v};
}

void invalidate(AIDocumentViewHandle view, const AIRealRect* rect) {
    // Besides the view in front the one that was drawn last counts: its marks are kept until another is drawn. Any
    // other is drawn from nothing when its turn comes.
    const auto& documents = host<session::Documents>();
    const model::Document& document = documentOfView(view);
    const bool isShown =
        &document == documents.front() || documents.numberOf(document) == annotations().view().document;
    model::Box place;
    if (rect) {
        place.include(point({rect->left, rect->top}));
        place.include(point({rect->right, rect->bottom}));
    }
    if (isShown && rect) annotations().invalidate(place);
    if (isShown && !rect) annotations().invalidateAll();
}

// How the next mark looks

void setColor(Drawing& drawing, const AIColor& color) {
    for (const AIReal part : {color.red, color.green, color.blue}) require(part >= 0 && part <= 1);
    drawing.pen.color = {color.red, color.green, color.blue};
}

void setOpacity(Drawing& drawing, AIReal opacity) {
    require(opacity >= 0 && opacity <= 1);
    drawing.pen.opacity = opacity;
}

void setLineWidth(Drawing& drawing, AIReal width) {
    require(width > 0 && std::isfinite(width));
    drawing.pen.lineWidth = width;
}

void setLineDash(Drawing& drawing, AIReal length) {
    require(length >= 0 && std::isfinite(length));
    drawing.pen.dash = length;
}

void setFontSize(Drawing& drawing, AIReal size) {
    require(size > 0 && std::isfinite(size));
    drawing.pen.fontSize = size;
}

// Marks

void add(Drawing& drawing, Mark::Kind kind, std::vector<model::Point> points, bool filled = false,
         std::string_view text = {}) {
    drawing.marks.push_back(
        {.kind = kind, .points = std::move(points), .pen = drawing.pen, .filled = filled, .text = std::string(text)});
}

std::vector<model::Point> corners(const AIRealRect& rect) {
    return {point({rect.left, rect.top}), point({rect.right, rect.bottom})};
}

void drawLine(Drawing& drawing, const AIRealPoint& from, const AIRealPoint& to) {
    add(drawing, Mark::Kind::Line, {point(from), point(to)});
}

void drawRect(Drawing& drawing, const AIRealRect& rect, bool filled) {
    add(drawing, Mark::Kind::Rectangle, corners(rect), filled);
}

void drawEllipse(Drawing& drawing, const AIRealRect& bounds, bool filled) {
    add(drawing, Mark::Kind::Ellipse, corners(bounds), filled);
}

void drawPolygon(Drawing& drawing, const AIRealPoint& first, std::int32_t count, bool filled) {
    require(count >= 2);
    std::vector<model::Point> points;
    points.reserve(static_cast<std::size_t>(count));
    for (std::int32_t i = 0; i < count; ++i) points.push_back(point((&first)[i]));
    add(drawing, Mark::Kind::Polygon, std::move(points), filled);
}

void drawText(Drawing& drawing, std::string_view text, const AIRealPoint& position) {
    add(drawing, Mark::Kind::Text, {point(position)}, true, text);
}

} // namespace

template <> void fill(AIAnnotatorSuite& suite) {
    enter<&AIAnnotatorSuite::AddAnnotator, &Annotations::add>(suite);
    enter<&AIAnnotatorSuite::RemoveAnnotator, &Annotations::remove>(suite);
    enter<&AIAnnotatorSuite::GetAnnotatorName, &Annotator::name>(suite);
    enter<&AIAnnotatorSuite::GetAnnotatorActive, &Annotator::active>(suite);
    enter<&AIAnnotatorSuite::SetAnnotatorActive, &Annotations::setActive>(suite);
    enter<&AIAnnotatorSuite::GetAnnotatorOptions, &Annotator::options>(suite);
    enter<&AIAnnotatorSuite::SetAnnotatorOptions>(
        suite, [](Annotator& annotator, std::int32_t options) { annotator.options = options; });
    enter<&AIAnnotatorSuite::InvalAnnotationRect, invalidate>(suite);
}

template <> void fill(AIAnnotatorDrawerSuite& suite) {
    enter<&AIAnnotatorDrawerSuite::SetColor, setColor>(suite);
    enter<&AIAnnotatorDrawerSuite::SetOpacity, setOpacity>(suite);
    enter<&AIAnnotatorDrawerSuite::SetLineWidth, setLineWidth>(suite);
    enter<&AIAnnotatorDrawerSuite::SetLineDash, setLineDash>(suite);
    enter<&AIAnnotatorDrawerSuite::SetFontSize, setFontSize>(suite);
    enter<&AIAnnotatorDrawerSuite::DrawLine, drawLine>(suite);
    enter<&AIAnnotatorDrawerSuite::DrawRect, drawRect>(suite);
    enter<&AIAnnotatorDrawerSuite::DrawEllipse, drawEllipse>(suite);
    enter<&AIAnnotatorDrawerSuite::DrawPolygon, drawPolygon>(suite);
    enter<&AIAnnotatorDrawerSuite::DrawText, drawText>(suite);
}

} // namespace easel::suites
