// Work that a window's own event loop calls, which nothing may be thrown through.
#pragma once

#include <functional>
#include <string_view>

namespace kzo::plugin {

/// Does the work. What it throws is told to `thrownInLoop`.
void guardedFromLoop(const std::function<void()>& work);

/// Set by the frame, which knows the message that the window was shown in.
inline void (*thrownInLoop)(std::string_view what) = nullptr;

} // namespace kzo::plugin
