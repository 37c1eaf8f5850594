// One GET over HTTP, done by libcurl on the main thread: a timer of the host's moves all that are under way.
#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "core/values/Callback.h"
#include "core/values/InternetError.h"

namespace kzo::plugin {

class InternetGET {
  public:
    struct Limits {
        std::chrono::milliseconds time{30000}; ///< for everything, from the name to the reply's last byte
        std::size_t size = std::size_t{1} << 20;
        long redirects = 5;
    };

    InternetGET(const std::string& url, const core::CallbackSlot& success, const core::CallbackSlot& failure,
                const Limits& limits);
    /// A request under way is given up, without a callback.
    ~InternetGET();
    InternetGET(const InternetGET&) = delete;
    InternetGET& operator=(const InternetGET&) = delete;

    // Each ends with exactly one of the callbacks, in which this object may be deleted. Nothing while one is under way.
    void run();   ///< and waits for the end
    void start(); ///< in the background
    [[nodiscard]] bool running() const { return transfer_ != nullptr; }
    [[nodiscard]] bool asynchronous() const { return asynchronous_; }

    // What came of it; empty and 0 meanwhile
    [[nodiscard]] const std::string& content() const { return content_; } ///< the reply, in whatever encoding it came
    [[nodiscard]] const std::string& error() const { return error_; }
    [[nodiscard]] core::InternetError errorCode() const { return errorCode_; }
    [[nodiscard]] int platformErrorCode() const { return platformErrorCode_; }

    /// Moves everything that is under way, waiting for the network for at most `patience`. False when nothing is.
    static bool work(std::chrono::milliseconds patience);

  private:
    struct Transfer;
    class Transfers;

    void begin(bool inBackground);
    static void failRefused();
    void end(int result);
    void giveUp();
    static core::InternetError meaningOf(int result, const Transfer& transfer);
    void fail(core::InternetError code, int platformCode, const std::string& text);

    std::string url_;
    core::CallbackSlot success_;
    core::CallbackSlot failure_;
    Limits limits_;
    bool asynchronous_ = false;
    std::unique_ptr<Transfer> transfer_;
    bool* ended_ = nullptr; ///< told at the end, for whoever waits
    std::string content_;
    std::string error_;
    core::InternetError errorCode_ = core::InternetError::None;
    int platformErrorCode_ = 0;
};

} // namespace kzo::plugin
