// Notifier: forwards to its implementation.
#include "core/frame/Notifier.h"

#include "core/Forward.h"
#include "plugin/frame/BasePlugin.h"

namespace kzo::core {

using Impl = plugin::Notifier;
template class Handle<Impl>;

Notifier::Notifier(const std::string& name, NotifierType type, const Callback& callback)
    : Handle(type == NotifierType::None
                 ? nullptr
                 : plugin::makeRegistered<Impl>(name, notifierName(type), CallbackSlot(callback))) {}

AINotifier* Notifier::aiNotifierHandle() const { return ask(impl(), &Impl::handle); }
std::string Notifier::name() const { return ask(impl(), &Impl::name); }
NotifierType Notifier::type() const { return notifierType(ask(impl(), &Impl::type)); }
Callback* Notifier::callback() const { return callbackOf(impl()); }
void Notifier::setCallback(const Callback& callback) { setCallbackOf(impl(), callback); }
void Notifier::destroy() { plugin::destroyRegistered(impl()); }

} // namespace kzo::core
