// Alerts: a text with one to three buttons, shown until one of them is chosen.
#pragma once

#include <string>

#include "core/values/Callback.h"

namespace kzo::core::alerts {

/// The button that was chosen: the first is the default, the last is what Escape chooses.
enum class Response { None = 0, First = 10, Second = 20 };

void message(const std::string& text);
void error(const std::string& text);

/// Titled OK and Cancel.
Response confirm(const std::string& text);
Response confirm(const std::string& text, const std::string& firstTitle, const std::string& secondTitle);
/// Runs the callback of the button that was chosen.
Response confirm(const std::string& text, const std::string& firstTitle, const Callback& first,
                 const std::string& secondTitle, const Callback& second);

void beep();

/// Switched off, nothing is shown, and nobody is asked: the response is None, and no callback runs. On at first.
void setState(bool on);
[[nodiscard]] bool state();

} // namespace kzo::core::alerts
