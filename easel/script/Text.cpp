// The two encodings differ only in characters beyond U+FFFF: four bytes here, two times three bytes there.
#include "script/Text.h"

#include <utf8.h>

#include <iterator>

namespace easel::script {

namespace {

/// The surrogate that starts at `at`, 0 when none does. Scripts can make texts of any bytes.
char16_t surrogateAt(std::string_view text, std::size_t at) {
    const bool is = at + 2 < text.size() && text[at] == '\xed' && (text[at + 1] & 0xe0) == 0xa0;
    return is ? static_cast<char16_t>(utf8::unchecked::peek_next(text.data() + at)) : u'\0';
}

} // namespace

std::string toEngine(std::string_view text) {
    std::string out;
    for (const char16_t unit : utf8::utf8to16(utf8::replace_invalid(text)))
        utf8::unchecked::append(unit, std::back_inserter(out));
    return out;
}

std::optional<std::string> fromEngine(std::string_view text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t high = surrogateAt(text, i);
        if (high == 0) {
            out += text[i];
            continue;
        }
        const char16_t low = surrogateAt(text, i + 3);
        if (high >= 0xdc00 || low < 0xdc00) return std::nullopt;
        out += utf8::utf16to8(std::u16string{high, low});
        i += 5;
    }
    return out;
}

} // namespace easel::script
