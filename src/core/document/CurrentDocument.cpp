// CurrentDocument: the implementation has no state, so one is made for each call.
#include "core/document/CurrentDocument.h"

#include "core/Forward.h"
#include "plugin/document/CurrentDocument.h"

namespace kzo::core {

namespace {

using Impl = plugin::CurrentDocument;

} // namespace

// Layers

int CurrentDocument::layerCount() const { return Impl().layerCount(); }
std::unique_ptr<Layer> CurrentDocument::layerAtIndex(int index) const {
    return newHandle<Layer>(Impl().layerAtIndex(index));
}
std::unique_ptr<Layer> CurrentDocument::firstLayer() const { return newHandle<Layer>(Impl().firstLayer()); }
std::unique_ptr<Layer> CurrentDocument::currentLayer() const { return newHandle<Layer>(Impl().currentLayer()); }

// Selection

std::unique_ptr<std::vector<Art>> CurrentDocument::selectedArt() const {
    const std::vector<ArtObject*> handles = Impl().selectedArt();
    return std::make_unique<std::vector<Art>>(handles.begin(), handles.end());
}

bool CurrentDocument::anyArtSelected() const { return Impl().anyArtSelected(); }
void CurrentDocument::deselectAllArt() { Impl().deselectAllArt(); }

// View

double CurrentDocument::zoom() const { return Impl().zoom(); }

} // namespace kzo::core
