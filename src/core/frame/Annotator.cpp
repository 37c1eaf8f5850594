// Annotator: forwards to its implementation.
#include "core/frame/Annotator.h"

#include "core/Forward.h"
#include "plugin/frame/BasePlugin.h"

namespace kzo::core {

using Impl = plugin::Annotator;
template class Handle<Impl>;

Annotator::Annotator(const std::string& name, const Callback& callback)
    : Handle(plugin::makeRegistered<Impl>(name, CallbackSlot(callback))) {}

AIAnnotator* Annotator::aiAnnotatorHandle() const { return ask(impl(), &Impl::handle); }
std::string Annotator::name() const { return ask(impl(), &Impl::name); }
bool Annotator::active() const { return ask(impl(), &Impl::active); }
void Annotator::setActive(bool active) { ask(impl(), &Impl::setActive, active); }
Annotator::Options Annotator::options() const { return Options(ask(impl(), &Impl::options)); }
void Annotator::setOptions(Options options) { ask(impl(), &Impl::setOptions, bits(options)); }
Callback* Annotator::callback() const { return callbackOf(impl()); }
void Annotator::setCallback(const Callback& callback) { setCallbackOf(impl(), callback); }
void Annotator::invalidate() { ask(impl(), &Impl::invalidate); }
void Annotator::destroy() { plugin::destroyRegistered(impl()); }

} // namespace kzo::core
