// Text on its way between the application (UTF-8) and the script engine, which writes a character beyond U+FFFF as a
// pair of surrogates of three bytes each.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace easel::script {

/// Bytes that are no text become U+FFFD.
[[nodiscard]] std::string toEngine(std::string_view text);
/// Nothing when half of a pair stands alone: there is no such text.
[[nodiscard]] std::optional<std::string> fromEngine(std::string_view text);

} // namespace easel::script
