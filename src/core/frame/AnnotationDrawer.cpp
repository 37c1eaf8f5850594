// AnnotationDrawer: forwards to its implementation.
#include "core/frame/AnnotationDrawer.h"

#include "plugin/frame/AnnotationDrawer.h"

namespace kzo::core {

namespace {

using Impl = plugin::AnnotationDrawer;

bool isFilled(AnnotationDrawer::Paint paint) { return paint == AnnotationDrawer::Paint::Fill; }

} // namespace

// What follows is drawn so

bool AnnotationDrawer::setColor(const ArtColor& color) { return Impl(context_).setColor(color); }
bool AnnotationDrawer::setOpacity(double opacity) { return Impl(context_).setOpacity(opacity); }
bool AnnotationDrawer::setLineWidth(double width) { return Impl(context_).setLineWidth(width); }
bool AnnotationDrawer::setLineDash(double length) { return Impl(context_).setLineDash(length); }
bool AnnotationDrawer::setFontSize(double size) { return Impl(context_).setFontSize(size); }

// Marks

bool AnnotationDrawer::line(const ArtboardPoint& from, const ArtboardPoint& to) {
    return Impl(context_).line(from, to);
}

bool AnnotationDrawer::rect(const ArtboardRect& rect, Paint paint) {
    return Impl(context_).rect(rect, isFilled(paint));
}

bool AnnotationDrawer::ellipse(const ArtboardRect& bounds, Paint paint) {
    return Impl(context_).ellipse(bounds, isFilled(paint));
}

bool AnnotationDrawer::polygon(const std::vector<ArtboardPoint>& corners, Paint paint) {
    return Impl(context_).polygon(corners, isFilled(paint));
}

bool AnnotationDrawer::text(const std::string& text, const ArtboardPoint& position) {
    return Impl(context_).text(text, position);
}

} // namespace kzo::core
