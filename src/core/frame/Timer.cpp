// Timer: forwards to its implementation.
#include "core/frame/Timer.h"

#include "core/Forward.h"
#include "plugin/frame/BasePlugin.h"

namespace kzo::core {

using Impl = plugin::Timer;
template class Handle<Impl>;

Timer::Timer(const std::string& name, double delay, const Callback& callback)
    : Handle(plugin::makeRegistered<Impl>(name, delay, CallbackSlot(callback))) {}

AITimer* Timer::aiTimerHandle() const { return ask(impl(), &Impl::handle); }
std::string Timer::name() const { return ask(impl(), &Impl::name); }
double Timer::delay() const { return ask(impl(), &Impl::delay); }
void Timer::setDelay(double delay) { ask(impl(), &Impl::setDelay, delay); }
bool Timer::active() const { return ask(impl(), &Impl::active); }
void Timer::setActive(bool active) { ask(impl(), &Impl::setActive, active); }
Callback* Timer::callback() const { return callbackOf(impl()); }
void Timer::setCallback(const Callback& callback) { setCallbackOf(impl(), callback); }
void Timer::destroy() { plugin::destroyRegistered(impl()); }

} // namespace kzo::core
