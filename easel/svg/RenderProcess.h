// The renderer, which draws in a process of its own: drawings exist that make it abort, take all memory or never end.
// It has the environment's limits: EASEL_RENDER_SECONDS of the processor's time for a request, and
// EASEL_RENDER_MEGABYTES in all.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "svg/Descriptor.h"
#include "svg/RenderProtocol.h"

namespace easel::svg {

/// Called with the seconds gone by, once for each, while a request is under way; with 0 when it is over after that.
using Waiting = std::function<void(int seconds)>;

class RenderError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// Lives as long as this object. One thread at a time.
class RenderProcess {
  public:
    explicit RenderProcess(Waiting waiting = {}); ///< throws RenderError when it cannot be started
    ~RenderProcess();
    RenderProcess(const RenderProcess&) = delete;
    RenderProcess& operator=(const RenderProcess&) = delete;

    /// Returns the bytes of the reply. Throws RenderError with the reason in words: why the renderer refused, or how it
    /// ended; in that case it takes no more requests.
    std::string ask(render::Request request, std::string_view bytes);

  private:
    using Clock = std::chrono::steady_clock;

    void send(std::string_view bytes);
    void receive(char* bytes, std::size_t size);
    /// Waits until the socket is ready, or the time is over.
    void await(short events);
    /// Throws how the process ended.
    [[noreturn]] void failEnded();
    [[nodiscard]] std::string outOfTime() const;
    [[nodiscard]] std::string outOfMemory() const;
    int end();

    unsigned long seconds_;
    unsigned long megabytes_;
    Waiting waiting_;
    Descriptor socket_;
    Descriptor output_; ///< what the process writes on standard error
    pid_t process_ = -1;
    Clock::time_point start_; ///< of the request
    int told_ = 0;            ///< seconds
    bool loading_ = false;    ///< the last request was to load, which counts to the one that follows
};

} // namespace easel::svg
