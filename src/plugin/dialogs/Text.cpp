// Cuts and cleans texts for widgets, by characters of UTF-8.
#include "plugin/dialogs/Text.h"

#include <algorithm>
#include <cstdint>

namespace kzo::plugin {

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";
constexpr std::string_view kEllipsis = "\xE2\x80\xA6";

/// How many bytes the character at the front of the text has; 0 where it is none.
std::size_t characterLength(std::string_view text) {
    const auto byte = [&](std::size_t at) { return static_cast<std::uint8_t>(text[at]); };
    const std::uint8_t lead = byte(0);
    if (lead < 0x80) return 1;
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < length) return 0;
    for (std::size_t i = 1; i < length; ++i)
        if ((byte(i) & 0xC0U) != 0x80) return 0;
    // Longer than needed, a half of a pair, or beyond the last character.
    const std::uint8_t second = byte(1);
    const bool wrong = (lead == 0xE0 && second < 0xA0) || (lead == 0xED && second > 0x9F) ||
                       (lead == 0xF0 && second < 0x90) || (lead == 0xF4 && second > 0x8F);
    return wrong ? 0 : length;
}

bool isControl(std::string_view character) {
    const auto first = static_cast<std::uint8_t>(character[0]);
    const bool second = first == 0xC2 && static_cast<std::uint8_t>(character[1]) < 0xA0;
    // Marks that turn the direction of what follows could make a text read as another.
    const bool turns = (character >= "\xE2\x80\xAA" && character <= "\xE2\x80\xAE") ||
                       (character >= "\xE2\x81\xA6" && character <= "\xE2\x81\xA9");
    return first < 0x20 || first == 0x7F || second || turns;
}

} // namespace

std::string cleaned(std::string_view text, LineBreaks breaks, std::size_t most) {
    std::string clean;
    std::size_t lastStart = 0;
    std::size_t lines = breaks == LineBreaks::Stay ? kMostLines : 1; // that are left
    for (std::size_t count = 0; !text.empty(); ++count) {
        if (count == most) return clean.substr(0, lastStart) + std::string(kEllipsis);
        lastStart = clean.size();
        const std::size_t length = characterLength(text);
        const std::string_view character = text.substr(0, std::max<std::size_t>(length, 1));
        const bool breaksLine = character == "\n" && lines > 1;
        if (breaksLine) --lines;
        if (length == 0)
            clean += kReplacement;
        else if (isControl(character) && !breaksLine)
            clean += ' ';
        else
            clean += character;
        text.remove_prefix(character.size());
    }
    return clean;
}

} // namespace kzo::plugin
