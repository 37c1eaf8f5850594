// What the user's hands hold down at the moment: the mouse button, modifier keys.
#pragma once

#include <cstdint>

namespace easel::session {

/// Modifier keys, a bit set of kAIShiftKey ...
using Modifiers = std::uint32_t;

struct Held {
    bool button = false; ///< of the mouse; while it is down, a gesture is running
    Modifiers modifiers = 0;
};

} // namespace easel::session
