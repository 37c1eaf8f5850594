// The host's current document: the calls behind core::CurrentDocument. Keeps nothing between calls, since the document
// may be another one at the next message.
#pragma once

#include <vector>

struct AILayer;
struct ArtObject;

namespace kzo::plugin {

class CurrentDocument {
  public:
    [[nodiscard]] bool exists() const;

    // Layers; index 0 is the topmost
    [[nodiscard]] int layerCount() const;
    [[nodiscard]] AILayer* layerAtIndex(int index) const;
    [[nodiscard]] AILayer* firstLayer() const { return layerAtIndex(0); }
    [[nodiscard]] AILayer* currentLayer() const;

    // Selection
    [[nodiscard]] std::vector<ArtObject*> selectedArt() const;
    [[nodiscard]] bool anyArtSelected() const;
    void deselectAllArt();

    // View
    [[nodiscard]] double zoom() const; ///< of the view at index 0, screen units a point; 1 without a document
};

} // namespace kzo::plugin
