// Paint is taken apart into parts of a group, the lowest first, or into one compound path where that says it all.
#include "svg/Expanding.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "model/Bounds.h"
#include "model/Clip.h"
#include "model/Flat.h"
#include "model/Journal.h"
#include "model/StrokeOutline.h"
#include "svg/Bands.h"
#include "svg/Definitions.h"
#include "svg/ElementLook.h"
#include "svg/ElementParts.h"
#include "svg/Gradients.h"
#include "svg/Outlines.h"
#include "svg/Reach.h"
#include "svg/Source.h"
#include "svg/Tiles.h"
#include "svg/Values.h"

namespace easel::svg {

namespace {

using model::Affine;
using model::Document;
using model::Mask;
using model::Node;
using model::NodeType;
using model::OutlineList;
using model::PaintExpansion;
using model::Placement;
using model::Style;

/// From the units that the node's element is written in to the page.
Affine unitsOf(const Document& document, const Node& node) {
    const auto* const source = dynamic_cast<const Source*>(document.origin.get());
    if (!source) return Affine{};
    for (const Node* at = &node; at; at = at->parent()) {
        const std::uint32_t origin = at->units() ? at->units() : at->copied() ? at->copied()->origin : at->origin();
        if (origin != 0) return source->transforms[source->elements[origin - 1].toPage] * at->placed();
    }
    return source->transforms.front();
}

/// What one of the two paints of a path becomes.
struct Part {
    OutlineList outlines;   ///< what is filled, of a stroke or of the path
    Style style;            ///< fills it where nothing else is said, or paints the path
    bool isOutline = false; ///< filled anew, not painted as the path was
    std::vector<Band> bands{};
    std::vector<Tile> tiles{};
    double opacity = 1;

    [[nodiscard]] bool isTakenApart() const { return isOutline || !bands.empty() || !tiles.empty(); }
};

class Expander {
  public:
    Expander(Document& document, Node& path, const PaintExpansion& what)
        : document_(document), path_(path), what_(what), look_(document, path), toPage_(unitsOf(document, path)) {}

    bool run() {
        if (look_.hasMarkers() || isFlat(toPage_)) return false;
        const std::optional<Part> fill = fillPart();
        const std::optional<Part> stroke = strokePart();
        const bool any = (fill && fill->isTakenApart()) || (stroke && stroke->isTakenApart());
        if (!any) return false;
        const model::Journal::Scope change(document_.journal());
        const bool isAlone = !fill && stroke->bands.empty() && stroke->tiles.empty() && !fitsClip();
        if (isAlone) {
            Node& made = document_.createInPlaceOf(path_, NodeType::Compound);
            document_.setOpacity(made, made.extras().opacity * stroke->opacity);
            paint(made, stroke->style, stroke->outlines);
        } else {
            Node& group = document_.createInPlaceOf(path_, NodeType::Group);
            const bool strokeFirst = look_.get(Name::PaintOrder).starts_with("stroke");
            const std::optional<Part>* order[] = {&fill, &stroke};
            if (strokeFirst) std::swap(order[0], order[1]);
            for (const auto* const part : order)
                if (*part) add(group, **part);
        }
        document_.remove(path_);
        return true;
    }

  private:
    [[nodiscard]] bool fitsClip() const { return path_.clip() && path_.clip()->fitsBox; }

    // What there is to be done

    [[nodiscard]] std::optional<Part> fillPart() {
        if (!path_.style().isFilled()) return std::nullopt;
        Part part{path_.outlines(), path_.style()};
        part.style.setStroke(std::nullopt);
        part.opacity = look_.opacity(Name::FillOpacity);
        servePart(part, part.style.fillServer());
        return part;
    }

    [[nodiscard]] std::optional<Part> strokePart() {
        const Style& style = path_.style();
        if (!style.isStroked()) return std::nullopt;
        Part part{path_.outlines(), style};
        part.style.setFill(std::nullopt);
        part.opacity = look_.opacity(Name::StrokeOpacity);
        if (!what_.strokes) return part;
        OutlineList area;
        for (const auto& path : path_.outlines())
            for (model::PathData& piece : strokeOutline(*path, style)) area.emplace_back(std::move(piece));
        Style filled;
        filled.stroke = false;
        filled.fill = style.stroke;
        filled.fillColor = style.strokeColor;
        filled.overprintFill = style.overprintStroke;
        if (area.empty()) return part;
        Part outlined{std::move(area), filled, true, {}, {}, part.opacity};
        servePart(outlined, style.strokeServer());
        if (outlined.bands.empty() && outlined.tiles.empty()) {
            std::optional<std::string> server = serverAround(style.strokeServer());
            if (!server) return part;
            outlined.style.setServers({*std::move(server), {}});
        }
        return outlined;
    }

    /// A server that paints the area of the stroke as it painted the stroke, whose box is that of the path. None where
    /// it cannot be told.
    [[nodiscard]] std::optional<std::string> serverAround(const std::string& server) {
        if (server.empty()) return server;
        const std::string name(referredId(server));
        std::optional<Gradient> gradient = gradientNamed(document_, name);
        if (!gradient) {
            const std::optional<Tiling> tiling = tilingNamed(document_, name);
            return tiling && !tiling->fitsBox && !tiling->contentFitsBox ? std::optional(server) : std::nullopt;
        }
        if (!gradient->fitsBox) return server;
        const model::Box box = boxInUnits();
        if (isFlat(fromUnitBox(box))) return std::nullopt;
        gradient->transform = gradient->transform * fromUnitBox(box);
        return "url(#" + keepGradient(document_, *gradient) + ')';
    }

    [[nodiscard]] model::Box boxInUnits() const {
        model::Box box;
        for (const auto& outline : path_.outlines()) {
            model::PathData path = *outline;
            transformBy(path, inverse(toPage_));
            box.include(path.bounds());
        }
        return box;
    }

    static Affine fromUnitBox(const model::Box& box) {
        return {box.right - box.left, 0, 0, box.bottom - box.top, box.left, box.top};
    }

    void servePart(Part& part, const std::string& server) {
        if (server.empty()) return;
        const std::string name(referredId(server));
        const model::Box box = boxInUnits();
        if (what_.gradients)
            if (const auto gradient = gradientNamed(document_, name)) {
                const Affine toPage = gradient->fitsBox ? fromUnitBox(box) * toPage_ : toPage_;
                part.bands = bandsOf(*gradient, toPage, part.outlines, what_.steps);
            }
        if (what_.patterns)
            if (const auto tiling = tilingNamed(document_, name))
                part.tiles = tilesOf(*tiling, box, toPage_, part.outlines);
    }

    // Doing it

    void paint(Node& compound, const Style& style, const OutlineList& outlines) {
        document_.setStyle(compound, style);
        for (const auto& outline : outlines)
            document_.setPath(document_.create(NodeType::Path, Placement::AtBottomInside, compound), *outline);
    }

    /// Above what is in the group.
    void add(Node& group, const Part& part) {
        Node* made = nullptr;
        if (part.bands.empty() && part.tiles.empty()) {
            const bool isPath = part.outlines.size() == 1;
            made = &document_.createPart(isPath ? NodeType::Path : NodeType::Compound, Placement::OnTopInside, group,
                                         path_);
            if (isPath) {
                document_.setStyle(*made, part.style);
                document_.setPath(*made, *part.outlines.front());
            } else {
                paint(*made, part.style, part.outlines);
            }
        } else {
            made = &clipGroup(group, part.outlines, part.style.evenOdd);
            if (!part.bands.empty()) addBands(*made, part.bands);
            for (const Tile& tile : part.tiles) addTile(*made, tile);
        }
        document_.setOpacity(*made, part.opacity);
    }

    Node& clipGroup(Node& around, const OutlineList& outlines, bool evenOdd) {
        Node& group = document_.createPart(NodeType::Group, Placement::OnTopInside, around, path_);
        Mask::Shape shape{.subpaths = {}, .evenOdd = evenOdd};
        for (const auto& outline : outlines) shape.subpaths.push_back(*outline);
        for (model::PathData& subpath : shape.subpaths) subpath.closed = true;
        model::Extras extras;
        extras.hasOtherClip = true;
        extras.clip = model::Shared(clipOnPage(group, {std::move(shape)}));
        document_.setExtras(group, std::move(extras));
        return group;
    }

    void addBands(Node& clipped, const std::vector<Band>& bands) {
        Node* holder = &clipped;
        if (what_.toMeshes) {
            holder = &document_.createPart(NodeType::Group, Placement::OnTopInside, clipped, path_);
            document_.setExtras(
                *holder, {.groupKind = model::GroupKind::Mesh, .columns = static_cast<std::uint32_t>(bands.size())});
        }
        for (const Band& band : bands) {
            Style style;
            style.setStroke(std::nullopt);
            style.setFill(band.color);
            style.evenOdd = true;
            const bool isPath = band.outline.size() == 1;
            Node& made =
                document_.create(isPath ? NodeType::Path : NodeType::Compound, Placement::AtBottomInside, *holder);
            document_.setStyle(made, style);
            if (isPath) document_.setPath(made, band.outline.front());
            for (const model::PathData& subpath : band.outline)
                if (!isPath)
                    document_.setPath(document_.create(NodeType::Path, Placement::AtBottomInside, made), subpath);
            document_.setOpacity(made, band.opacity);
        }
    }

    void addTile(Node& clipped, const Tile& tile) {
        Node& group = clipGroup(clipped, {model::Shared(tile.outline)}, false);
        for (const Node* layer = tile.content->root().lastChild(); layer; layer = layer->previous())
            for (const Node* art = layer->lastChild(); art; art = art->previous())
                static_cast<void>(copyInto(document_, group, *art, tile.toPage));
    }

    Document& document_;
    Node& path_;
    const PaintExpansion& what_;
    const ElementLook look_;
    const Affine toPage_; // from the units of the path's element
};

} // namespace

bool expandPaint(Document& document, Node& path, const PaintExpansion& what) {
    return path.isOutlined() && Expander(document, path, what).run();
}

} // namespace easel::svg
