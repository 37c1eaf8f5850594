// Counts nodes; the reasons come from the source.
#include "svg/Summary.h"

#include <array>
#include <cmath>
#include <map>
#include <ostream>
#include <string>

#include "svg/Limits.h"
#include "svg/Outlines.h"
#include "svg/Picture.h"
#include "svg/Source.h"
#include "svg/Values.h"

namespace easel::svg {

namespace {

using model::Node;
using model::NodeType;

std::string reasonText(Reason reason) {
    switch (reason) {
    case Reason::None:
    case Reason::Kind: break;
    case Reason::Subpaths: return "more than " + std::to_string(kMostElements) + " subpaths in the drawing";
    case Reason::Anchors: return "more than " + std::to_string(kMostAnchors) + " anchors";
    case Reason::Singular: return "a transform that cannot be inverted";
    case Reason::Transform: return "a transform in a style, or numbers that cannot be used";
    case Reason::Unit: return "a length in units that are not known";
    case Reason::TooFar: return "coordinates beyond 1e9 points";
    case Reason::Entity: return "stands in an entity";
    }
    return "shown, not edited";
}

struct Counts {
    std::array<std::size_t, 6> ofType{}; // by NodeType; without subpaths
    std::map<std::string, std::size_t> opaque;
    std::size_t opaqueShapes = 0;
};

std::string plural(std::size_t count, const std::string& noun) {
    return std::to_string(count) + ' ' + noun + (count == 1 ? "" : "s");
}

/// Counts what a layer holds.
void count(const Node& layer, const Source* source, Counts& counts) {
    for (const Node* node = layer.firstChild(); node;) {
        ++counts.ofType[static_cast<std::size_t>(node->type())];
        if (node->type() == NodeType::Opaque && source && node->origin() != 0) {
            const Element& element = source->elements[node->origin() - 1];
            const std::string name =
                element.reason == Reason::Entity ? "art" : '<' + std::string(source->tagName(element)) + '>';
            ++counts.opaque[name + ": " + reasonText(element.reason)];
            if (element.reason != Reason::Entity && isShape(localName(source->tagName(element)))) ++counts.opaqueShapes;
        }
        if (isGroup(*node) && node->firstChild()) {
            node = node->firstChild();
            continue;
        }
        while (node != &layer && !node->next()) node = node->parent();
        node = node == &layer ? nullptr : node->next();
    }
}

} // namespace

void summarize(model::Document& document, std::ostream& out) {
    const auto* const source = dynamic_cast<const Source*>(document.origin.get());
    out << "page: " << document.width() << " x " << document.height() << " points\n";
    const auto millimetres = [](double points) { return std::round(points / 72 * 25.4 * 100) / 100; };
    const Sheet sheet = sheetOf(document);
    out << "sheet: " << millimetres(sheet.width) << " x " << millimetres(sheet.height) << " mm"
        << (sheet.told ? "" : " (a point for each unit, since the file leaves it open)") << '\n';
    Counts counts;
    for (std::size_t i = 0; i < document.layerCount(); ++i) {
        const Node& layer = *document.layerAt(i);
        out << "layer: " << layer.name() << (layer.hidden() ? " (hidden)" : "") << (layer.locked() ? " (locked)" : "")
            << ", " << plural(layer.childCount(), "object") << '\n';
        count(layer, source, counts);
    }
    const auto ofType = [&](NodeType type) { return counts.ofType[static_cast<std::size_t>(type)]; };
    out << "objects: " << plural(ofType(NodeType::Group), "group") << ", " << plural(ofType(NodeType::Path), "path")
        << ", " << plural(ofType(NodeType::Compound), "compound path") << ", " << ofType(NodeType::Opaque)
        << " opaque\n";
    const std::size_t shapes = ofType(NodeType::Path) + ofType(NodeType::Compound) + counts.opaqueShapes;
    out << "shapes: " << shapes << ", " << counts.opaqueShapes << " of them opaque\n";
    for (const auto& [what, number] : counts.opaque) out << "opaque: " << number << " " << what << '\n';
}

} // namespace easel::svg
