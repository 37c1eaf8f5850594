// The annotator drawer suite's calls.
#include "plugin/frame/AnnotationDrawer.h"

#include "hostapi/AIAnnotatorDrawerSuite.h"
#include "plugin/document/Convert.h"
#include "plugin/document/ConvertStyle.h"

namespace kzo::plugin {

using Suite = AIAnnotatorDrawerSuite;

bool AnnotationDrawer::setColor(const core::ArtColor& color) const { return call<&Suite::SetColor>(color); }
bool AnnotationDrawer::setOpacity(double opacity) const { return call<&Suite::SetOpacity>(opacity); }
bool AnnotationDrawer::setLineWidth(double width) const { return call<&Suite::SetLineWidth>(width); }
bool AnnotationDrawer::setLineDash(double length) const { return call<&Suite::SetLineDash>(length); }
bool AnnotationDrawer::setFontSize(double size) const { return call<&Suite::SetFontSize>(size); }

bool AnnotationDrawer::line(const core::ArtboardPoint& from, const core::ArtboardPoint& to) const {
    return call<&Suite::DrawLine>(from, to);
}

bool AnnotationDrawer::rect(const core::ArtboardRect& rect, bool filled) const {
    return call<&Suite::DrawRect>(rect, filled);
}

bool AnnotationDrawer::ellipse(const core::ArtboardRect& bounds, bool filled) const {
    return call<&Suite::DrawEllipse>(bounds, filled);
}

bool AnnotationDrawer::polygon(const std::vector<core::ArtboardPoint>& corners, bool filled) const {
    const std::vector<AIRealPoint> records = host::toHost(corners);
    return call<&Suite::DrawPolygon>(records.data(), static_cast<std::int32_t>(records.size()), filled);
}

bool AnnotationDrawer::text(const std::string& text, const core::ArtboardPoint& position) const {
    return call<&Suite::DrawText>(text, position);
}

} // namespace kzo::plugin
