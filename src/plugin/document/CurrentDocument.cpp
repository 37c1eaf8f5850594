// The document, layer, view and matching art suites' calls.
#include "plugin/document/CurrentDocument.h"

#include "hostapi/AIDocumentSuite.h"
#include "hostapi/AIDocumentViewSuite.h"
#include "hostapi/AILayerSuite.h"
#include "hostapi/AIMatchingArtSuite.h"
#include "hostapi/AIMdMemorySuite.h"
#include "plugin/document/Layer.h"
#include "plugin/host/HostCall.h"

namespace kzo::plugin {

bool CurrentDocument::exists() const { return host::get<&AIDocumentSuite::GetDocument>() != nullptr; }

// Layers

int CurrentDocument::layerCount() const { return host::get<&AILayerSuite::CountLayers>(); }
AILayer* CurrentDocument::layerAtIndex(int index) const { return host::get<&AILayerSuite::GetNthLayer>(index); }
AILayer* CurrentDocument::currentLayer() const { return host::get<&AILayerSuite::GetCurrentLayer>(); }

// Selection

std::vector<ArtObject*> CurrentDocument::selectedArt() const {
    AIArtHandle** list = nullptr;
    std::int32_t count = 0;
    std::vector<ArtObject*> selected;
    if (!host::call<&AIMatchingArtSuite::GetSelectedArt>(&list, &count) || !list) return selected;
    for (std::int32_t i = 0; i < count; ++i)
        if ((*list)[i]) selected.push_back((*list)[i]);
    host::call<&AIMdMemorySuite::MdMemoryDisposeHandle>(reinterpret_cast<AIMdMemoryHandle>(list));
    return selected;
}

bool CurrentDocument::anyArtSelected() const {
    for (AILayer* layer = firstLayer(); layer; layer = Layer(layer).next())
        if (Layer(layer).hasSelectedArt()) return true;
    return false;
}

void CurrentDocument::deselectAllArt() {
    host::call<&AIMatchingArtSuite::DeselectAll>();
    for (AILayer* layer = firstLayer(); layer; layer = Layer(layer).next()) Layer(layer).deselectArt();
}

// View

double CurrentDocument::zoom() const {
    const double zoom = host::get<&AIDocumentViewSuite::GetDocumentViewZoom>(AIDocumentViewHandle{});
    return zoom > 0 ? zoom : 1.0;
}

} // namespace kzo::plugin
