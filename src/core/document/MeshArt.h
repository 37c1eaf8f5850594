// The view of an Art as a mesh: a grid of patches, each with a colour.
#pragma once

#include <cstdint>

#include "core/document/ArtView.h"
#include "core/values/ArtboardRect.h"
#include "core/values/PathStyle.h"

namespace kzo::core {

/// The patches are paths, the children of the art: row by row, the top left one first. Rows and columns count from 0;
/// a patch that there is not is black, and cannot be changed.
class MeshArt : public ArtView {
  public:
    using ArtView::ArtView;

    [[nodiscard]] std::int32_t rowCount() const;
    [[nodiscard]] std::int32_t columnCount() const;
    /// Replaces all patches by equal white ones in `bounds`; at most 10,000.
    bool init(std::int32_t rows, std::int32_t columns, const ArtboardRect& bounds);
    [[nodiscard]] ArtColor color(std::int32_t row, std::int32_t column) const;
    bool setColor(std::int32_t row, std::int32_t column, const ArtColor& color);
};

} // namespace kzo::core
