// Values of attributes: numbers, lengths, transforms, colours, style properties. A value that does not follow the
// grammar counts as absent, as it does for renderers; a number too large to be one is an error.
#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/Types.h"

namespace easel::svg {

enum class Name : std::uint8_t;
class Units;

constexpr std::string_view kSpace = " \t\r\n"; ///< as XML has it
[[nodiscard]] inline bool isSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f'; }
[[nodiscard]] inline bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// Walks through a value. Throws std::range_error for a number that is not finite.
class Scanner {
  public:
    explicit Scanner(std::string_view text) : rest_(text) {}

    [[nodiscard]] bool atEnd() const { return rest_.empty(); }
    [[nodiscard]] char peek() const { return rest_.empty() ? '\0' : rest_.front(); }
    [[nodiscard]] bool atNumber() const { return isDigit(peek()) || peek() == '.' || peek() == '-' || peek() == '+'; }

    [[nodiscard]] std::string_view rest() const { return rest_; }

    void skipSpace() {
        while (!rest_.empty() && isSpace(rest_.front())) rest_.remove_prefix(1);
    }
    void skipSeparator() { ///< space with at most one comma in it
        skipSpace();
        if (take(',')) skipSpace();
    }
    bool take(char c) {
        if (peek() != c || rest_.empty()) return false;
        rest_.remove_prefix(1);
        return true;
    }
    std::string_view word(); ///< letters
    std::optional<double> number();

  private:
    std::optional<double> longNumber();

    std::string_view rest_;
};

[[nodiscard]] std::string_view trimmed(std::string_view text);
/// A name without its prefix.
[[nodiscard]] inline std::string_view localName(std::string_view name) { return name.substr(name.find(':') + 1); }
/// Numbers up to the first thing that is none.
[[nodiscard]] std::vector<double> numbers(std::string_view text);
/// None when any part of it is malformed.
[[nodiscard]] std::optional<model::Affine> transform(std::string_view text);
[[nodiscard]] std::optional<model::Color> color(std::string_view text);
[[nodiscard]] std::optional<model::Color> colorByName(std::string_view name);
/// The id in "url(#id)"; empty for anything else.
[[nodiscard]] std::string_view referredId(std::string_view value);

/// What SVG starts from; it differs from what a new path gets.
[[nodiscard]] model::Style initialStyle();
/// Applies one property of paint, given as presentation attribute or in a style; lengths stay in user units.
void applyProperty(model::Style& style, Name name, std::string_view value, const Units& units);

/// The text with a space for each comment of a style sheet.
[[nodiscard]] std::string withoutComments(std::string_view text);
/// The first of `what` outside of quotes, brackets and comments, or the end.
[[nodiscard]] std::size_t findPlain(std::string_view text, std::string_view what, std::size_t from = 0);
/// Without space and comments at either end.
[[nodiscard]] std::string_view trimmedStyle(std::string_view text);

/// Calls `use(name, value, important)` for each declaration of a style attribute or a rule; both are parts of `text`.
template <class Use> void forEachDeclaration(std::string_view text, Use use) {
    while (!text.empty()) {
        const std::size_t end = findPlain(text, ";");
        const std::string_view declaration = trimmedStyle(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        const std::size_t colon = findPlain(declaration, ":");
        if (colon == declaration.size()) continue;
        const std::string_view value = declaration.substr(colon + 1);
        const std::size_t mark = value.rfind('!');
        const bool important = mark != value.npos && trimmedStyle(value.substr(mark + 1)) == "important";
        use(trimmedStyle(declaration.substr(0, colon)), trimmedStyle(value.substr(0, important ? mark : value.npos)),
            important);
    }
}

} // namespace easel::svg
