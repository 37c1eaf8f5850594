// The order in which timers are due.
#include "session/frame/Timers.h"

#include <algorithm>

#include "session/base/HostError.h"

namespace easel::session {

namespace {

/// Seconds that add up to a whole tick may miss it by a rounding.
constexpr double kSameTick = 1e-6;

} // namespace

Timer& Timers::add(Plugin& owner, std::string_view name, std::int32_t period) {
    require(period >= 0);
    auto made = std::make_unique<Timer>();
    made->owner = &owner;
    made->name = name;
    made->period = period;
    begin(*made);
    return timers_.add(std::move(made));
}

void Timers::setPeriod(Timer& timer, std::int32_t period) {
    require(period >= 0);
    timer.period = period;
    begin(timer);
}

void Timers::setActive(Timer& timer, bool active) {
    if (active && !timer.active) begin(timer);
    timer.active = active;
}

bool Timers::anyActive() const {
    const std::vector<Timer*> timers = all();
    return std::any_of(timers.begin(), timers.end(), [](const Timer* timer) { return timer->active; });
}

void Timers::runFor(double seconds) {
    const double end = now_ + seconds * double{kTicksPerSecond};
    while (!held_.button) {
        const Timer* const timer = takeDue(end);
        if (!timer) break;
        AITimerMessage message{.d = {}, .timer = timer->handle};
        messenger_.send(*timer->owner, kCallerAITimer, kSelectorAIGoTimer, message.d);
    }
    now_ = std::max(now_, end); // time has passed in a dialog that a timer opened, too
}

Timer* Timers::takeDue(double until) {
    Timer* next = nullptr;
    for (Timer* timer : timers_.all())
        if (timer->active && timer->due <= until + kSameTick && (!next || timer->due < next->due)) next = timer;
    if (!next) return nullptr;
    // What fell due during a gesture is late; its period begins now, so that it comes once and not in a burst.
    now_ = std::max(now_, next->due);
    begin(*next);
    return next;
}

void Timers::begin(Timer& timer) const { timer.due = now_ + std::max(timer.period, 1); }

} // namespace easel::session
