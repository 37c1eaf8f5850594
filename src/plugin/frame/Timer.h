// Periodic calls by the host, and the registry that finds a timer when the host tells that its time has come.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/values/Callback.h"

struct AITimer;
struct SPPlugin;

namespace kzo::plugin {

/// Delays are seconds; the host counts ticks of 1/60 second, to which they are rounded, halves away from zero. Without
/// a handle (refused, or destroyed) every query answers its neutral value.
class Timer {
  public:
    enum class Repeats { Always, Once };

    Timer(SPPlugin* plugin, const std::string& name, double delay, const core::CallbackSlot& callback,
          Repeats repeats = Repeats::Always);

    [[nodiscard]] AITimer* handle() const { return handle_; }
    [[nodiscard]] Repeats repeats() const { return repeats_; }
    [[nodiscard]] bool registered() const { return registered_; }
    void setRegistered(bool registered) { registered_ = registered; } ///< one that is not is no longer run
    [[nodiscard]] core::CallbackSlot& callback() { return callback_; }
    [[nodiscard]] std::string name() const;
    [[nodiscard]] double delay() const;
    void setDelay(double delay);
    [[nodiscard]] bool active() const;
    void setActive(bool active);
    void destroy();

  private:
    AITimer* handle_;
    core::CallbackSlot callback_;
    Repeats repeats_;
    bool registered_ = true;
};

/// Owns every timer, together with the handles on it, until it is destroyed.
class TimerRegistry {
  public:
    void add(const std::shared_ptr<Timer>& timer) { timers_.push_back(timer); }
    void remove(const Timer& timer);
    void clear(); ///< destroys all timers

    /// Runs the timer's callback; one that comes once is gone by then. False when the timer is unknown, not
    /// registered or not active.
    bool fire(AITimer* handle);

  private:
    std::vector<std::shared_ptr<Timer>> timers_;
};

} // namespace kzo::plugin
