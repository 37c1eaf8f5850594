// How an annotator's callback draws its marks over the view.
#pragma once

#include <string>
#include <vector>

#include "core/values/ArtboardPoint.h"
#include "core/values/ArtboardRect.h"
#include "core/values/PathStyle.h"

struct AIDrawingContext;

namespace kzo::core {

/// Draws into the context of the AnnotatorMessage being handled, and is of no use after it. Places are artboard points;
/// line widths, dashes and text sizes are screen units, for marks keep their size when one zooms. What is set holds for
/// what is drawn after it; at first that is opaque black, a solid line of width 1 and text of size 12. Every operation
/// returns whether the host did it; without a context none does.
class AnnotationDrawer {
  public:
    enum class Paint { Stroke, Fill };

    explicit AnnotationDrawer(AIDrawingContext* context) : context_(context) {}

    [[nodiscard]] bool isEmpty() const { return !context_; }

    // What follows is drawn so
    bool setColor(const ArtColor& color);
    bool setOpacity(double opacity); ///< 0 to 1
    bool setLineWidth(double width); ///< greater than 0
    bool setLineDash(double length); ///< of dashes and gaps; 0 is a solid line
    bool setFontSize(double size);   ///< greater than 0

    // Marks
    bool line(const ArtboardPoint& from, const ArtboardPoint& to);
    bool rect(const ArtboardRect& rect, Paint paint = Paint::Stroke);
    bool ellipse(const ArtboardRect& bounds, Paint paint = Paint::Stroke);
    bool polygon(const std::vector<ArtboardPoint>& corners, Paint paint = Paint::Stroke); ///< closed
    bool text(const std::string& text, const ArtboardPoint& position);                    ///< its baseline begins there

  private:
    AIDrawingContext* context_;
};

} // namespace kzo::core
