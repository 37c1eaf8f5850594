// The layer and isolation mode suites.
#include "hostapi/AIArtSuite.h"
#include "hostapi/AIIsolationModeSuite.h"
#include "hostapi/AILayerSuite.h"
#include "suites/Enter.h"
#include "suites/Shared.h"

namespace easel::suites {

namespace {

using model::Document;
using model::Node;
using model::NodeType;
using model::Placement;

// Layers

AILayerHandle getNthLayer(std::int32_t index) {
    Document& document = currentDocument();
    const Node* node = index < 0 ? nullptr : document.layerAt(static_cast<std::size_t>(index));
    require(node);
    return layerHandle(document, node);
}

AILayerHandle getCurrentLayer() {
    Document& document = currentDocument();
    return layerHandle(document, &document.currentLayer());
}

AILayerHandle getByTitle(std::string_view title) {
    Document& document = currentDocument();
    const Node* layer = document.root().firstChild();
    while (layer && layer->name() != title) layer = layer->next();
    return layerHandle(document, layer);
}

/// Where a layer goes.
struct LayerPlace {
    Placement placement;
    Node& anchor;
};
LayerPlace layerPlace(Document& document, std::int16_t paintOrder, const std::optional<Layer>& prep) {
    if (paintOrder == kPlaceAboveAll) return {Placement::OnTopInside, document.root()};
    if (paintOrder == kPlaceBelowAll) return {Placement::AtBottomInside, document.root()};
    require(prep.has_value() && &prep->document == &document);
    require(paintOrder == kPlaceAbove || paintOrder == kPlaceBelow);
    return {paintOrder == kPlaceAbove ? Placement::Above : Placement::Below, prep->node};
}

AILayerHandle insertLayer(std::optional<Layer> prep, std::int16_t paintOrder) {
    Document& document = prep ? prep->document : currentDocument();
    const LayerPlace place = layerPlace(document, paintOrder, prep);
    Node& layer = document.addLayer("Layer " + std::to_string(document.layerCount() + 1));
    document.place(layer, place.placement, place.anchor);
    return layerHandle(document, &layer);
}

void reorderLayer(Layer layer, std::int16_t paintOrder, std::optional<Layer> prep) {
    if (prep && &prep->node == &layer.node) return;
    const LayerPlace place = layerPlace(layer.document, paintOrder, prep);
    layer.document.place(layer.node, place.placement, place.anchor);
}

void deleteLayer(Layer layer) {
    require(layer.document.layerCount() > 1, kRefusedErr);
    layer.document.remove(layer.node);
}

// Isolation

bool canIsolate(Art art) { return art.node.type() == NodeType::Group; }

void enterIsolation(Art art) {
    require(canIsolate(art), kRefusedErr);
    art.document.settings.isolated = art.node.id();
}

bool isIsolating() { return currentDocument().reach().type() != NodeType::Root; }

void exitIsolation() {
    require(isIsolating(), kRefusedErr);
    currentDocument().settings.isolated = {};
}

} // namespace

template <> void fill(AILayerSuite& suite) {
    enter<&AILayerSuite::CountLayers>(suite, [] { return currentDocument().layerCount(); });
    enter<&AILayerSuite::GetNthLayer, getNthLayer>(suite);
    enter<&AILayerSuite::GetNextLayer>(suite, [](Layer l) { return layerHandle(l.document, l.node.next()); });
    enter<&AILayerSuite::GetPriorLayer>(suite, [](Layer l) { return layerHandle(l.document, l.node.previous()); });
    enter<&AILayerSuite::GetLayerByTitle, getByTitle>(suite);
    enter<&AILayerSuite::InsertLayer, insertLayer>(suite);
    enter<&AILayerSuite::ReorderLayer, reorderLayer>(suite);
    enter<&AILayerSuite::DeleteLayer, deleteLayer>(suite);
    enter<&AILayerSuite::GetCurrentLayer, getCurrentLayer>(suite);
    enter<&AILayerSuite::SetCurrentLayer>(suite, [](Layer l) { l.document.setCurrentLayer(l.node); });
    enter<&AILayerSuite::GetLayerTitle>(suite, [](Layer l) { return l.node.name().c_str(); });
    enter<&AILayerSuite::SetLayerTitle>(suite, [](Layer l, std::string_view title) {
        require(isPlainText(title));
        l.document.setName(l.node, title);
    });
    enter<&AILayerSuite::GetLayerVisible>(suite, [](Layer l) { return !l.node.hidden(); });
    enter<&AILayerSuite::SetLayerVisible>(suite, [](Layer l, bool visible) { l.document.setHidden(l.node, !visible); });
    enter<&AILayerSuite::GetLayerEditable>(suite, [](Layer l) { return !l.node.locked(); });
    enter<&AILayerSuite::SetLayerEditable>(suite,
                                           [](Layer l, bool editable) { l.document.setLocked(l.node, !editable); });
    enter<&AILayerSuite::LayerHasSelectedArt>(suite, [](Layer l) { return l.document.hasSelection(l.node); });
    enter<&AILayerSuite::SelectLayerArt>(suite, [](Layer l) { l.document.select(l.node, true); });
    enter<&AILayerSuite::DeselectLayerArt>(suite, [](Layer l) { l.document.deselectAll(l.node); });
    enter<&AILayerSuite::GetLayerOfArt>(suite, [](Art art) { return layerHandle(art.document, &art.node.layer()); });
}

template <> void fill(AIIsolationModeSuite& suite) {
    enter<&AIIsolationModeSuite::CanIsolateArt, canIsolate>(suite);
    enter<&AIIsolationModeSuite::EnterIsolationMode, enterIsolation>(suite);
    enter<&AIIsolationModeSuite::ExitIsolationMode, exitIsolation>(suite);
    enter<&AIIsolationModeSuite::IsInIsolationMode, isIsolating>(suite);
    enter<&AIIsolationModeSuite::GetIsolatedArt>(suite, [] {
        Document& document = currentDocument();
        return artHandle(document, isIsolating() ? &document.reach() : nullptr);
    });
    enter<&AIIsolationModeSuite::IsArtIsolated>(suite, [](Art art) {
        Node& reach = art.document.reach();
        return reach.type() != NodeType::Root && art.node.isWithin(reach);
    });
}

} // namespace easel::suites
