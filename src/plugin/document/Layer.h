// One layer of the host's current document: the calls behind core::Layer.
#pragma once

#include <string>

#include "plugin/host/Object.h"

struct AILayer;
struct ArtObject;

namespace kzo::plugin {

class Layer : public host::Object<AILayer> {
  public:
    using Object::Object;

    [[nodiscard]] std::string title() const;
    [[nodiscard]] bool visible() const;
    [[nodiscard]] bool editable() const;
    [[nodiscard]] bool hasSelectedArt() const;
    void deselectArt();

    [[nodiscard]] AILayer* next() const;    ///< null after the last
    [[nodiscard]] ArtObject* group() const; ///< holds all art of the layer
};

} // namespace kzo::plugin
