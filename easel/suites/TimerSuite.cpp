// The timer suite on the session's timers.
#include "hostapi/AITimerSuite.h"
#include "session/frame/Timers.h"
#include "suites/Enter.h"

namespace easel::suites {

using session::Timer;
using session::Timers;

template <> struct Argument<Timer&> {
    static Timer& from(AITimerHandle handle) { return found(host<Timers>().find(handle)); }
};

template <> void fill(AITimerSuite& suite) {
    enter<&AITimerSuite::AddTimer, &Timers::add>(suite);
    enter<&AITimerSuite::RemoveTimer, &Timers::remove>(suite);
    enter<&AITimerSuite::GetTimerName, &Timer::name>(suite);
    enter<&AITimerSuite::GetTimerActive, &Timer::active>(suite);
    enter<&AITimerSuite::SetTimerActive, &Timers::setActive>(suite);
    enter<&AITimerSuite::GetTimerPeriod, &Timer::period>(suite);
    enter<&AITimerSuite::SetTimerPeriod, &Timers::setPeriod>(suite);
}

} // namespace easel::suites
