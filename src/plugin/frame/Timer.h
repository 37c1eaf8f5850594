// Periodic calls by the host, as the host makes them: the calls behind core::Timer.
#pragma once

#include <string>

#include "core/values/Callback.h"
#include "plugin/host/Object.h"

struct AITimer;
struct SPPlugin;

namespace kzo::plugin {

/// Delays are seconds; the host counts ticks of 1/60 second, to which they are rounded, halves away from zero.
class Timer : public host::Object<AITimer> {
  public:
    enum class Repeats { Always, Once };

    Timer(SPPlugin* plugin, const std::string& name, double delay, const core::CallbackSlot& callback,
          Repeats repeats = Repeats::Always);

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
    core::CallbackSlot callback_;
    Repeats repeats_;
    bool registered_ = true;
};

} // namespace kzo::plugin
