// One layer of the host's current document: the calls behind core::Layer.
#pragma once

#include <string>

struct AILayer;
struct ArtObject;

namespace kzo::plugin {

class Layer {
  public:
    explicit Layer(AILayer* handle) : handle_(handle) {}

    [[nodiscard]] AILayer* handle() const { return handle_; }
    [[nodiscard]] bool sameAs(const Layer& other) const { return handle_ == other.handle_; }
    [[nodiscard]] std::string title() const;
    [[nodiscard]] bool visible() const;
    [[nodiscard]] bool editable() const;
    [[nodiscard]] bool hasSelectedArt() const;
    void deselectArt();

    [[nodiscard]] AILayer* next() const;    ///< null after the last
    [[nodiscard]] ArtObject* group() const; ///< holds all art of the layer

  private:
    AILayer* handle_;
};

} // namespace kzo::plugin
