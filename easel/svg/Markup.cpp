// Small grammars, each written by hand.
#include "svg/Markup.h"

#include <utf8.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string>

#include "svg/Outlines.h"
#include "svg/Values.h"

namespace easel::svg {

namespace {

using model::PathData;
using model::PathPoint;
using model::Point;
using model::Style;

/// None for one that is declared in a document, and for anything else.
std::optional<std::string> textOfReference(std::string_view reference) {
    static constexpr std::pair<std::string_view, char> kNames[] = {
        {"&quot;", '"'}, {"&apos;", '\''}, {"&lt;", '<'}, {"&gt;", '>'}, {"&amp;", '&'}};
    for (const auto& [name, c] : kNames)
        if (reference == name) return std::string(1, c);
    if (!reference.starts_with("&#")) return std::nullopt;
    const bool isHex = reference.starts_with("&#x");
    const std::string_view digits = reference.substr(isHex ? 3 : 2);
    std::uint32_t code = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), code, isHex ? 16 : 10);
    if (error != std::errc{} || *end != ';') return std::nullopt;
    std::string text;
    utf8::append(static_cast<char32_t>(code), text);
    return text;
}

void append(std::string& out, Point point) {
    appendNumber(out, point.x);
    out += ' ';
    appendNumber(out, point.y);
}

void appendColor(std::string& out, const model::Color& color) {
    const double channels[] = {color.red, color.green, color.blue};
    const auto isByte = [](double channel) { return std::round(channel * 255) / 255 == channel; };
    if (std::all_of(std::begin(channels), std::end(channels), isByte)) {
        out += '#';
        for (const double channel : channels) {
            const int byte = static_cast<int>(std::round(channel * 255));
            out += "0123456789abcdef"[byte / 16];
            out += "0123456789abcdef"[byte % 16];
        }
        return;
    }
    out += "rgb(";
    for (const double& channel : channels) {
        appendNumber(out, channel * 100);
        out += &channel == &channels[2] ? "%)" : "%,";
    }
}

void appendSegment(std::string& out, const PathPoint& start, const PathPoint& end) {
    const bool straight = start.out == start.anchor && end.in == end.anchor;
    out += straight ? " L" : " C";
    if (!straight) {
        append(out, start.out);
        out += ' ';
        append(out, end.in);
        out += ' ';
    }
    append(out, end.anchor);
}

void appendSubpath(std::string& out, const PathData& path) {
    if (path.points.empty()) return;
    const PathPoint& first = path.points.front();
    const PathPoint& last = path.points.back();
    out += out.empty() ? "M" : " M";
    append(out, first.anchor);
    for (std::size_t i = 1; i < path.points.size(); ++i) appendSegment(out, path.points[i - 1], path.points[i]);
    if (!path.closed) return;
    // A straight way back goes without saying, unless it has no length: then "Z" alone would join the two anchors. Of a
    // single anchor the way back is a loop, when it has handles.
    const bool straight = last.out == last.anchor && first.in == first.anchor;
    if (!straight || (path.points.size() > 1 && last.anchor == first.anchor)) appendSegment(out, last, first);
    out += " Z";
}

std::string colorText(const model::Color& color, bool painted) {
    std::string text;
    if (painted) {
        appendColor(text, color);
    } else {
        text = "none";
    }
    return text;
}

std::string numberText(double value) {
    std::string text;
    appendNumber(text, value);
    return text;
}

bool sameDashes(const model::Dashes& a, const model::Dashes& b) {
    return a.count == b.count && std::equal(a.lengths.begin(), a.lengths.begin() + a.count, b.lengths.begin());
}

} // namespace

// Values

void appendNumber(std::string& out, double value) {
    char digits[32];
    const auto [end, error] = std::to_chars(digits, digits + sizeof digits, value);
    out.append(digits, end);
}

void appendEscaped(std::string& out, std::string_view text) {
    for (const char c : text) {
        switch (c) {
        case '&': out += "&amp;"; break;
        case '<': out += "&lt;"; break;
        case '>': out += "&gt;"; break;
        case '"': out += "&quot;"; break;
        case '\'': out += "&apos;"; break;
        case '\t': out += "&#9;"; break; // a plain one would be read as a space
        case '\n': out += "&#10;"; break;
        case '\r': out += "&#13;"; break;
        default:
            if (static_cast<unsigned char>(c) >= ' ') out += c; // XML has no way to say the others
        }
    }
}

void appendAsciiEscaped(std::string& out, std::string_view text) {
    std::string escaped;
    appendEscaped(escaped, text);
    out += inAscii(escaped);
}

std::string inAscii(std::string_view markup) {
    std::string out;
    for (const char32_t c : utf8::utf8to32(utf8::replace_invalid(markup))) {
        if (c < 0x80) {
            out += static_cast<char>(c);
        } else {
            out += "&#" + std::to_string(static_cast<std::uint32_t>(c)) + ';';
        }
    }
    return out;
}

std::string unescaped(std::string_view text, std::vector<std::size_t>* offsets) {
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = text[at] == '&' ? text.find(';', at) : text.npos;
        const std::string_view reference = end == text.npos ? text.substr(at, 1) : text.substr(at, end + 1 - at);
        const std::optional<std::string> resolved = textOfReference(reference);
        result += resolved ? *resolved : std::string(offsets ? reference.substr(0, 1) : reference);
        if (offsets) offsets->resize(result.size(), at);
        at += reference.size();
    }
    if (offsets) offsets->push_back(text.size());
    return result;
}

std::string pathData(const std::vector<PathData>& subpaths) {
    std::string out;
    for (const PathData& subpath : subpaths) appendSubpath(out, subpath);
    return out;
}

std::string nodeTypes(const std::vector<PathData>& subpaths) {
    std::string types;
    bool expected = true;
    for (const PathData& path : subpaths) {
        const std::size_t first = types.size();
        for (std::size_t i = 0; i < path.points.size(); ++i) {
            types += path.isCorner(i) ? 'c' : 's';
            expected = expected && path.isCorner(i) != looksSmooth(path.points[i]);
        }
        if (path.closed && types.size() > first) types += types[first];
    }
    return expected ? "" : types;
}

std::string outerHandles(const std::vector<PathData>& subpaths) {
    std::string ends;
    bool any = false;
    for (const PathData& path : subpaths) {
        if (path.points.empty() || path.closed) continue;
        const PathPoint& first = path.points.front();
        const PathPoint& last = path.points.back();
        any = any || first.in != first.anchor || last.out != last.anchor;
        if (!ends.empty()) ends += ' ';
        append(ends, first.in);
        ends += ' ';
        append(ends, last.out);
    }
    return any ? ends : "";
}

std::vector<Property> properties(const Style& style, const Style* assumed) {
    static constexpr const char* kCapTexts[] = {"butt", "round", "square"};
    static constexpr const char* kJoinTexts[] = {"miter", "round", "bevel"};
    static constexpr const char* kAlignmentTexts[] = {"center", "inner", "outer"};
    std::vector<Property> said;
    const auto say = [&](bool unlessSame, std::string_view name, std::string value) {
        if (!assumed || !unlessSame) said.emplace_back(name, std::move(value));
    };
    const Style& other = assumed ? *assumed : style;
    const auto samePaint = [](bool a, const model::Color& colorA, bool b, const model::Color& colorB) {
        return a == b && (!a || colorA == colorB);
    };
    const auto paintText = [](const std::string& server, const model::Color& color, bool painted) {
        const std::string plain = colorText(color, painted);
        if (server.empty()) return plain;
        std::string text;
        appendAsciiEscaped(text, server);
        return painted ? text + ' ' + plain : text;
    };
    say(samePaint(style.fill, style.fillColor, other.fill, other.fillColor) && style.fillServer() == other.fillServer(),
        "fill", paintText(style.fillServer(), style.fillColor, style.fill));
    say(style.evenOdd == other.evenOdd, "fill-rule", style.evenOdd ? "evenodd" : "nonzero");
    say(samePaint(style.stroke, style.strokeColor, other.stroke, other.strokeColor) &&
            style.strokeServer() == other.strokeServer(),
        "stroke", paintText(style.strokeServer(), style.strokeColor, style.stroke));
    say(style.strokeWidth == other.strokeWidth, "stroke-width", numberText(style.strokeWidth));
    say(style.miterLimit == other.miterLimit, "stroke-miterlimit", numberText(style.miterLimit));
    say(style.cap == other.cap, "stroke-linecap", kCapTexts[static_cast<int>(style.cap)]);
    say(style.join == other.join, "stroke-linejoin", kJoinTexts[static_cast<int>(style.join)]);
    // Few know this property, and an outline that never had it goes without.
    if (style.alignment != model::Alignment::Center || other.alignment != style.alignment)
        say(style.alignment == other.alignment, "stroke-alignment", kAlignmentTexts[static_cast<int>(style.alignment)]);
    const model::Dashes& dashes = style.dashes();
    std::string lengths;
    for (std::size_t i = 0; i < dashes.count; ++i) lengths += (i > 0 ? " " : "") + numberText(dashes.lengths[i]);
    say(sameDashes(dashes, other.dashes()), "stroke-dasharray", lengths.empty() ? "none" : std::move(lengths));
    say(dashes.count == 0 || dashes.offset == other.dashes().offset, "stroke-dashoffset", numberText(dashes.offset));
    return said;
}

// Tags

std::size_t behindTag(std::string_view text) {
    char quote = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char c = text[at];
        if (quote == 0 && c == '>') return at + 1;
        if (quote == 0 && (c == '"' || c == '\''))
            quote = c;
        else if (c == quote)
            quote = 0;
    }
    return text.size();
}

Tag::Tag(std::string_view text, Defaults defaults) : defaults_(std::move(defaults)) {
    std::size_t at = 1;
    const auto span = [&](std::size_t end) {
        const std::string_view part = text.substr(at, end - at);
        at = std::min(end, text.size());
        return part;
    };
    name_ = span(text.find_first_of(" \t\r\n/>", at));
    for (;;) {
        const std::size_t start = text.find_first_not_of(kSpace, at);
        if (start == std::string_view::npos || text[start] == '/' || text[start] == '>') break;
        Attribute attribute{};
        attribute.before = span(start);
        attribute.name = span(text.find_first_of(" \t\r\n=", at));
        attribute.between = span(text.find_first_of("\"'", at));
        if (at == text.size()) break;
        attribute.quote = text[at++];
        attribute.value = span(text.find(attribute.quote, at));
        ++at;
        attributes_.push_back(std::move(attribute));
    }
    tail_ = text.substr(std::min(at, text.size()));
}

std::optional<std::string_view> Tag::find(std::string_view attribute) const {
    for (const Attribute& has : attributes_) {
        if (has.name == attribute) return has.value;
    }
    const auto found = defaults_.find(attribute);
    return found == defaults_.end() ? std::nullopt : std::optional<std::string_view>(found->second);
}

std::string Tag::find(const std::vector<std::string>& prefixes, std::string_view local) const {
    for (const std::string& prefix : prefixes) {
        std::string name = prefix + ':' + std::string(local);
        if (find(name)) return name;
    }
    return "";
}

void Tag::set(std::string_view attribute, std::string value) {
    for (Attribute& has : attributes_) {
        if (has.name != attribute) continue;
        has.value = std::move(value);
        return;
    }
    attributes_.push_back({" ", std::string(attribute), "=", '"', std::move(value)});
}

void Tag::remove(std::string_view attribute) {
    const auto named = [&](const Attribute& has) { return has.name == attribute; };
    attributes_.erase(std::remove_if(attributes_.begin(), attributes_.end(), named), attributes_.end());
}

void Tag::openUp() { tail_.erase(tail_.size() - 2, 1); }

std::string Tag::text() const {
    std::string text = '<' + name_;
    for (const Attribute& attribute : attributes_) {
        text += attribute.before;
        text += attribute.name;
        text += attribute.between;
        text += attribute.quote;
        text += attribute.value;
        text += attribute.quote;
    }
    return text += tail_;
}

} // namespace easel::svg
