// Notifier: forwards to its implementation.
#include "core/frame/Notifier.h"

#include "core/Forward.h"
#include "plugin/frame/BasePlugin.h"
#include "plugin/frame/Notifier.h"

namespace kzo::core {

Notifier::Notifier(const std::string& name, NotifierType type, const Callback& callback) {
    plugin::BasePlugin* const frame = plugin::frame();
    if (frame && type != NotifierType::None)
        impl_ = frame->addNotifier(name, notifierName(type), CallbackSlot(callback));
}

plugin::Notifier* Notifier::impl() const { return impl_ && impl_->handle() ? impl_.get() : nullptr; }
bool Notifier::isEmpty() const { return !impl(); }
AINotifier* Notifier::aiNotifierHandle() const { return ask(impl(), &plugin::Notifier::handle); }
std::string Notifier::name() const { return ask(impl(), &plugin::Notifier::name); }
NotifierType Notifier::type() const { return notifierType(ask(impl(), &plugin::Notifier::type)); }
Callback* Notifier::callback() const { return impl() ? impl()->callback().get() : nullptr; }

void Notifier::setCallback(const Callback& callback) {
    if (impl()) impl()->callback().set(callback);
}

void Notifier::destroy() {
    if (isEmpty()) return;
    if (plugin::BasePlugin* const frame = plugin::frame()) frame->notifiers().remove(*impl_);
    impl_->destroy();
}

} // namespace kzo::core
