// One layer of the host's current document: the calls behind core::Layer.
#pragma once

#include <string>

#include "core/values/DocumentEnumerations.h"
#include "plugin/host/Object.h"

struct AILayer;
struct ArtObject;

namespace kzo::plugin {

class Layer : public host::Object<AILayer> {
  public:
    using Object::Object;

    /// Makes an empty one; null when the host refuses.
    [[nodiscard]] static AILayer* create(core::PaintOrder order, AILayer* prep);

    [[nodiscard]] std::string title() const;
    bool setTitle(const std::string& title);
    [[nodiscard]] bool visible() const;
    bool setVisible(bool visible);
    [[nodiscard]] bool editable() const;
    bool setEditable(bool editable);
    bool reorder(core::PaintOrder order, AILayer* prep);
    bool dispose();

    [[nodiscard]] bool hasSelectedArt() const;
    bool selectArt();
    bool deselectArt();

    [[nodiscard]] AILayer* prior() const;   ///< null before the first
    [[nodiscard]] AILayer* next() const;    ///< null after the last
    [[nodiscard]] ArtObject* group() const; ///< holds all art of the layer
};

} // namespace kzo::plugin
