// A handle on one layer of the current document.
#pragma once

#include <memory>
#include <string>

#include "core/Handle.h"

struct AILayer;

namespace kzo::plugin {
class Layer;
}

namespace kzo::core {

class Art;

extern template class Handle<plugin::Layer>;

/// An empty handle returns false, an empty text or null.
class Layer : public Handle<plugin::Layer> {
  public:
    class Iterator;

    Layer() = default; ///< empty
    using Handle::Handle;
    explicit Layer(AILayer* handle);

    [[nodiscard]] AILayer* aiLayerHandle() const;

    [[nodiscard]] std::string title() const;
    [[nodiscard]] bool visible() const;
    [[nodiscard]] bool editable() const;
    [[nodiscard]] bool hasSelectedArt() const;
    void deselectArt();

    [[nodiscard]] std::unique_ptr<Layer> next() const; ///< the one below, or null
    [[nodiscard]] std::unique_ptr<Art> group() const;  ///< the group that holds all art of the layer
    [[nodiscard]] Iterator begin() const;              ///< from this layer down
};

/// Walks layers from the topmost down.
class Layer::Iterator {
  public:
    explicit Iterator(std::unique_ptr<Layer> layer) : layer_(std::move(layer)) {}

    [[nodiscard]] bool atEnd() const { return !layer_; }
    [[nodiscard]] std::unique_ptr<Layer> layer() const { return layer_ ? std::make_unique<Layer>(*layer_) : nullptr; }
    Iterator& operator++() {
        if (layer_) layer_ = layer_->next();
        return *this;
    }

  private:
    std::unique_ptr<Layer> layer_;
};

} // namespace kzo::core
