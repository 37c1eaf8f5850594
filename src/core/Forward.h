// How the facade forwards: one helper for every operation of every handle. For the facade's own sources only.
#pragma once

#include <functional>
#include <memory>
#include <utility>

namespace kzo::core {

/// Calls `operation` on the implementation object; without one, answers the neutral value of the result's type.
template <class Impl, class Operation, class... Arguments>
auto ask(Impl&& impl, Operation operation, Arguments&&... arguments) {
    using Result = std::decay_t<std::invoke_result_t<Operation, decltype(*impl), Arguments...>>;
    return impl ? static_cast<Result>(std::invoke(operation, *impl, std::forward<Arguments>(arguments)...)) : Result();
}

/// A new handle on a host object, or null for none.
template <class Facade, class HostHandle> [[nodiscard]] std::unique_ptr<Facade> newHandle(HostHandle* handle) {
    return handle ? std::make_unique<Facade>(handle) : nullptr;
}

} // namespace kzo::core
