// Values of attributes: numbers, lengths, transforms, colours, style properties. A value that does not follow the
// grammar counts as absent, as it does for renderers; a number too large to be one is an error.
#pragma once

#include <2geom/affine.h>

#include <cstdint>
#include <optional>
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
[[nodiscard]] std::optional<Geom::Affine> transform(std::string_view text);
[[nodiscard]] std::optional<model::Color> color(std::string_view text);
[[nodiscard]] std::optional<model::Color> colorByName(std::string_view name);
/// The id in "url(#id)"; empty for anything else.
[[nodiscard]] std::string_view referredId(std::string_view value);

/// What SVG starts from; it differs from what a new path gets.
[[nodiscard]] model::Style initialStyle();
/// Applies one property of paint, given as presentation attribute or in a style; lengths stay in user units.
void applyProperty(model::Style& style, Name name, std::string_view value, const Units& units);

/// Calls `use(name, value, important)` for each declaration of a style attribute.
template <class Use> void forEachDeclaration(std::string_view text, Use use) {
    while (!text.empty()) {
        const std::string_view declaration = text.substr(0, text.find(';'));
        text.remove_prefix(declaration.size() == text.size() ? text.size() : declaration.size() + 1);
        const std::size_t colon = declaration.find(':');
        if (colon == std::string_view::npos) continue;
        const std::string_view value = declaration.substr(colon + 1);
        const std::size_t mark = value.find('!');
        const bool important = mark != value.npos && trimmed(value.substr(mark + 1)) == "important";
        use(trimmed(declaration.substr(0, colon)), trimmed(value.substr(0, important ? mark : value.npos)), important);
    }
}

} // namespace easel::svg
