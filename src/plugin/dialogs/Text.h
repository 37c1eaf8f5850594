// Texts that come from outside and are shown to the user.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kzo::plugin {

enum class LineBreaks { Stay, BecomeBlanks };

/// The text with control characters as blanks, what is no UTF-8 as replacement characters, and cut to `most`
/// characters, the last of which is then an ellipsis.
[[nodiscard]] std::string cleaned(std::string_view text, LineBreaks breaks, std::size_t most);

inline constexpr std::size_t kMostLines = 30;      ///< further line breaks are blanks
inline constexpr std::size_t kMostInWidget = 1000; ///< characters
inline constexpr std::size_t kMostInAlert = 2000;
inline constexpr std::size_t kMostInTitle = 200; ///< of windows and buttons

} // namespace kzo::plugin
