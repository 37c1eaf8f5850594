// Timer: forwards to its implementation.
#include "core/frame/Timer.h"

#include "core/Forward.h"
#include "plugin/frame/BasePlugin.h"

namespace kzo::core {

Timer::Timer(const std::string& name, double delay, const Callback& callback) {
    plugin::BasePlugin* const frame = plugin::frame();
    if (!frame) return;
    const auto made = std::make_shared<plugin::Timer>(frame->spPluginRef(), name, delay, CallbackSlot(callback));
    if (!made->handle()) return;
    frame->timers().add(made);
    impl_ = made;
}

plugin::Timer* Timer::__impl() const { return impl_ && impl_->handle() ? impl_.get() : nullptr; }
bool Timer::isEmpty() const { return !__impl(); }
AITimer* Timer::aiTimerHandle() const { return ask(__impl(), &plugin::Timer::handle); }
std::string Timer::name() const { return ask(__impl(), &plugin::Timer::name); }
double Timer::delay() const { return ask(__impl(), &plugin::Timer::delay); }
void Timer::setDelay(double delay) { ask(__impl(), &plugin::Timer::setDelay, delay); }
bool Timer::active() const { return ask(__impl(), &plugin::Timer::active); }
void Timer::setActive(bool active) { ask(__impl(), &plugin::Timer::setActive, active); }
Callback* Timer::callback() const { return __impl() ? __impl()->callback().get() : nullptr; }

void Timer::setCallback(const Callback& callback) {
    if (__impl()) __impl()->callback().set(callback);
}

void Timer::destroy() {
    if (isEmpty()) return;
    if (plugin::BasePlugin* const frame = plugin::frame()) frame->timers().remove(*impl_);
    impl_->destroy();
}

} // namespace kzo::core
