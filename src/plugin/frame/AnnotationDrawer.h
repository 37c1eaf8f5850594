// The calls by which a client draws annotations.
#pragma once

#include <string>
#include <vector>

#include "core/values/ArtboardPoint.h"
#include "core/values/ArtboardRect.h"
#include "core/values/PathStyle.h"
#include "plugin/host/Object.h"

struct AIDrawingContext;

namespace kzo::plugin {

/// Each returns whether the host did it; the host's context is null, or dead, when nothing can be drawn.
class AnnotationDrawer : public host::Object<AIDrawingContext> {
  public:
    using Object::Object;

    bool setColor(const core::ArtColor& color) const;
    bool setOpacity(double opacity) const;
    bool setLineWidth(double width) const;
    bool setLineDash(double length) const;
    bool setFontSize(double size) const;

    bool line(const core::ArtboardPoint& from, const core::ArtboardPoint& to) const;
    bool rect(const core::ArtboardRect& rect, bool filled) const;
    bool ellipse(const core::ArtboardRect& bounds, bool filled) const;
    bool polygon(const std::vector<core::ArtboardPoint>& corners, bool filled) const;
    bool text(const std::string& text, const core::ArtboardPoint& position) const;
};

} // namespace kzo::plugin
