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

Layer::Layer(PaintOrder order, const Layer* prep)
    : Layer(Impl::create(order, prep ? prep->aiLayerHandle() : nullptr)) {}

AILayer* Layer::aiLayerHandle() const { return ask(impl(), &Impl::handle); }
std::string Layer::title() const { return ask(impl(), &Impl::title); }
bool Layer::setTitle(const std::string& title) { return ask(impl(), &Impl::setTitle, title); }
bool Layer::visible() const { return ask(impl(), &Impl::visible); }
bool Layer::setVisible(bool visible) { return ask(impl(), &Impl::setVisible, visible); }
bool Layer::editable() const { return ask(impl(), &Impl::editable); }
bool Layer::setEditable(bool editable) { return ask(impl(), &Impl::setEditable, editable); }
bool Layer::locked() const { return group() && group()->locked(); }
bool Layer::setLocked(bool locked) { return setEditable(!locked); }
bool Layer::hasSelectedArt() const { return ask(impl(), &Impl::hasSelectedArt); }
void Layer::selectArt() { ask(impl(), &Impl::selectArt); }
void Layer::deselectArt() { ask(impl(), &Impl::deselectArt); }

bool Layer::reorder(PaintOrder order, const Layer* prep) {
    return ask(impl(), &Impl::reorder, order, prep ? prep->aiLayerHandle() : nullptr);
}
std::unique_ptr<Layer> Layer::prior() const { return newHandle<Layer>(ask(impl(), &Impl::prior)); }
std::unique_ptr<Layer> Layer::next() const { return newHandle<Layer>(ask(impl(), &Impl::next)); }
std::unique_ptr<Art> Layer::group() const { return newHandle<Art>(ask(impl(), &Impl::group)); }
std::unique_ptr<Art> Layer::firstArt() const {
    const auto all = group();
    return all ? all->firstChild() : nullptr;
}
Layer::Iterator Layer::begin() const { return Iterator(isEmpty() ? nullptr : std::make_unique<Layer>(*this)); }

bool Layer::dispose() { return ask(impl(), &Impl::dispose); }

} // namespace kzo::core
