// Patterns that a drawing keeps under names, and where their tile shows in what they paint.
#pragma once

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "model/Document.h"

namespace easel::svg {

constexpr std::size_t kMostTiles = 2'000; ///< of one pattern in one path

/// A pattern as the drawing says it, by reference to others as well.
struct Tiling {
    std::shared_ptr<model::Document> content;
    bool fitsBox = true; ///< its units are such that the box of what it paints goes from 0 to 1
    bool contentFitsBox = false;
    model::Box tile{};
    model::Affine fromContent = model::Affine{}; ///< from the content's page to a tile at the origin
    model::Affine transform = model::Affine{};
};

/// None where there is no pattern of this name, and where it cannot be told, or there is something in it of which no
/// copy can be made.
[[nodiscard]] std::optional<Tiling> tilingNamed(model::Document& document, std::string_view name);

/// One place of the tile.
struct Tile {
    std::shared_ptr<model::Document> content;
    model::PathData outline; ///< in the document's units
    model::Affine toPage;    ///< from the content's page
};

/// Those that are seen in some outlines; none at all where they are too many. `box` is that of what is painted, in the
/// units that lead `toPage`.
[[nodiscard]] std::vector<Tile> tilesOf(const Tiling& tiling, const model::Box& box, const model::Affine& toPage,
                                        const model::OutlineList& outlines);

} // namespace easel::svg
