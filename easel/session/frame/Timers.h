// The timers of plug-ins, and the clock that they go by. Time passes only when it is told to.
#pragma once

#include <string>

#include "hostapi/AITimer.h"
#include "session/base/Handles.h"
#include "session/frame/Held.h"
#include "session/frame/Messenger.h"

namespace easel::session {

struct Timer {
    AITimerHandle handle = nullptr;
    Plugin* owner = nullptr;
    std::string name;
    std::int32_t period = 0; ///< ticks; 0 counts as 1
    bool active = true;
    double due = 0; ///< the tick of the next message
};

class Timers {
  public:
    Timers(Messenger& messenger, const Held& held) : messenger_(messenger), held_(held) {}

    Timer& add(Plugin& owner, std::string_view name, std::int32_t period);
    void remove(Timer& timer) { timers_.remove(timer); }
    template <class Predicate> void removeIf(Predicate predicate) { timers_.removeIf(predicate); }

    [[nodiscard]] Timer* find(AITimerHandle handle) const { return timers_.find(handle); }
    [[nodiscard]] std::vector<Timer*> all() const { return timers_.all(); }

    /// Both begin a whole period. A negative period throws HostError.
    void setPeriod(Timer& timer, std::int32_t period);
    void setActive(Timer& timer, bool active);

    [[nodiscard]] double now() const { return now_; } ///< ticks since the session began
    [[nodiscard]] bool anyActive() const;
    /// Lets time pass, with the messages of the timers that fall due; no message while a mouse button is down.
    void runFor(double seconds);

  private:
    /// The next timer that is due at `until` or before, with the clock put there and its next period begun; null when
    /// none is.
    [[nodiscard]] Timer* takeDue(double until);
    void begin(Timer& timer) const;

    Messenger& messenger_;
    const Held& held_;
    Registry<Timer, AITimerHandle> timers_;
    double now_ = 0;
};

} // namespace easel::session
