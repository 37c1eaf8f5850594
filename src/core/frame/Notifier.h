// A subscription to an event of the host.
#pragma once

#include <memory>
#include <string>

#include "core/frame/NotifierType.h"
#include "core/values/Callback.h"

struct AINotifier;

namespace kzo::plugin {
class Notifier;
}

namespace kzo::core {

/// Copies denote one subscription, which lasts until `destroy` or shut-down; then all of them are empty. Empty handles
/// answer None, an empty text or null.
class Notifier {
  public:
    Notifier() = default; ///< empty
    /// Empty when the host refuses, or for None.
    Notifier(const std::string& name, NotifierType type, const Callback& callback);
    explicit Notifier(std::shared_ptr<plugin::Notifier> impl) : impl_(std::move(impl)) {}

    [[nodiscard]] bool isEmpty() const;
    [[nodiscard]] bool operator==(const Notifier& other) const { return impl_ == other.impl_; }
    [[nodiscard]] AINotifier* aiNotifierHandle() const;
    [[nodiscard]] std::string name() const;
    [[nodiscard]] NotifierType type() const;
    [[nodiscard]] Callback* callback() const;
    void setCallback(const Callback& callback);
    void destroy();

  private:
    [[nodiscard]] plugin::Notifier* impl() const; ///< null when empty

    std::shared_ptr<plugin::Notifier> impl_;
};

} // namespace kzo::core
