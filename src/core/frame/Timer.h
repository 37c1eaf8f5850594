// A handle on one periodic call by the host.
#pragma once

#include <memory>
#include <string>

#include "core/values/Callback.h"

struct AITimer;

namespace kzo::plugin {
class Timer;
}

namespace kzo::core {

/// Copies denote one timer, which runs until `destroy` or shut-down; then all of them are empty. Delays are seconds, as
/// near as whole ticks of 1/60 second come to them. Operations on an empty handle do nothing and answer false, 0, an
/// empty text or null.
class Timer {
  public:
    Timer() = default; ///< empty
    /// Runs the callback each time that `delay` has passed. Empty when the host refuses.
    Timer(const std::string& name, double delay, const Callback& callback);
    explicit Timer(std::shared_ptr<plugin::Timer> impl) : impl_(std::move(impl)) {}

    [[nodiscard]] bool isEmpty() const;
    [[nodiscard]] bool operator==(const Timer& other) const { return impl_ == other.impl_; }
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

    [[nodiscard]] plugin::Timer* __impl() const; ///< null when empty

  private:
    std::shared_ptr<plugin::Timer> impl_;
};

} // namespace kzo::core
