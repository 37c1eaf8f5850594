// Layers, the selection, and what else finds art in the current document.
#include <algorithm>
#include <utility>

#include "hostapi/AILayerSuite.h"
#include "hostapi/AIMatchingArtSuite.h"
#include "plugin/document/Art.h"
#include "plugin/document/ArtList.h"
#include "plugin/document/Convert.h"
#include "plugin/document/ConvertArt.h"
#include "plugin/document/CurrentDocument.h"
#include "plugin/document/HitData.h"
#include "plugin/document/Layer.h"

namespace kzo::plugin {

// Layers

int CurrentDocument::layerCount() const { return host::get<&AILayerSuite::CountLayers>(); }
AILayer* CurrentDocument::layerAtIndex(int index) const { return host::get<&AILayerSuite::GetNthLayer>(index); }
AILayer* CurrentDocument::layerByTitle(const std::string& title) const {
    return host::get<&AILayerSuite::GetLayerByTitle>(title);
}
AILayer* CurrentDocument::currentLayer() const { return host::get<&AILayerSuite::GetCurrentLayer>(); }
bool CurrentDocument::setCurrentLayer(AILayer* layer) { return host::call<&AILayerSuite::SetCurrentLayer>(layer); }

// Selection

std::vector<ArtObject*> CurrentDocument::selectedArt() const {
    return artList(
        [](auto* list, auto* count) { return host::call<&AIMatchingArtSuite::GetSelectedArt>(list, count); });
}

bool CurrentDocument::anyArtSelected() const {
    const int count = layerCount();
    for (int i = 0; i < count; ++i)
        if (Layer(layerAtIndex(i)).hasSelectedArt()) return true;
    return false;
}

void CurrentDocument::deselectAllArt() {
    host::call<&AIMatchingArtSuite::DeselectAll>();
    for (AILayer* layer = firstLayer(); layer; layer = Layer(layer).next()) Layer(layer).deselectArt();
}

// Finding art

std::vector<ArtObject*> CurrentDocument::matchingArt(const std::vector<core::MatchArtSpec>& kinds) const {
    const std::vector<AIMatchingArtSpec> records = host::toHost(kinds);
    const auto count = static_cast<std::int32_t>(records.size());
    return artList([&](auto* list, auto* found) {
        return count > 0 && host::call<&AIMatchingArtSuite::GetMatchingArt>(records.data(), count, list, found);
    });
}

std::vector<ArtObject*> CurrentDocument::artAtPoint(const core::ArtboardPoint& point, core::HitRequest request) {
    constexpr double kTolerance = 2.0; // screen units
    std::vector<ArtObject*> found;
    std::vector<std::pair<ArtObject*, ArtObject*>> moved; // with the empty groups that keep their places
    ArtObject* const bottom = Layer(lastLayer()).group();
    for (;;) {
        const HitData hit(nullptr, point, request, kTolerance, true, HitOrder::Paint);
        ArtObject* const art = hit.hit() ? hit.art() : nullptr;
        if (!art || std::find(found.begin(), found.end(), art) != found.end()) break;
        found.push_back(art);
        // Part of a compound path moves with all of it: nothing but paths has a place in there.
        ArtObject* const around = Art(art).parent();
        ArtObject* const whole = around && Art(around).artType() == core::ArtType::CompoundPath ? around : art;
        ArtObject* const marker = Art::create(core::ArtType::Group, core::PaintOrder::Below, whole);
        if (!marker) break;
        if (!Art(whole).reorder(core::PaintOrder::BelowAll, bottom)) {
            Art(marker).dispose();
            break;
        }
        moved.emplace_back(whole, marker);
    }
    std::reverse(moved.begin(), moved.end());
    // Nothing may stay elsewhere because the host was busy for a moment.
    const auto twice = [](auto work) { return work() || work(); };
    for (const auto& each : moved) {
        const auto [art, marker] = each;
        twice([&, art = art, marker = marker] { return Art(art).reorder(core::PaintOrder::Above, marker); });
        twice([&, marker = marker] { return Art(marker).dispose(); });
    }
    return found;
}

} // namespace kzo::plugin
