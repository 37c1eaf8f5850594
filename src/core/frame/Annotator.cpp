// Annotator: forwards to its implementation.
#include "core/frame/Annotator.h"

#include "core/Forward.h"
#include "plugin/frame/BasePlugin.h"

namespace kzo::core {

Annotator::Annotator(const std::string& name, const Callback& callback) {
    plugin::BasePlugin* const frame = plugin::frame();
    if (!frame) return;
    const auto made = std::make_shared<plugin::Annotator>(frame->spPluginRef(), name, CallbackSlot(callback));
    if (!made->handle()) return;
    frame->annotators().add(made);
    impl_ = made;
}

plugin::Annotator* Annotator::__impl() const { return impl_ && impl_->handle() ? impl_.get() : nullptr; }
bool Annotator::isEmpty() const { return !__impl(); }
AIAnnotator* Annotator::aiAnnotatorHandle() const { return ask(__impl(), &plugin::Annotator::handle); }
std::string Annotator::name() const { return ask(__impl(), &plugin::Annotator::name); }
bool Annotator::active() const { return ask(__impl(), &plugin::Annotator::active); }
void Annotator::setActive(bool active) { ask(__impl(), &plugin::Annotator::setActive, active); }
Annotator::Options Annotator::options() const { return Options(ask(__impl(), &plugin::Annotator::options)); }
void Annotator::setOptions(Options options) { ask(__impl(), &plugin::Annotator::setOptions, bits(options)); }
Callback* Annotator::callback() const { return __impl() ? __impl()->callback().get() : nullptr; }

void Annotator::setCallback(const Callback& callback) {
    if (__impl()) __impl()->callback().set(callback);
}

void Annotator::invalidate() { ask(__impl(), &plugin::Annotator::invalidate); }

void Annotator::destroy() {
    if (isEmpty()) return;
    if (plugin::BasePlugin* const frame = plugin::frame()) frame->annotators().remove(*impl_);
    impl_->destroy();
}

} // namespace kzo::core
