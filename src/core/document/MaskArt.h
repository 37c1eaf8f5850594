// The view of an Art as something with a mask, which fades it by its brightness. Art of any type may have one.
#pragma once

#include "core/document/ArtView.h"

namespace kzo::core {

class MaskArt : public ArtView {
  public:
    using ArtView::ArtView;

    [[nodiscard]] bool exists() const;
    [[nodiscard]] bool disabled() const; ///< there, but not used
    bool setDisabled(bool disabled);
    /// Makes a mask of other art, which leaves the drawing; false when there is one already, when the other is this art
    /// or holds it, or when the host can make no copy of it.
    bool create(Art& by);
    bool copyFrom(const Art& other); ///< has the other's mask from then on; false when that has none
    bool dispose();                  ///< the art is without a mask then
};

} // namespace kzo::core
