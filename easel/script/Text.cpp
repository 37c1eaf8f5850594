// The two encodings differ only in characters beyond U+FFFF: four bytes here, two times three bytes there.
#include "script/Text.h"

#include <algorithm>
#include <cstdint>

namespace easel::script {

namespace {

std::uint32_t low6(char byte) { return static_cast<unsigned char>(byte) & 0x3fU; }

void append3(std::string& to, std::uint32_t unit) {
    to += static_cast<char>(0xe0U | unit >> 12);
    to += static_cast<char>(0x80U | (unit >> 6 & 0x3fU));
    to += static_cast<char>(0x80U | (unit & 0x3fU));
}

/// The surrogate that starts at `at`, 0 when none does.
std::uint32_t surrogateAt(std::string_view text, std::size_t at) {
    const bool is = at + 2 < text.size() && text[at] == '\xed' && (text[at + 1] & 0xe0) == 0xa0;
    return is ? 0xd000U | low6(text[at + 1]) << 6 | low6(text[at + 2]) : 0;
}

/// The number of bytes of the character that starts at `at`, 0 when none does.
std::size_t lengthAt(std::string_view text, std::size_t at) {
    const auto byte = [&](std::size_t i) {
        return static_cast<unsigned char>(at + i < text.size() ? text[at + i] : 0);
    };
    const unsigned char first = byte(0);
    if (first < 0x80) return 1;
    if (first < 0xc2 || first > 0xf4) return 0;
    if ((first == 0xf0 && byte(1) < 0x90) || (first == 0xf4 && byte(1) > 0x8f)) return 0;
    const std::size_t length = first < 0xe0 ? 2 : first < 0xf0 ? 3 : 4;
    for (std::size_t i = 1; i < length; ++i)
        if ((byte(i) & 0xc0) != 0x80) return 0;
    return length;
}

} // namespace

std::string toEngine(std::string_view text) {
    std::string out;
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t length = lengthAt(text, i);
        if (length == 4) {
            const std::uint32_t beyond =
                ((text[i] & 7U) << 18 | low6(text[i + 1]) << 12 | low6(text[i + 2]) << 6 | low6(text[i + 3])) -
                0x10000U;
            append3(out, 0xd800U | beyond >> 10);
            append3(out, 0xdc00U | (beyond & 0x3ffU));
        } else if (length == 0) {
            append3(out, 0xfffdU); // in place of the byte, so that what follows is read as it is
        } else {
            out += text.substr(i, length);
        }
        i += std::max<std::size_t>(length, 1);
    }
    return out;
}

std::optional<std::string> fromEngine(std::string_view text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::uint32_t high = surrogateAt(text, i);
        if (high == 0) {
            out += text[i];
            continue;
        }
        const std::uint32_t low = surrogateAt(text, i + 3);
        if (high >= 0xdc00 || low < 0xdc00) return std::nullopt;
        const std::uint32_t character = 0x10000U + ((high & 0x3ffU) << 10 | (low & 0x3ffU));
        out += static_cast<char>(0xf0U | character >> 18);
        out += static_cast<char>(0x80U | (character >> 12 & 0x3fU));
        out += static_cast<char>(0x80U | (character >> 6 & 0x3fU));
        out += static_cast<char>(0x80U | (character & 0x3fU));
        i += 5;
    }
    return out;
}

} // namespace easel::script
