// Forwards every operation of the request to its implementation.
#include "core/services/InternetGET.h"

#include "plugin/services/InternetGET.h"

namespace kzo::core {

InternetGET::InternetGET(const std::string& url, const Callback& success, const Callback& failure)
    : impl_(std::make_unique<plugin::InternetGET>(url, CallbackSlot(success), CallbackSlot(failure),
                                                  plugin::InternetGET::Limits())) {}
InternetGET::~InternetGET() = default;

std::unique_ptr<InternetGET> InternetGET::Async(const std::string& url, const Callback& success,
                                                const Callback& failure) {
    auto made = std::make_unique<InternetGET>(url, success, failure);
    made->impl_->start();
    return made;
}

void InternetGET::run() { impl_->run(); }
bool InternetGET::running() const { return impl_->running(); }
bool InternetGET::asynchronous() const { return impl_->asynchronous(); }
std::string InternetGET::content() const { return impl_->content(); }
std::string InternetGET::error() const { return impl_->error(); }
InternetError InternetGET::errorCode() const { return impl_->errorCode(); }
int InternetGET::platformErrorCode() const { return impl_->platformErrorCode(); }

} // namespace kzo::core
