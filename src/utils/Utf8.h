// Characters of texts in UTF-8.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace kzo::utils {

/// Whether the byte begins a character; all others go on with one.
[[nodiscard]] constexpr bool beginsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80; }

[[nodiscard]] inline std::size_t characterCount(std::string_view text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), beginsCharacter));
}

/// The last one of the text; empty for an empty text.
[[nodiscard]] inline std::string_view lastCharacter(std::string_view text) {
    std::size_t at = text.empty() ? 0 : text.size() - 1;
    while (at > 0 && !beginsCharacter(text[at])) --at;
    return text.substr(at);
}

} // namespace kzo::utils
