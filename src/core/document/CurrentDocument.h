// The document that is in front in the host. Ask Illustrator for it each time; it may be another at the next message.
#pragma once

#include <memory>
#include <vector>

#include "core/document/Art.h"
#include "core/document/Layer.h"

namespace kzo::core {

/// Without a document lists are empty, handles null and counts 0.
class CurrentDocument {
  public:
    // Layers; index 0 is the topmost
    [[nodiscard]] int layerCount() const;
    [[nodiscard]] std::unique_ptr<Layer> layerAtIndex(int index) const;
    [[nodiscard]] std::unique_ptr<Layer> firstLayer() const;
    [[nodiscard]] std::unique_ptr<Layer> currentLayer() const;

    // Selection
    [[nodiscard]] std::unique_ptr<std::vector<Art>> selectedArt() const; ///< never null
    [[nodiscard]] bool anyArtSelected() const;
    void deselectAllArt();

    // View
    [[nodiscard]] double zoom() const; ///< of the view at index 0, screen units a point
};

} // namespace kzo::core
