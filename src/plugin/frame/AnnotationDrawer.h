// The calls by which a client draws annotations.
#pragma once

#include <string>
#include <vector>

#include "core/values/PathStyle.h"
#include "plugin/values/ArtboardPoint.h"
#include "plugin/values/ArtboardRect.h"

struct AIDrawingContext;

namespace kzo::plugin {

/// Each answers whether the host did it; the host's context is null, or dead, when nothing can be drawn.
struct AnnotationDrawer {
    AIDrawingContext* context = nullptr;

    [[nodiscard]] bool setColor(const core::ArtColor& color) const;
    [[nodiscard]] bool setOpacity(double opacity) const;
    [[nodiscard]] bool setLineWidth(double width) const;
    [[nodiscard]] bool setLineDash(double length) const;
    [[nodiscard]] bool setFontSize(double size) const;

    [[nodiscard]] bool line(const ArtboardPoint& from, const ArtboardPoint& to) const;
    [[nodiscard]] bool rect(const ArtboardRect& rect, bool filled) const;
    [[nodiscard]] bool ellipse(const ArtboardRect& bounds, bool filled) const;
    [[nodiscard]] bool polygon(const std::vector<ArtboardPoint>& corners, bool filled) const;
    [[nodiscard]] bool text(const std::string& text, const ArtboardPoint& position) const;
};

} // namespace kzo::plugin
