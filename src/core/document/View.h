// A handle on a view of the current document: what part of it the user sees.
#pragma once

#include "core/Handle.h"
#include "core/values/ArtboardPoint.h"
#include "core/values/ArtboardRect.h"

struct AIDocumentView;

namespace kzo::plugin {
class View;
}

namespace kzo::core {

extern template class Handle<plugin::View>;

/// An empty handle returns 0, the origin or an empty rectangle; what changes something returns whether the host did it.
class View : public Handle<plugin::View> {
  public:
    View() = default; ///< empty
    explicit View(AIDocumentView* handle);

    [[nodiscard]] AIDocumentView* aiDocumentViewHandle() const;

    [[nodiscard]] ArtboardRect bounds() const; ///< what is visible, in points
    [[nodiscard]] ArtboardPoint center() const;
    bool setCenter(const ArtboardPoint& center);
    [[nodiscard]] double zoom() const; ///< screen units a point
    bool setZoom(double zoom);         ///< false unless it is positive
};

} // namespace kzo::core
