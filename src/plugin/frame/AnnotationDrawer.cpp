// The annotator drawer suite's calls.
#include "plugin/frame/AnnotationDrawer.h"

#include "hostapi/AIAnnotatorDrawerSuite.h"
#include "plugin/document/Convert.h"
#include "plugin/host/HostCall.h"

namespace kzo::plugin {

bool AnnotationDrawer::setColor(const core::ArtColor& color) const {
    return host::call<&AIAnnotatorDrawerSuite::SetColor>(context, color);
}

bool AnnotationDrawer::setOpacity(double opacity) const {
    return host::call<&AIAnnotatorDrawerSuite::SetOpacity>(context, opacity);
}

bool AnnotationDrawer::setLineWidth(double width) const {
    return host::call<&AIAnnotatorDrawerSuite::SetLineWidth>(context, width);
}

bool AnnotationDrawer::setLineDash(double length) const {
    return host::call<&AIAnnotatorDrawerSuite::SetLineDash>(context, length);
}

bool AnnotationDrawer::setFontSize(double size) const {
    return host::call<&AIAnnotatorDrawerSuite::SetFontSize>(context, size);
}

bool AnnotationDrawer::line(const ArtboardPoint& from, const ArtboardPoint& to) const {
    const AIRealPoint ends[] = {from.toAIRealPoint(), to.toAIRealPoint()};
    return host::call<&AIAnnotatorDrawerSuite::DrawLine>(context, &ends[0], &ends[1]);
}

bool AnnotationDrawer::rect(const ArtboardRect& rect, bool filled) const {
    const AIRealRect host = rect.toAIRealRect();
    return host::call<&AIAnnotatorDrawerSuite::DrawRect>(context, &host, AIBoolean{filled});
}

bool AnnotationDrawer::ellipse(const ArtboardRect& bounds, bool filled) const {
    const AIRealRect host = bounds.toAIRealRect();
    return host::call<&AIAnnotatorDrawerSuite::DrawEllipse>(context, &host, AIBoolean{filled});
}

bool AnnotationDrawer::polygon(const std::vector<ArtboardPoint>& corners, bool filled) const {
    std::vector<AIRealPoint> host;
    host.reserve(corners.size());
    for (const ArtboardPoint& corner : corners) host.push_back(corner.toAIRealPoint());
    return host::call<&AIAnnotatorDrawerSuite::DrawPolygon>(context, host.data(),
                                                            static_cast<std::int32_t>(host.size()), AIBoolean{filled});
}

bool AnnotationDrawer::text(const std::string& text, const ArtboardPoint& position) const {
    const AIRealPoint host = position.toAIRealPoint();
    return host::call<&AIAnnotatorDrawerSuite::DrawText>(context, text.c_str(), &host);
}

} // namespace kzo::plugin
