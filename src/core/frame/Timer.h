// A handle on one periodic call by the host.
#pragma once

#include <string>

#include "core/Handle.h"
#include "core/values/Callback.h"

struct AITimer;

namespace kzo::plugin {
class Timer;
}

namespace kzo::core {

extern template class Handle<plugin::Timer>;

/// Runs until `destroy` or shut-down. Delays are seconds, as near as whole ticks of 1/60 second come to them.
/// Operations on an empty handle do nothing and return false, 0, an empty text or null.
class Timer : public Handle<plugin::Timer> {
  public:
    Timer() = default; ///< empty
    using Handle::Handle;
    /// Runs the callback each time that `delay` has passed. Empty when the host refuses.
    Timer(const std::string& name, double delay, const Callback& callback);

    [[nodiscard]] AITimer* aiTimerHandle() const;
    [[nodiscard]] std::string name() const;

    [[nodiscard]] double delay() const;
    void setDelay(double delay);
    [[nodiscard]] bool active() const;
    void setActive(bool active);
    void activate() { setActive(true); }
    void deactivate() { setActive(false); }
    [[nodiscard]] Callback* callback() const;
    void setCallback(const Callback& callback);

    void destroy();
};

} // namespace kzo::core
