// Layer: forwards to its implementation.
#include "core/document/Layer.h"

#include "core/Forward.h"
#include "core/document/Art.h"
#include "plugin/document/Layer.h"
#include "plugin/host/RefCountMap.h"

namespace kzo::core {

using Impl = plugin::Layer;
template class Handle<Impl>;

Layer::Layer(AILayer* handle) : Handle(plugin::share<Impl>(handle)) {}

AILayer* Layer::aiLayerHandle() const { return ask(impl(), &Impl::handle); }
std::string Layer::title() const { return ask(impl(), &Impl::title); }
bool Layer::visible() const { return ask(impl(), &Impl::visible); }
bool Layer::editable() const { return ask(impl(), &Impl::editable); }
bool Layer::hasSelectedArt() const { return ask(impl(), &Impl::hasSelectedArt); }
void Layer::deselectArt() { ask(impl(), &Impl::deselectArt); }

std::unique_ptr<Layer> Layer::next() const { return newHandle<Layer>(ask(impl(), &Impl::next)); }
std::unique_ptr<Art> Layer::group() const { return newHandle<Art>(ask(impl(), &Impl::group)); }
Layer::Iterator Layer::begin() const { return Iterator(isEmpty() ? nullptr : std::make_unique<Layer>(*this)); }

} // namespace kzo::core
