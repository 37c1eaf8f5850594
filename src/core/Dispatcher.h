// The public face of message dispatch: what a client registers for itself.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/Callback.h"

namespace kzo::plugin {
class Dispatcher;
}

namespace kzo::core {

class Dispatcher {
  public:
    explicit Dispatcher(plugin::Dispatcher& impl) : impl_(impl) {}

    /// Dispatches a message. 1: nothing is registered for it; else what its handler answers, 0 as a rule.
    std::int32_t message(std::string_view caller, std::string_view selector, void* record);

    void registerMessageCallback(std::string_view caller, std::string_view selector, const Callback& callback);
    void unregisterMessageCallback(std::string_view caller, std::string_view selector);

  private:
    plugin::Dispatcher& impl_;
};

} // namespace kzo::core
