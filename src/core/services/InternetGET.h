// One GET over HTTP, in the background or not.
#pragma once

#include <memory>
#include <string>

#include "core/values/Callback.h"
#include "core/values/InternetError.h"

namespace kzo::plugin {
class InternetGET;
}

namespace kzo::core {

/// Loads http and https addresses: at most 5 redirections, 30 seconds and 1 MiB, and any status but 200 is a failure.
/// A request ends with exactly one of the callbacks, on the main thread; the object may be deleted in it. Deleting the
/// object before gives the request up, without a callback.
class InternetGET {
  public:
    InternetGET(const std::string& url, const Callback& success, const Callback& failure);
    ~InternetGET();
    /// Makes one and starts it in the background. Where the host refuses even a timer, the failure callback runs at the
    /// end of the message being handled.
    [[nodiscard]] static std::unique_ptr<InternetGET> Async(const std::string& url, const Callback& success,
                                                            const Callback& failure);

    void run(); ///< waits for the end; nothing while a request is under way
    [[nodiscard]] bool running() const;
    [[nodiscard]] bool asynchronous() const; ///< the request goes on, or went, in the background

    // What came of it; empty and 0 meanwhile
    [[nodiscard]] std::string content() const; ///< the reply, in whatever encoding it came
    [[nodiscard]] std::string error() const;   ///< for readers; "The Internet appears to be offline." when it does
    [[nodiscard]] InternetError errorCode() const;
    [[nodiscard]] int platformErrorCode() const; ///< libcurl's code, or the status

  private:
    std::unique_ptr<plugin::InternetGET> impl_;
};

} // namespace kzo::core
