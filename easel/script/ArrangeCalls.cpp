// Document objects: copies, order and groups of art, layers as a whole, and artboards. Each call is one undo step.
#include <algorithm>
#include <array>

#include "script/ArtList.h"
#include "script/Step.h"

namespace easel::script {

namespace {

using model::Node;
using model::NodeType;
using model::Placement;
using ThisDocument = This<Document>;

/// Topmost first.
std::vector<Node*> inPaintOrder(std::vector<Node*> nodes) {
    std::sort(nodes.begin(), nodes.end(),
              [](const Node* a, const Node* b) { return model::Document::comparePaintOrder(*a, *b) < 0; });
    return nodes;
}

void mustHold(const Node& parent, const Node& node) {
    if (parent.isWithin(node)) throw BadArgument("nothing can be put into itself");
    if (!parent.mayHold(node.type())) throw BadArgument("argument 1 (objects) cannot be put there");
}

// Copies and order

std::vector<Object> duplicate(Host& host, const ThisDocument& doc, const ArtList& list) {
    const auto nodes = outermost(list, doc);
    std::vector<Node*> copies;
    edit(host, *doc, [&] {
        for (Node* const node : nodes) copies.push_back(&doc->duplicate(*node, Placement::Above, *node));
    });
    return objects(doc, copies);
}

Placement placementOf(const std::string& order) {
    static constexpr std::array<std::pair<std::string_view, Placement>, 5> kOrders{
        {{"above", Placement::Above},
         {"below", Placement::Below},
         {"inside", Placement::OnTopInside},
         {"front", Placement::OnTopInside},
         {"back", Placement::AtBottomInside}}};
    for (const auto& [name, placement] : kOrders)
        if (name == order) return placement;
    throw BadArgument("argument 2 (order) must be \"above\", \"below\", \"inside\", \"front\" or \"back\", not \"" +
                      order + '"');
}

void reorder(Host& host, const ThisDocument& doc, const ArtList& list, const std::string& order,
             const std::optional<Art>& other) {
    const Placement placement = placementOf(order);
    const bool among = order == "front" || order == "back";
    if (!among && !other) throw BadArgument("argument 3 (other) is missing");
    if (other) mustBelong(*other, doc, "argument 3 (other)");
    auto nodes = inPaintOrder(outermost(list, doc));
    // Each goes next to the other object, so that the last one to go is nearest to it.
    if (placement == Placement::Below || placement == Placement::OnTopInside) std::reverse(nodes.begin(), nodes.end());
    const auto anchorOf = [&](Node& node) -> Node& { return among ? *node.parent() : *other->node; };
    for (Node* const node : nodes) {
        if (!among && other->node == node) throw BadArgument("nothing can be put beside itself");
        Node& anchor = anchorOf(*node);
        const bool beside = placement == Placement::Above || placement == Placement::Below;
        mustHold(beside ? *anchor.parent() : anchor, *node);
    }
    edit(host, *doc, [&] {
        for (Node* const node : nodes) doc->place(*node, placement, anchorOf(*node));
    });
}

// Groups

Object group(Host& host, const ThisDocument& doc, const ArtList& list) {
    auto nodes = inPaintOrder(outermost(list, doc));
    if (nodes.empty()) throw BadArgument("argument 1 (objects) must have an object");
    if (!nodes.front()->parent()->mayHold(NodeType::Group))
        throw BadArgument("argument 1 (objects): the parts of a compound path cannot be grouped");
    Object made{doc.open, nullptr};
    edit(host, *doc, [&] {
        made.node = &doc->create(NodeType::Group, Placement::Above, *nodes.front());
        for (Node* const node : nodes) doc->place(*node, Placement::AtBottomInside, *made.node);
    });
    return made;
}

std::vector<Object> ungroup(Host& host, const ThisDocument& doc, const Art& group) {
    mustBelong(group, doc, "argument 1 (group)");
    if (group->type() != NodeType::Group) throw BadArgument("argument 1 (group) is no group");
    std::vector<Node*> nodes;
    for (Node* child = group->firstChild(); child; child = child->next()) nodes.push_back(child);
    edit(host, *doc, [&] {
        for (Node* const node : nodes) doc->place(*node, Placement::Above, *group.node);
        doc->remove(*group.node);
    });
    return objects(doc, nodes);
}

// Layers

void removeLayer(Host& host, const ThisDocument& doc, const Layer& layer) {
    mustBelong(layer, doc, "argument 1 (layer)");
    if (doc->layerCount() == 1) throw BadArgument("the last layer cannot be removed");
    edit(host, *doc, [&] { doc->remove(*layer.node); });
}

void moveLayer(Host& host, const ThisDocument& doc, const Layer& layer, std::size_t index) {
    mustBelong(layer, doc, "argument 1 (layer)");
    if (index >= doc->layerCount()) throw BadArgument("argument 2 (index): there is no layer " + std::to_string(index));
    std::size_t is = 0;
    while (doc->layerAt(is) != layer.node) ++is;
    if (is == index) return;
    edit(host, *doc,
         [&] { doc->place(*layer.node, index < is ? Placement::Above : Placement::Below, *doc->layerAt(index)); });
}

// Artboards

std::vector<ArtboardRecord> artboards(Host& /*host*/, const ThisDocument& doc) {
    std::vector<ArtboardRecord> records;
    for (const model::Artboard& artboard : doc->artboards()) {
        const model::Box place = doc->placeOf(artboard);
        records.push_back(
            {artboard.title, {place.left, place.top, place.right - place.left, place.bottom - place.top}});
    }
    return records;
}

void addArtboard(Host& host, const ThisDocument& doc, const std::string& title, double x, double y, Positive width,
                 Positive height) {
    auto all = doc->artboards();
    all.push_back(
        {.id = doc->newArtboardId(), .title = title, .place = model::Box{x, y, x + width.value, y + height.value}});
    edit(host, *doc, [&] { doc->setArtboards(std::move(all)); });
}

void removeArtboard(Host& host, const ThisDocument& doc, std::size_t index) {
    auto all = doc->artboards();
    if (index >= all.size()) throw BadArgument("argument 1 (index): there is no artboard " + std::to_string(index));
    if (all.size() == 1) throw BadArgument("the last artboard cannot be removed");
    all.erase(all.begin() + static_cast<std::ptrdiff_t>(index));
    edit(host, *doc, [&] { doc->setArtboards(std::move(all)); });
}

// Symbols and patterns

std::vector<std::string> symbols(Host& /*host*/, const ThisDocument& doc) {
    return session::Documents::definitions(*doc, "symbol");
}

std::vector<std::string> patterns(Host& /*host*/, const ThisDocument& doc) {
    return session::Documents::definitions(*doc, "pattern");
}

Document edited(Host& host, const ThisDocument& doc, const char* kind, const std::string& name) {
    if (doc.open != host.session.document()) throw BadArgument("the document is not in front");
    host.session.edit(host.session.documents.numberOf(*doc), kind, name);
    return {host.session.document()};
}

Document editSymbol(Host& host, const ThisDocument& doc, const std::string& name) {
    return edited(host, doc, "symbol", name);
}

Document editPattern(Host& host, const ThisDocument& doc, const std::string& name) {
    return edited(host, doc, "pattern", name);
}

void endEditing(Host& host, const ThisDocument& doc) {
    const bool isInFront = doc.open == host.session.document();
    if (!isInFront || !host.session.documents.editedAs(*doc))
        throw BadArgument("the document is no symbol or pattern that is being edited");
    host.session.endEditing(host.session.documents.numberOf(*doc));
}

constexpr Row kArrangeCalls[] = {
    method<duplicate>("doc.duplicate", "objects"),
    method<reorder>("doc.reorder", "objects, order, other"),
    method<group>("doc.group", "objects"),
    method<ungroup>("doc.ungroup", "group"),
    method<removeLayer>("doc.removeLayer", "layer"),
    method<moveLayer>("doc.moveLayer", "layer, index"),
    property<artboards>("doc.artboards"),
    method<addArtboard>("doc.addArtboard", "title, x, y, width, height"),
    method<removeArtboard>("doc.removeArtboard", "index"),
    property<symbols>("doc.symbols"),
    property<patterns>("doc.patterns"),
    method<editSymbol>("doc.editSymbol", "name"),
    method<editPattern>("doc.editPattern", "name"),
    method<endEditing>("doc.endEditing", ""),
};

} // namespace

std::span<const Row> arrangeRows() { return kArrangeCalls; }

} // namespace easel::script
