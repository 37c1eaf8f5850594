// A handle on one layer of the current document.
#pragma once

#include <memory>
#include <string>

#include "core/Handle.h"
#include "core/values/DocumentEnumerations.h"

struct AILayer;

namespace kzo::plugin {
class Layer;
}

namespace kzo::core {

class Art;

extern template class Handle<plugin::Layer>;

/// An empty handle returns false, an empty text or null; what changes something returns whether the host did it.
class Layer : public Handle<plugin::Layer> {
  public:
    class Iterator;

    Layer() = default; ///< empty
    using Handle::Handle;
    explicit Layer(AILayer* handle);
    /// Makes an empty layer, above or below another one or all, which is current from then on. Empty when the host
    /// refuses.
    explicit Layer(PaintOrder order, const Layer* prep = nullptr);

    [[nodiscard]] AILayer* aiLayerHandle() const;

    // Attributes
    [[nodiscard]] std::string title() const;
    bool setTitle(const std::string& title);
    [[nodiscard]] bool visible() const;
    bool setVisible(bool visible);
    [[nodiscard]] bool editable() const;
    bool setEditable(bool editable);
    [[nodiscard]] bool locked() const; ///< not editable; false for an empty handle
    bool setLocked(bool locked);

    // Selection
    [[nodiscard]] bool hasSelectedArt() const;
    void selectArt();
    void deselectArt();

    // Order and art
    bool reorder(PaintOrder order, const Layer* prep = nullptr);
    [[nodiscard]] std::unique_ptr<Layer> prior() const;  ///< the one above, or null
    [[nodiscard]] std::unique_ptr<Layer> next() const;   ///< the one below, or null
    [[nodiscard]] std::unique_ptr<Art> group() const;    ///< the group that holds all art of the layer
    [[nodiscard]] std::unique_ptr<Art> firstArt() const; ///< the topmost, or null
    [[nodiscard]] Iterator begin() const;                ///< from this layer down

    bool dispose(); ///< takes it out of the document with its art, unless it is the last
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
