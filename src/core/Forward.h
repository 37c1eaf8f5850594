// How the facade forwards: one helper for every operation of every handle. For the facade's own sources only.
#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "core/Handle.h"
#include "core/values/Callback.h"

namespace kzo::core {

template <class Impl> Impl* Handle<Impl>::impl() const { return impl_ && impl_->handle() ? impl_.get() : nullptr; }

/// Calls `operation`, a member of the implementation object or a callable on it; without an object, returns the neutral
/// value of the result's type.
template <class Impl, class Operation, class... Arguments>
auto ask(Impl&& impl, Operation operation, Arguments&&... arguments) {
    using Result = std::decay_t<std::invoke_result_t<Operation, decltype(*impl), Arguments...>>;
    return impl ? static_cast<Result>(std::invoke(operation, *impl, std::forward<Arguments>(arguments)...)) : Result();
}

/// The callback of an implementation object, null where there is none.
template <class Impl> [[nodiscard]] Callback* callbackOf(Impl* impl) { return impl ? impl->callback().get() : nullptr; }
template <class Impl> void setCallbackOf(Impl* impl, const Callback& callback) {
    if (impl) impl->callback().set(callback);
}

/// A new handle on a host object, or null for none.
template <class Facade, class HostHandle> [[nodiscard]] std::unique_ptr<Facade> newHandle(HostHandle* handle) {
    return handle ? std::make_unique<Facade>(handle) : nullptr;
}

} // namespace kzo::core
