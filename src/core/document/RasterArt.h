// The view of an Art as a picture in the drawing itself.
#pragma once

#include "core/document/ArtView.h"
#include "core/values/Size.h"
#include "core/values/TransformMatrix.h"

namespace kzo::core {

class RasterArt : public ArtView {
  public:
    using ArtView::ArtView;

    [[nodiscard]] Size pixelSize() const; ///< 0 by 0 where the host does not know it
    /// From the picture's pixels, counted from its top left, to the document; where their number is not known, from a
    /// square of one unit. The identity for other art.
    [[nodiscard]] TransformMatrix matrix() const;
    bool setMatrix(const TransformMatrix& matrix);
};

} // namespace kzo::core
