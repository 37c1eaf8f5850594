// Small grammars, each read by hand from the left.
#include "svg/Values.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <utility>

#include "svg/Attributes.h"

namespace easel::svg {

using model::Affine;

namespace {

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

double radians(double degrees) { return degrees * (M_PI / 180); }

std::optional<Affine> elementaryTransform(std::string_view name, const std::vector<double>& v) {
    const std::size_t count = v.size();
    if (name == "matrix" && count == 6) return Affine{v[0], v[1], v[2], v[3], v[4], v[5]};
    if (name == "translate" && (count == 1 || count == 2)) return Affine{1, 0, 0, 1, v[0], count == 2 ? v[1] : 0};
    if (name == "scale" && (count == 1 || count == 2)) return Affine{v[0], 0, 0, v[count - 1], 0, 0};
    if (name == "skewX" && count == 1) return Affine{1, 0, std::tan(radians(v[0])), 1, 0, 0};
    if (name == "skewY" && count == 1) return Affine{1, std::tan(radians(v[0])), 0, 1, 0, 0};
    if (name == "rotate" && (count == 1 || count == 3)) {
        const double sine = std::sin(radians(v[0]));
        const double cosine = std::cos(radians(v[0]));
        const double x = count == 3 ? v[1] : 0;
        const double y = count == 3 ? v[2] : 0;
        return Affine{cosine, sine, -sine, cosine, x - cosine * x + sine * y, y - sine * x - cosine * y};
    }
    return std::nullopt;
}

std::string lowered(std::string_view text) {
    std::string lower(text);
    for (char& c : lower) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return lower;
}

std::optional<model::Color> hexColor(std::string_view digits) {
    unsigned value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    if (error != std::errc{} || end != digits.data() + digits.size()) return std::nullopt;
    const auto channel = [](unsigned byte) { return byte / 255.0; };
    if (digits.size() == 3) {
        return model::Color{channel((value >> 8) * 17), channel((value >> 4 & 15) * 17), channel((value & 15) * 17)};
    }
    if (digits.size() != 6) return std::nullopt;
    return model::Color{channel(value >> 16), channel(value >> 8 & 255), channel(value & 255)};
}

/// The inside of rgb(...): three numbers up to 255 or three percentages; what follows is opacity.
std::optional<model::Color> rgbColor(std::string_view text) {
    Scanner scanner(text);
    std::array<double, 3> channels{};
    for (double& channel : channels) {
        scanner.skipSeparator();
        const std::optional<double> value = scanner.number();
        if (!value) return std::nullopt;
        channel = std::clamp(*value / (scanner.take('%') ? 100 : 255), 0.0, 1.0);
    }
    return model::Color{channels[0], channels[1], channels[2]};
}

/// Sets what a paint says. Returns the `url(...)` in it, whose fallback is set then, or an empty text; nothing where
/// nothing is said.
std::optional<std::string> applyPaint(bool& painted, model::Color& into, std::string_view value) {
    const bool served = value.substr(0, 4) == "url(";
    std::string server;
    if (served) {
        const std::size_t end = value.find(')');
        const std::string_view inside = trimmed(value.substr(4, end - 4));
        const bool isQuoted = inside.size() > 1 && (inside.front() == '"' || inside.front() == '\'');
        server.append("url(").append(isQuoted ? inside.substr(1, inside.size() - 2) : inside).append(")");
        value = end == std::string_view::npos ? "" : trimmed(value.substr(end + 1));
        if (value.empty()) value = "none";
    }
    if (value == "none" || value == "transparent") {
        painted = false;
    } else if (const std::optional<model::Color> named = color(value)) {
        painted = true;
        into = *named;
    } else if (!served) {
        return std::nullopt;
    }
    return server;
}

template <class Enum, std::size_t size>
void applyChoice(Enum& into, const std::array<std::pair<std::string_view, Enum>, size>& choices,
                 std::string_view value) {
    for (const auto& [name, choice] : choices) {
        if (name == value) into = choice;
    }
}

constexpr std::array<std::pair<std::string_view, model::Cap>, 3> kCaps{
    {{"butt", model::Cap::Butt}, {"round", model::Cap::Round}, {"square", model::Cap::Projecting}}};
constexpr std::array<std::pair<std::string_view, model::Alignment>, 3> kAlignments{
    {{"center", model::Alignment::Center}, {"inner", model::Alignment::Inside}, {"outer", model::Alignment::Outside}}};
constexpr std::array<std::pair<std::string_view, model::Join>, 5> kJoins{{{"miter", model::Join::Miter},
                                                                          {"miter-clip", model::Join::Miter},
                                                                          {"arcs", model::Join::Miter},
                                                                          {"round", model::Join::Round},
                                                                          {"bevel", model::Join::Bevel}}};

void applyDashes(model::Style& style, std::string_view value, const Units& units) {
    std::vector<double> dashes;
    while (value != "none" && !value.empty()) {
        const std::size_t end = std::min(value.find_first_of(", \t\r\n\f"), value.size());
        const std::optional<double> dash = units.length(value.substr(0, end), Along::Diagonal);
        if (!dash || *dash < 0) return;
        dashes.push_back(*dash);
        Scanner scanner(value.substr(end));
        scanner.skipSeparator();
        value = scanner.rest();
    }
    if (dashes.size() % 2 != 0) dashes.insert(dashes.end(), dashes.begin(), dashes.end());
    if (std::all_of(dashes.begin(), dashes.end(), [](double dash) { return dash == 0; })) dashes.clear();
    model::Dashes read{.count = 0, .offset = style.dashes().offset, .lengths = {}};
    dashes.resize(std::min(dashes.size(), read.lengths.size()));
    read.count = static_cast<std::uint8_t>(dashes.size());
    std::copy(dashes.begin(), dashes.end(), read.lengths.begin());
    style.setDashes(read);
}

} // namespace

// Scanner

std::string_view Scanner::word() {
    const std::string_view whole = rest_;
    while (!rest_.empty() && isLetter(rest_.front())) rest_.remove_prefix(1);
    return whole.substr(0, whole.size() - rest_.size());
}

/// Up to 15 digits without an exponent are exact, and so is the power of ten: one division rounds once.
std::optional<double> Scanner::number() {
    constexpr std::ptrdiff_t kMostDigits = 15;
    static constexpr double kPowers[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                         1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    const char* at = rest_.data();
    const char* const end = at + rest_.size();
    const bool negative = at < end && *at == '-';
    if (at < end && (negative || *at == '+')) ++at;
    const char* const first = at;
    std::uint64_t digits = 0;
    for (; at < end && isDigit(*at); ++at) digits = digits * 10 + static_cast<std::uint64_t>(*at - '0');
    std::ptrdiff_t count = at - first;
    std::ptrdiff_t fraction = 0;
    if (at < end && *at == '.') {
        const char* const point = at++;
        for (; at < end && isDigit(*at); ++at) digits = digits * 10 + static_cast<std::uint64_t>(*at - '0');
        fraction = at - point - 1;
        count += fraction;
    }
    if (count == 0) return std::nullopt;
    if (count > kMostDigits || (at < end && (*at | 0x20) == 'e')) return longNumber();
    const double value = static_cast<double>(digits) / kPowers[fraction];
    rest_.remove_prefix(static_cast<std::size_t>(at - rest_.data()));
    return negative ? -value : value;
}

/// Begins with a digit or a point, behind a sign.
std::optional<double> Scanner::longNumber() {
    std::string_view text = rest_;
    if (text.front() == '+') text.remove_prefix(1);
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc::result_out_of_range) {
        value = std::strtod(std::string(text.data(), end).c_str(), nullptr); // too small is fine
        if (!std::isfinite(value)) throw std::range_error("a number is out of range");
    } else if (error != std::errc{}) {
        return std::nullopt;
    }
    rest_.remove_prefix(static_cast<std::size_t>(end - rest_.data()));
    return value;
}

// Values

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && isSpace(text.front())) text.remove_prefix(1);
    while (!text.empty() && isSpace(text.back())) text.remove_suffix(1);
    return text;
}

// Style

std::string withoutComments(std::string_view text) {
    std::string plain;
    char quote = '\0';
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (!quote && text.substr(at, 2) == "/*") {
            const std::size_t end = text.find("*/", at + 2);
            if (end == std::string_view::npos) break;
            plain += ' ';
            at = end + 1;
            continue;
        }
        if (quote ? text[at] == quote : text[at] == '"' || text[at] == '\'') quote = quote ? '\0' : text[at];
        plain += text[at];
    }
    return plain;
}

namespace {

/// Characters that begin what is looked over.
constexpr std::array<bool, 256> kOpens = [] {
    std::array<bool, 256> opens{};
    for (const char c : {'"', '\'', '(', '[', '{', '/'}) opens[static_cast<unsigned char>(c)] = true;
    return opens;
}();

} // namespace

std::size_t findPlain(std::string_view text, std::string_view what, std::size_t from) {
    // Nearly always nothing stands before it that could hold one of its own.
    const auto isWanted = [what, front = what.front()](char c) {
        return c == front || (what.size() > 1 && what.find(c, 1) != what.npos);
    };
    std::size_t first = std::min(from, text.size());
    while (first < text.size() && !isWanted(text[first]) && !kOpens[static_cast<unsigned char>(text[first])]) ++first;
    if (first == text.size() || isWanted(text[first])) return first;
    std::string closers;
    for (std::size_t at = from; at < text.size(); ++at) {
        const char c = text[at];
        const bool inQuotes = !closers.empty() && (closers.back() == '"' || closers.back() == '\'');
        if (!closers.empty() && c == closers.back()) {
            closers.pop_back();
        } else if (inQuotes) {
            continue;
        } else if (c == '/' && text.substr(at, 2) == "/*") {
            at = std::min(text.find("*/", at + 2), text.size() - 2) + 1;
        } else if (closers.empty() && what.find(c) != std::string_view::npos) {
            return at;
        } else if (c == '"' || c == '\'') {
            closers += c;
        } else if (c == '(' || c == '[' || c == '{') {
            closers += c == '(' ? ')' : c == '[' ? ']' : '}';
        }
    }
    return text.size();
}

std::string_view trimmedStyle(std::string_view text) {
    for (;;) {
        text = trimmed(text);
        const bool begins = text.starts_with("/*");
        if (!begins && !text.ends_with("*/")) return text;
        const std::size_t end = begins ? std::min(text.find("*/", 2), text.size() - 2) + 2 : text.size();
        const std::size_t begin = begins ? 0 : text.rfind("/*");
        if (begin == text.npos) return text;
        text = begins ? text.substr(end) : text.substr(0, begin);
    }
}

std::vector<double> numbers(std::string_view text) {
    std::vector<double> values;
    Scanner scanner(text);
    scanner.skipSpace();
    while (const std::optional<double> value = scanner.number()) {
        values.push_back(*value);
        scanner.skipSeparator();
    }
    return values;
}

std::optional<Affine> transform(std::string_view text) {
    Affine whole;
    Scanner scanner(text);
    for (scanner.skipSpace(); !scanner.atEnd(); scanner.skipSeparator()) {
        const std::string_view name = scanner.word();
        scanner.skipSpace();
        if (!scanner.take('(')) return std::nullopt;
        std::vector<double> values;
        for (scanner.skipSpace(); !scanner.take(')'); scanner.skipSeparator()) {
            const std::optional<double> value = scanner.number();
            if (!value) return std::nullopt;
            values.push_back(*value);
        }
        const std::optional<Affine> part = elementaryTransform(name, values);
        if (!part) return std::nullopt;
        whole = *part * whole; // the last one named meets a point first
    }
    return whole;
}

std::optional<model::Color> color(std::string_view text) {
    if (!text.empty() && text.front() == '#') return hexColor(text.substr(1));
    const std::size_t open = text.find('(');
    if (open == std::string_view::npos) return colorByName(lowered(text));
    const std::string_view function = text.substr(0, open);
    return function == "rgb" || function == "rgba" ? rgbColor(text.substr(open + 1)) : std::nullopt;
}

std::string_view referredId(std::string_view value) {
    constexpr std::string_view kOpen = "url(";
    const std::size_t close = value.find(')');
    if (value.substr(0, kOpen.size()) != kOpen || close == std::string_view::npos) return {};
    std::string_view inside = trimmed(value.substr(kOpen.size(), close - kOpen.size()));
    const bool quoted = inside.size() >= 2 && (inside.front() == '"' || inside.front() == '\'');
    if (quoted) inside = inside.substr(1, inside.size() - 2);
    return inside.substr(0, 1) == "#" ? inside.substr(1) : std::string_view{};
}

model::Style initialStyle() {
    model::Style style;
    style.fill = true;
    style.stroke = false;
    style.miterLimit = 4;
    return style;
}

void applyProperty(model::Style& style, Name name, std::string_view value, const Units& units) {
    const auto diagonal = [&] { return units.length(value, Along::Diagonal); };
    switch (name) {
    case Name::Fill:
        if (auto server = applyPaint(style.fill, style.fillColor, value))
            style.setServers({*std::move(server), style.strokeServer()});
        return;
    case Name::FillRule:
        if (value == "evenodd" || value == "nonzero") style.evenOdd = value == "evenodd";
        return;
    case Name::Stroke:
        if (auto server = applyPaint(style.stroke, style.strokeColor, value))
            style.setServers({style.fillServer(), *std::move(server)});
        return;
    case Name::StrokeLineCap: return applyChoice(style.cap, kCaps, value);
    case Name::StrokeAlignment: return applyChoice(style.alignment, kAlignments, value);
    case Name::StrokeLineJoin: return applyChoice(style.join, kJoins, value);
    case Name::StrokeDashArray:
        if (value != "inherit") applyDashes(style, value, units);
        return;
    case Name::StrokeWidth:
        if (const auto width = diagonal(); width && *width >= 0) style.strokeWidth = *width;
        return;
    case Name::StrokeMiterLimit:
        if (const auto limit = diagonal(); limit && *limit >= 1) style.miterLimit = *limit;
        return;
    case Name::StrokeDashOffset:
        if (const auto offset = diagonal()) {
            model::Dashes dashes = style.dashes();
            dashes.offset = *offset;
            style.setDashes(dashes);
        }
        return;
    default: return;
    }
}

} // namespace easel::svg
