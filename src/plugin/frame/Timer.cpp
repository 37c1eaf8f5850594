// The timer suite's calls.
#include "plugin/frame/Timer.h"

#include "hostapi/AITimerSuite.h"
#include "plugin/frame/Convert.h"

namespace kzo::plugin {

Timer::Timer(SPPlugin* plugin, const std::string& name, double delay, const core::CallbackSlot& callback,
             Repeats repeats)
    : Object(host::get<&AITimerSuite::AddTimer>(plugin, name, host::Seconds{delay})),
      callback_(callback),
      repeats_(repeats) {}

std::string Timer::name() const { return get<&AITimerSuite::GetTimerName>(); }
double Timer::delay() const { return get<&AITimerSuite::GetTimerPeriod, host::Seconds>().value; }
void Timer::setDelay(double delay) { call<&AITimerSuite::SetTimerPeriod>(host::Seconds{delay}); }
bool Timer::active() const { return get<&AITimerSuite::GetTimerActive>(); }
void Timer::setActive(bool active) { call<&AITimerSuite::SetTimerActive>(active); }

void Timer::destroy() {
    if (AITimer* const handle = release()) host::call<&AITimerSuite::RemoveTimer>(handle);
}

} // namespace kzo::plugin
