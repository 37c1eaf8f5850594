// The timer suite on the session's timers.
#include "session/frame/Timers.h"
#include "suites/Suites.h"
#include "suites/Thunk.h"

namespace easel::suites {

template <> struct Argument<session::Timer&> {
    static session::Timer& from(AITimerHandle handle) { return found(host<session::Timers>().find(handle)); }
};

namespace {

using session::Timer;

session::Timers& timers() { return host<session::Timers>(); }

void addTimer(session::Plugin& self, std::string_view name, std::int32_t period, AITimerHandle& timer) {
    timer = timers().add(self, name, period).handle;
}

void removeTimer(Timer& timer) { timers().remove(timer); }
void getName(Timer& timer, const char*& name) { name = timer.name.c_str(); }
void getActive(Timer& timer, AIBoolean& active) { active = timer.active; }
void setActive(Timer& timer, AIBoolean active) { timers().setActive(timer, active != 0); }
void getPeriod(Timer& timer, std::int32_t& period) { period = timer.period; }
void setPeriod(Timer& timer, std::int32_t period) { timers().setPeriod(timer, period); }

} // namespace

void fill(AITimerSuite& suite) {
    enter<&AITimerSuite::AddTimer, addTimer>(suite);
    enter<&AITimerSuite::RemoveTimer, removeTimer>(suite);
    enter<&AITimerSuite::GetTimerName, getName>(suite);
    enter<&AITimerSuite::GetTimerActive, getActive>(suite);
    enter<&AITimerSuite::SetTimerActive, setActive>(suite);
    enter<&AITimerSuite::GetTimerPeriod, getPeriod>(suite);
    enter<&AITimerSuite::SetTimerPeriod, setPeriod>(suite);
}

} // namespace easel::suites
