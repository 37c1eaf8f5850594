// Work that goes on beside the messages: a modal loop keeps it going, and some of it waits for a message to end.
#pragma once

#include <chrono>

namespace kzo::plugin::background {

/// Of the service that works in the background.
struct Work {
    bool (*move)(std::chrono::milliseconds patience) = nullptr;
    void (*messageEnded)() = nullptr;
};
inline Work work;

/// Moves on whatever is under way, waiting for news of it for at most `patience`. False, and at once, when there is
/// nothing. A modal loop that runs without the host's timers calls this again and again.
inline bool move(std::chrono::milliseconds patience) { return work.move && work.move(patience); }

/// The outermost message has been handled.
inline void messageEnded() {
    if (work.messageEnded) work.messageEnded();
}

} // namespace kzo::plugin::background
