// The timer suite's calls.
#include "plugin/frame/Timer.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "hostapi/AITimerSuite.h"
#include "plugin/host/HostCall.h"

namespace kzo::plugin {

namespace {

constexpr double ticksPerSecond = kTicksPerSecond;

/// What is beyond the host's range is as far as that goes; what is no number is 0.
std::int32_t toTicks(double seconds) {
    constexpr double least = std::numeric_limits<std::int32_t>::min();
    constexpr double most = std::numeric_limits<std::int32_t>::max();
    if (std::isnan(seconds)) return 0;
    return static_cast<std::int32_t>(std::clamp(std::round(seconds * ticksPerSecond), least, most));
}

} // namespace

Timer::Timer(SPPlugin* plugin, const std::string& name, double delay, const core::CallbackSlot& callback,
             Repeats repeats)
    : handle_(host::ask<&AITimerSuite::AddTimer>(AITimerHandle{}, plugin, name.c_str(), toTicks(delay))),
      callback_(callback),
      repeats_(repeats) {}

std::string Timer::name() const { return host::ask<&AITimerSuite::GetTimerName>("", handle_); }

double Timer::delay() const {
    return host::ask<&AITimerSuite::GetTimerPeriod>(std::int32_t{0}, handle_) / ticksPerSecond;
}

void Timer::setDelay(double delay) { host::call<&AITimerSuite::SetTimerPeriod>(handle_, toTicks(delay)); }
bool Timer::active() const { return host::ask<&AITimerSuite::GetTimerActive>(AIBoolean{0}, handle_) != 0; }
void Timer::setActive(bool active) { host::call<&AITimerSuite::SetTimerActive>(handle_, AIBoolean{active}); }

void Timer::destroy() {
    if (AITimer* const handle = std::exchange(handle_, nullptr)) host::call<&AITimerSuite::RemoveTimer>(handle);
}

// Registry

void TimerRegistry::remove(const Timer& timer) {
    std::erase_if(timers_, [&](const std::shared_ptr<Timer>& known) { return known.get() == &timer; });
}

void TimerRegistry::clear() {
    for (const std::shared_ptr<Timer>& timer : std::exchange(timers_, {})) timer->destroy();
}

bool TimerRegistry::fire(AITimer* handle) {
    const auto known = std::find_if(timers_.begin(), timers_.end(),
                                    [&](const auto& timer) { return timer->handle() && timer->handle() == handle; });
    if (known == timers_.end() || !(*known)->registered() || !(*known)->active()) return false;
    // Held while it works: a callback may destroy its own timer.
    const std::shared_ptr<Timer> timer = *known;
    if (timer->repeats() == Timer::Repeats::Once) {
        timer->destroy();
        remove(*timer);
    }
    timer->callback().run();
    return true;
}

} // namespace kzo::plugin
