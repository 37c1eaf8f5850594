// Where the tiles of patterns lie.
#include "svg/Tiles.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <utility>

#include "model/Flat.h"
#include "svg/Definitions.h"
#include "svg/Outlines.h"
#include "svg/Reach.h"
#include "svg/Units.h"
#include "svg/Values.h"

namespace easel::svg {

namespace {

using model::Affine;
using model::Box;
using model::Document;
using model::Node;

/// From the content's page to a tile at the origin, which it fills as a drawing fills its page.
std::optional<Affine> fitted(const DefinitionChain& chain, const Document& content, const Box& tile) {
    const std::string aspect = chain.find("preserveAspectRatio");
    if (!aspect.empty() && aspect != "none" && aspect != "xMidYMid" && aspect != "xMidYMid meet") return std::nullopt;
    const double width = tile.right - tile.left;
    const double height = tile.bottom - tile.top;
    const double across = width / content.width();
    const double down = height / content.height();
    if (aspect == "none") return Affine{across, 0, 0, down, 0, 0};
    const double scale = std::min(across, down);
    return Affine{scale, 0, 0, scale, (width - content.width() * scale) / 2, (height - content.height() * scale) / 2};
}

Box hullOf(const model::OutlineList& outlines, const Affine& transform) {
    Box box;
    for (const auto& outline : outlines) {
        model::PathData path = *outline;
        transformBy(path, transform);
        box.include(path.hull());
    }
    return box;
}

} // namespace

std::optional<Tiling> tilingNamed(Document& document, std::string_view name) try {
    const DefinitionChain chain = definitionChain(document, {"pattern"}, name);
    if (chain.holder.empty()) return std::nullopt;
    Tiling tiling;
    auto content = readDefinition(document, "pattern", chain.holder);
    if (!content || !canBeCopied(*content)) return std::nullopt;
    tiling.fitsBox = chain.find("patternUnits") != "userSpaceOnUse";
    tiling.transform = transform(chain.find("patternTransform")).value_or(Affine{});
    const Units units = tiling.fitsBox ? Units(1, 1) : Units(document.width(), document.height());
    const auto length = [&](const char* attribute, Along along) {
        const std::string text = chain.find(attribute);
        return text.empty() ? 0 : units.length(text, along).value_or(0);
    };
    const double x = length("x", Along::X);
    const double y = length("y", Along::Y);
    tiling.tile = {x, y, x + length("width", Along::X), y + length("height", Along::Y)};
    const bool hasBox = !chain.find("viewBox").empty();
    if (hasBox) {
        const auto text = definitionText(document, "pattern", chain.holder);
        if (text->startTag.find("viewBox") == std::string::npos || tiling.fitsBox) return std::nullopt;
        const auto fit = fitted(chain, *content, tiling.tile);
        if (!fit) return std::nullopt;
        tiling.fromContent = *fit;
    }
    tiling.contentFitsBox = !hasBox && chain.find("patternContentUnits") == "objectBoundingBox";
    tiling.content = std::move(content);
    return tiling;
} catch (const std::range_error&) { // a length in units that are not known, a number beyond all numbers
    return std::nullopt;
}

std::vector<Tile> tilesOf(const Tiling& tiling, const Box& box, const Affine& toPage,
                          const model::OutlineList& outlines) {
    const Affine size{box.right - box.left, 0, 0, box.bottom - box.top, 0, 0};
    Box tile = tiling.tile;
    if (tiling.fitsBox)
        tile = {box.left + tile.left * size.a, box.top + tile.top * size.d, box.left + tile.right * size.a,
                box.top + tile.bottom * size.d};
    const double width = tile.right - tile.left;
    const double height = tile.bottom - tile.top;
    const Affine out = tiling.transform * toPage;
    if (!(width > 0 && height > 0) || isFlat(out)) return {};
    const Box seen = hullOf(outlines, inverse(out));
    const Affine fromContent = tiling.contentFitsBox ? tiling.fromContent * size : tiling.fromContent;
    if (!withinReach(seen) || isFlat(fromContent)) return {};
    const double firstColumn = std::floor((seen.left - tile.left) / width);
    const double columns = std::floor((seen.right - tile.left) / width) - firstColumn + 1;
    const double firstRow = std::floor((seen.top - tile.top) / height);
    const double rows = std::floor((seen.bottom - tile.top) / height) - firstRow + 1;
    if (!(columns * rows <= static_cast<double>(kMostTiles))) return {};
    std::vector<Tile> tiles;
    for (double row = firstRow; row < firstRow + rows; ++row)
        for (double column = firstColumn; column < firstColumn + columns; ++column) {
            const Affine at = Affine{1, 0, 0, 1, tile.left + column * width, tile.top + row * height} * out;
            Tile& made = tiles.emplace_back(Tile{tiling.content, {}, {}});
            made.outline.closed = true;
            for (const model::Point corner :
                 {model::Point{0, 0}, model::Point{width, 0}, model::Point{width, height}, model::Point{0, height}})
                made.outline.points.push_back(model::cornerAt(corner));
            transformBy(made.outline, at);
            made.toPage = fromContent * at;
        }
    return tiles;
}

} // namespace easel::svg
