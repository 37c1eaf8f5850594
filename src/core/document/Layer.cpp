// Layer: forwards to its implementation.
#include "core/document/Layer.h"

#include "core/Forward.h"
#include "core/document/Art.h"
#include "plugin/document/Layer.h"

namespace kzo::core {

Layer::Layer(AILayer* handle) : impl_(handle ? std::make_shared<plugin::Layer>(handle) : nullptr) {}

AILayer* Layer::aiLayerHandle() const { return ask(impl_, &plugin::Layer::handle); }
std::string Layer::title() const { return ask(impl_, &plugin::Layer::title); }
bool Layer::visible() const { return ask(impl_, &plugin::Layer::visible); }
bool Layer::editable() const { return ask(impl_, &plugin::Layer::editable); }
bool Layer::hasSelectedArt() const { return ask(impl_, &plugin::Layer::hasSelectedArt); }
void Layer::deselectArt() { ask(impl_, &plugin::Layer::deselectArt); }

std::unique_ptr<Layer> Layer::next() const { return newHandle<Layer>(ask(impl_, &plugin::Layer::next)); }
std::unique_ptr<Art> Layer::group() const { return newHandle<Art>(ask(impl_, &plugin::Layer::group)); }
Layer::Iterator Layer::begin() const { return Iterator(isEmpty() ? nullptr : std::make_unique<Layer>(*this)); }

} // namespace kzo::core
