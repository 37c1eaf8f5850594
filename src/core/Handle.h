// What all handles have in common: a part in the implementation object of something in the host.
#pragma once

#include <memory>
#include <utility>

namespace kzo::core {

/// Copies denote one object, and so do handles made separately from it; they compare equal. A handle is empty at first;
/// once its object is destroyed, disposed of or taken away by the host, all handles on it are empty for ever. The
/// object itself stays when a handle goes.
template <class Impl> class Handle {
  public:
    Handle() = default; ///< empty
    explicit Handle(std::shared_ptr<Impl> impl) : impl_(std::move(impl)) {}

    [[nodiscard]] bool isEmpty() const { return !impl(); }
    [[nodiscard]] bool operator==(const Handle& other) const { return impl() == other.impl(); }
    [[nodiscard]] Impl* impl() const; ///< null when empty
    /// The same, for those who keep the object.
    [[nodiscard]] std::shared_ptr<Impl> shared() const { return impl() ? impl_ : nullptr; }

  private:
    std::shared_ptr<Impl> impl_;
};

} // namespace kzo::core
