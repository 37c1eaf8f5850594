// AnnotationDrawer: forwards to its implementation.
#include "core/frame/AnnotationDrawer.h"

#include "plugin/frame/AnnotationDrawer.h"

namespace kzo::core {

namespace {

using Impl = plugin::AnnotationDrawer;

/// Without a context the host is not asked.
template <class... Parameters, class... Arguments>
bool draw(AIDrawingContext* context, bool (Impl::*operation)(Parameters...) const, const Arguments&... arguments) {
    return context && (Impl{context}.*operation)(arguments...);
}

bool fills(AnnotationDrawer::Paint paint) { return paint == AnnotationDrawer::Paint::Fill; }

} // namespace

// What follows is drawn so

bool AnnotationDrawer::setColor(const ArtColor& color) { return draw(context_, &Impl::setColor, color); }
bool AnnotationDrawer::setOpacity(double opacity) { return draw(context_, &Impl::setOpacity, opacity); }
bool AnnotationDrawer::setLineWidth(double width) { return draw(context_, &Impl::setLineWidth, width); }
bool AnnotationDrawer::setLineDash(double length) { return draw(context_, &Impl::setLineDash, length); }
bool AnnotationDrawer::setFontSize(double size) { return draw(context_, &Impl::setFontSize, size); }

// Marks

bool AnnotationDrawer::line(const ArtboardPoint& from, const ArtboardPoint& to) {
    return draw(context_, &Impl::line, from.impl(), to.impl());
}

bool AnnotationDrawer::rect(const ArtboardRect& rect, Paint paint) {
    return draw(context_, &Impl::rect, rect.impl(), fills(paint));
}

bool AnnotationDrawer::ellipse(const ArtboardRect& bounds, Paint paint) {
    return draw(context_, &Impl::ellipse, bounds.impl(), fills(paint));
}

bool AnnotationDrawer::polygon(const std::vector<ArtboardPoint>& corners, Paint paint) {
    std::vector<plugin::ArtboardPoint> plain;
    plain.reserve(corners.size());
    for (const ArtboardPoint& corner : corners) plain.push_back(corner.impl());
    return draw(context_, &Impl::polygon, plain, fills(paint));
}

bool AnnotationDrawer::text(const std::string& text, const ArtboardPoint& position) {
    return draw(context_, &Impl::text, text, position.impl());
}

} // namespace kzo::core
