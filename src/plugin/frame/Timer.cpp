// The timer suite's calls.
#include "plugin/frame/Timer.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "hostapi/AITimerSuite.h"
#include "plugin/host/HostCall.h"

namespace kzo::plugin {

namespace host {

/// A time, which the host counts in ticks.
struct Seconds {
    double value = 0;
};
constexpr double kTicks = kTicksPerSecond;
template <> struct HostForm<Seconds> {
    /// The nearest tick; what is beyond the host's range is as far as that goes, and what is no number is 0.
    static std::int32_t toHost(Seconds time) {
        constexpr double kLeast = std::numeric_limits<std::int32_t>::min();
        constexpr double kMost = std::numeric_limits<std::int32_t>::max();
        if (std::isnan(time.value)) return 0;
        return static_cast<std::int32_t>(std::clamp(std::round(time.value * kTicks), kLeast, kMost));
    }
    static Seconds fromHost(std::int32_t ticks) { return {ticks / kTicks}; }
};

} // namespace host

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

void Timer::destroy() { remove<&AITimerSuite::RemoveTimer>(); }

} // namespace kzo::plugin
