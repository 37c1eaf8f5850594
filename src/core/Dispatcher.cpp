// Forwards to the implementation.
#include "core/Dispatcher.h"

#include "plugin/Dispatcher.h"

namespace kzo::core {

std::int32_t Dispatcher::message(std::string_view caller, std::string_view selector, void* record) {
    return impl_.message(caller, selector, record);
}

void Dispatcher::registerMessageCallback(std::string_view caller, std::string_view selector, const Callback& callback) {
    impl_.registerMessageCallback(caller, selector, callback);
}

void Dispatcher::unregisterMessageCallback(std::string_view caller, std::string_view selector) {
    impl_.unregisterMessageCallback(caller, selector);
}

} // namespace kzo::core
