// The art, matching art and hit test suites on the document's tree.
#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "hostapi/AIArtSuite.h"
#include "hostapi/AIHitTestSuite.h"
#include "hostapi/AIMatchingArtSuite.h"
#include "model/Bounds.h"
#include "session/documents/Documents.h"
#include "session/frame/Memory.h"
#include "suites/Enter.h"
#include "suites/Shared.h"

namespace easel::suites {

namespace {

using model::Node;
using model::NodeType;
using model::Placement;
using session::Memory;

// Art

std::int16_t groupType(const Node& node) {
    switch (node.extras().groupKind) {
    case model::GroupKind::Plugin: return kPluginGroupArt;
    case model::GroupKind::Mesh: return kMeshArt;
    case model::GroupKind::Plain:
    case model::GroupKind::EditArt: break;
    }
    return kGroupArt;
}

std::int16_t opaqueType(const Node& node) {
    if (node.text()) return kTextFrameArt;
    if (node.symbol()) return kSymbolArt;
    if (const model::ImageData* const image = node.image()) return image->isEmbedded ? kRasterArt : kPlacedArt;
    return kForeignArt;
}

std::int16_t hostType(const Node& node) {
    switch (node.type()) {
    case NodeType::Root: break;
    case NodeType::Layer:
    case NodeType::Group: return groupType(node);
    case NodeType::Path: return kPathArt;
    case NodeType::Compound: return kCompoundPathArt;
    case NodeType::Opaque: return opaqueType(node);
    }
    return kUnknownArt;
}

/// A parent as plug-ins see it: a layer's group has none.
Node* visibleParent(const Node& node) { return node.type() == NodeType::Layer ? nullptr : node.parent(); }

AIArtHandle newArt(std::int16_t type, std::int16_t paintOrder, std::optional<Art> prep) {
    static constexpr std::pair<std::int16_t, NodeType> kMade[] = {{kGroupArt, NodeType::Group},
                                                                  {kMeshArt, NodeType::Group},
                                                                  {kPathArt, NodeType::Path},
                                                                  {kCompoundPathArt, NodeType::Compound},
                                                                  {kPlacedArt, NodeType::Opaque}};
    const auto* const made =
        std::find_if(std::begin(kMade), std::end(kMade), [&](auto row) { return row.first == type; });
    require(made != std::end(kMade));
    const Place place = placeFor(paintOrder, prep);
    require(place.parent().mayHold(made->second));
    Node& node = place.document.create(made->second, place.placement, place.anchor);
    if (type == kMeshArt) place.document.setExtras(node, {.groupKind = model::GroupKind::Mesh, .columns = 1});
    if (type == kPlacedArt) place.document.setSpecial(node, model::ImageData{.place = {0, 0, 0, 0, 0, 0}});
    return artHandle(place.document, &node);
}

void disposeArt(Art art) {
    require(art.node.type() != NodeType::Layer, kRefusedErr);
    art.document.remove(art.node);
}

/// Where art goes that is there already, or is to be copied: not into itself.
Place placeOutside(const Art& art, std::int16_t paintOrder, const std::optional<Art>& prep) {
    require(art.node.type() != NodeType::Layer, kRefusedErr);
    const Place place = placeFor(paintOrder, prep);
    require(&place.document == &art.document);
    const bool inside = place.placement == Placement::OnTopInside || place.placement == Placement::AtBottomInside;
    require(!(inside ? &place.anchor : place.anchor.parent())->isWithin(art.node), kRefusedErr);
    require(place.parent().mayHold(art.node.type()));
    return place;
}

AIArtHandle duplicateArt(Art art, std::int16_t paintOrder, std::optional<Art> prep) {
    const Place place = placeOutside(art, paintOrder, prep);
    return artHandle(art.document, &art.document.duplicate(art.node, place.placement, place.anchor));
}

void reorderArt(Art art, std::int16_t paintOrder, std::optional<Art> prep) {
    const Place place = placeOutside(art, paintOrder, prep);
    art.document.place(art.node, place.placement, place.anchor);
}

const char* getUid(Art art) {
    static std::string uid;
    const model::NodeId id = art.node.id();
    uid = std::to_string(host<session::Documents>().numberOf(art.document)) + '-' + std::to_string(id.slot) + '-' +
          std::to_string(id.generation);
    return uid.c_str();
}

bool validArt(AIArtHandle handle) {
    try {
        static_cast<void>(resolveArt(handle));
        return true;
    } catch (const HostError&) {
        return false;
    }
}

std::int32_t attributesOf(const Node& node, std::int32_t which) {
    const bool fully = node.type() == NodeType::Path ? node.allPointsSelected() : node.selected();
    const Node& whole = node.isSubpath() ? *node.parent() : node; // what is locked or hidden is all of a compound path
    return which &
           ((node.selected() ? kArtSelected : 0) | (whole.locked() ? kArtLocked : 0) |
            (whole.hidden() ? kArtHidden : 0) | (fully ? kArtFullySelected : 0) | (node.clip() ? kArtClipped : 0));
}

void setAttributes(Art art, std::int32_t which, std::int32_t attributes) {
    // What is selected in part stays so where nothing else is asked.
    const std::int32_t selection = which & (kArtSelected | kArtFullySelected);
    if (selection && (art.node.isContainer() || attributesOf(art.node, selection) != (attributes & selection)))
        art.document.select(art.node, (attributes & selection) != 0);
    if (which & kArtLocked) art.document.setLocked(art.node, (attributes & kArtLocked) != 0);
    if (which & kArtHidden) art.document.setHidden(art.node, (attributes & kArtHidden) != 0);
}

bool isEditable(Art art) { return !art.node.effectivelyLocked() && !art.node.effectivelyHidden(); }

AIArtHandle getSibling(Art art) { return artHandle(art.document, visibleParent(art.node) ? art.node.next() : nullptr); }

AIArtHandle getPriorSibling(Art art) {
    return artHandle(art.document, visibleParent(art.node) ? art.node.previous() : nullptr);
}

AIArtHandle getFirstArtOfLayer(std::optional<Layer> layer) {
    model::Document& document = layer ? layer->document : currentDocument();
    return artHandle(document, layer ? &layer->node : &document.currentLayer());
}

AIRealRect getBounds(Art art, const AIRealMatrix& matrix, std::int32_t flags) {
    const model::BoundsOptions options{.strokes = (flags & kStrokeBounds) != 0,
                                       .controls = (flags & kControlBounds) != 0,
                                       .hidden = (flags & kExcludeHiddenBounds) == 0,
                                       .unselected = (flags & kExcludeUnselectedBounds) == 0,
                                       .unpainted = (flags & kExcludeUnpaintedBounds) == 0};
    for (const double number : {matrix.a, matrix.b, matrix.c, matrix.d, matrix.tx, matrix.ty})
        require(std::isfinite(number));
    art.document.measure();
    const model::Box box = boundsOf(art.node, options, {matrix.a, matrix.b, matrix.c, matrix.d, matrix.tx, matrix.ty});
    return box.isEmpty() ? AIRealRect{} : AIRealRect{box.left, box.top, box.right, box.bottom};
}

// Matching art

void handOut(const model::Document& document, const std::vector<Node*>& found, AIArtHandle**& list,
             std::int32_t& count) {
    AIArtHandle** handle = nullptr;
    if (!found.empty()) {
        handle = reinterpret_cast<AIArtHandle**>(host<Memory>().newHandle(found.size() * sizeof(AIArtHandle)));
        const std::uint32_t number = host<session::Documents>().numberOf(document);
        for (std::size_t i = 0; i < found.size(); ++i) {
            const model::NodeId id = found[i]->id();
            (*handle)[i] = session::makeHandle<AIArtHandle>(number, id.generation, id.slot);
        }
    }
    list = handle;
    count = static_cast<std::int32_t>(found.size());
}

void getSelectedArt(AIArtHandle**& list, std::int32_t& count) {
    model::Document& document = currentDocument();
    handOut(document, document.selection(), list, count);
}

bool matches(const Node& node, const AIMatchingArtSpec& kind) {
    if (kind.type == kAnyArt ? node.type() == NodeType::Layer : hostType(node) != kind.type) return false;
    return attributesOf(node, kind.which) == (kind.attributes & kind.which);
}

void getMatchingWithin(Art within, const AIMatchingArtSpec& kinds, std::int32_t kindCount, AIArtHandle**& list,
                       std::int32_t& count) {
    require(kindCount >= 1);
    const Node& top = within.node;
    std::vector<Node*> found;
    for (Node* at = nextWithin(top, top); at; at = nextWithin(top, *at))
        if (std::any_of(&kinds, &kinds + kindCount, [&](const auto& kind) { return matches(*at, kind); }))
            found.push_back(at);
    handOut(within.document, found, list, count);
}

void getMatching(const AIMatchingArtSpec& kinds, std::int32_t kindCount, AIArtHandle**& list, std::int32_t& count) {
    model::Document& document = currentDocument();
    getMatchingWithin({document, document.root()}, kinds, kindCount, list, count);
}

// Hit test

template <model::HitOrder kOrder>
AIHitRecord hitTest(std::optional<Art> art, const AIRealPoint& point, AIReal tolerance, std::int32_t request) {
    require(std::isfinite(point.h) && std::isfinite(point.v) && tolerance >= 0);
    model::Document& document = art ? art->document : currentDocument();
    const model::Hit hit = document.hitTest(art ? art->node : document.reach(), {point.h, point.v}, tolerance,
                                            static_cast<model::HitRequest>(request), kOrder);
    static constexpr std::int32_t kTypes[] = {kAINoHit,        kAIAnchorHit,  kAIInHandleHit,
                                              kAIOutHandleHit, kAISegmentHit, kAIFillHit};
    return {.type = kTypes[static_cast<int>(hit.kind)],
            .art = artHandle(document, hit.node),
            .point = {hit.point.x, hit.point.y},
            .t = hit.t,
            .segment = static_cast<std::int16_t>(hit.index),
            .inGroup = hit.node && hit.node->parent()->type() != NodeType::Layer,
            .textRange = nullptr};
}

} // namespace

Place placeFor(std::int16_t paintOrder, const std::optional<Art>& prep) {
    model::Document& document = prep ? prep->document : currentDocument();
    if (paintOrder == kPlaceAboveAll || paintOrder == kPlaceBelowAll) {
        Node& isolated = document.reach();
        Node& layer = prep                                ? *document.find(prep->node.layer().id())
                      : isolated.type() == NodeType::Root ? document.currentLayer()
                                                          : isolated;
        return {document, layer, paintOrder == kPlaceAboveAll ? Placement::OnTopInside : Placement::AtBottomInside};
    }
    require(prep.has_value() && paintOrder >= kPlaceAbove && paintOrder <= kPlaceInsideOnBottom);
    const bool inside = paintOrder == kPlaceInsideOnTop || paintOrder == kPlaceInsideOnBottom;
    require(inside ? prep->node.isContainer() : prep->node.type() != NodeType::Layer);
    static constexpr Placement kPlacements[] = {Placement::Above, Placement::Below, Placement::OnTopInside,
                                                Placement::AtBottomInside};
    return {document, prep->node, kPlacements[paintOrder - kPlaceAbove]};
}

template <> void fill(AIArtSuite& suite) {
    enter<&AIArtSuite::NewArt, newArt>(suite);
    enter<&AIArtSuite::DisposeArt, disposeArt>(suite);
    enter<&AIArtSuite::ValidArt, validArt>(suite);
    enter<&AIArtSuite::GetArtType>(suite, [](Art art) { return hostType(art.node); });
    enter<&AIArtSuite::GetArtUserAttr>(suite,
                                       [](Art art, std::int32_t which) { return attributesOf(art.node, which); });
    enter<&AIArtSuite::SetArtUserAttr, setAttributes>(suite);
    enter<&AIArtSuite::GetArtParent>(suite, [](Art art) { return artHandle(art.document, visibleParent(art.node)); });
    enter<&AIArtSuite::GetArtFirstChild>(suite, [](Art art) { return artHandle(art.document, art.node.firstChild()); });
    enter<&AIArtSuite::GetArtSibling, getSibling>(suite);
    enter<&AIArtSuite::GetArtPriorSibling, getPriorSibling>(suite);
    enter<&AIArtSuite::DuplicateArt, duplicateArt>(suite);
    enter<&AIArtSuite::ReorderArt, reorderArt>(suite);
    enter<&AIArtSuite::DisposeArtChildren>(suite, [](Art art) { art.document.removeChildren(art.node); });
    enter<&AIArtSuite::GetArtUID, getUid>(suite);
    enter<&AIArtSuite::GetArtLastChild>(suite, [](Art art) { return artHandle(art.document, art.node.lastChild()); });
    enter<&AIArtSuite::CountArtChildren>(suite, [](Art art) { return art.node.childCount(); });
    enter<&AIArtSuite::IsArtLayerGroup>(suite, [](Art art) { return art.node.type() == NodeType::Layer; });
    enter<&AIArtSuite::IsArtEditable, isEditable>(suite);
    enter<&AIArtSuite::GetArtTransformBounds, getBounds>(suite);
    enter<&AIArtSuite::GetFirstArtOfLayer, getFirstArtOfLayer>(suite);
    enter<&AIArtSuite::UpdateArtBounds>(suite, [](Art art) { art.document.measure(); });
}

template <> void fill(AIMatchingArtSuite& suite) {
    enter<&AIMatchingArtSuite::GetSelectedArt, getSelectedArt>(suite);
    enter<&AIMatchingArtSuite::GetMatchingArt, getMatching>(suite);
    enter<&AIMatchingArtSuite::GetMatchingArtWithin, getMatchingWithin>(suite);
    enter<&AIMatchingArtSuite::DeselectAll>(suite, [] { currentDocument().deselectAll(); });
}

template <> void fill(AIHitTestSuite& suite) {
    enter<&AIHitTestSuite::HitTest, hitTest<model::HitOrder::Kind>>(suite);
    enter<&AIHitTestSuite::HitTestTopmost, hitTest<model::HitOrder::Paint>>(suite);
}

} // namespace easel::suites
