// The view of an Art as a picture in a file of its own.
#pragma once

#include <string>

#include "core/document/ArtView.h"
#include "core/values/Size.h"
#include "core/values/TransformMatrix.h"

namespace kzo::core {

class PlacedArt : public ArtView {
  public:
    using ArtView::ArtView;

    [[nodiscard]] std::string filePath() const;
    /// Shows another file in the same place; the first one, in its own size. False where no picture is there.
    bool setFilePath(const std::string& path);
    [[nodiscard]] Size pixelSize() const; ///< 0 by 0 until the file is set, or Art::updateLinks looks at it
    /// As that of RasterArt.
    [[nodiscard]] TransformMatrix matrix() const;
    bool setMatrix(const TransformMatrix& matrix);
    bool embed(); ///< takes the picture into the drawing: the art is raster art from then on
};

} // namespace kzo::core
