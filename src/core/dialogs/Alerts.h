// Alerts: a text with one to three buttons, shown until one of them is chosen.
#pragma once

#include <string>

#include "core/values/Callback.h"

/// Texts may have lines; of a very long one the beginning is shown.
namespace kzo::core::alerts {

/// The button that was chosen: the first is the default, the last is what Escape chooses.
enum class Response { First = 10, Second = 20, Third = 30 };

void message(const std::string& text);
void error(const std::string& text);

/// Two buttons, titled OK and Cancel where nothing else is said.
Response confirm(const std::string& text);
Response confirm(const std::string& text, const std::string& firstTitle, const std::string& secondTitle);
/// Runs the callback of the button that was chosen.
Response confirm(const std::string& text, const std::string& firstTitle, const Callback& first,
                 const std::string& secondTitle, const Callback& second);

/// Three buttons, titled Yes, No and Cancel where nothing else is said.
Response question(const std::string& text);
Response question(const std::string& text, const std::string& firstTitle, const std::string& secondTitle,
                  const std::string& thirdTitle);
/// Runs the callback of the button that was chosen.
Response question(const std::string& text, const std::string& firstTitle, const Callback& first,
                  const std::string& secondTitle, const Callback& second, const std::string& thirdTitle,
                  const Callback& third);

void beep();

/// Switched off, nothing is shown, and nobody is asked: the response is the last button, but no callback runs. On at
/// first.
void setState(bool on);
[[nodiscard]] bool state();
[[nodiscard]] bool asked(); ///< whether the last one was shown: switched on, and somewhere to show it

} // namespace kzo::core::alerts
