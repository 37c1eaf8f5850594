// Reads texts, pictures and uses from attributes.
#include "svg/Specials.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>

#include "svg/Limits.h"
#include "svg/Markup.h"
#include "svg/Outlines.h"
#include "svg/Pixels.h"
#include "svg/Values.h"

namespace easel::svg {

using model::Affine;

namespace {

/// The first of the families.
std::string familyIn(std::string_view list) {
    std::string_view first = trimmed(list.substr(0, list.find(',')));
    const bool isQuoted = first.size() > 1 && (first.front() == '"' || first.front() == '\'');
    return std::string(isQuoted ? first.substr(1, first.size() - 2) : first);
}

/// The length that an attribute says; none where it says none, or one that cannot be used.
std::optional<double> lengthOf(const Attributes& attributes, Name name, const Units& units, Along along) {
    try {
        return units.length(attributes.get(name), along);
    } catch (const std::range_error&) {
        return std::nullopt;
    }
}

} // namespace

TextLook textLook(const Attributes& attributes, TextLook look) {
    attributes.forEachProperty([&](Name name, std::string_view value) {
        if (value == "inherit") return;
        if (name == Name::FontFamily) look.font = familyIn(value);
        if (name == Name::TextAnchor)
            look.justification = value == "middle" ? model::Justification::Center
                                 : value == "end"  ? model::Justification::Right
                                                   : model::Justification::Left;
        if (name == Name::WritingMode)
            look.orientation = value.starts_with("tb") || value.starts_with("vertical")
                                   ? model::Orientation::Vertical
                                   : model::Orientation::Horizontal;
    });
    if (attributes.has(Name::Space)) look.preservesSpace = attributes.get(Name::Space) == "preserve";
    return look;
}

model::TextData readText(const Attributes& attributes, const TextLook& look, const Units& units, model::Style paint,
                         const Affine& toPage) {
    const double scale = scaleOf(toPage);
    model::TextData text{.font = look.font, .justification = look.justification, .orientation = look.orientation};
    const auto coordinate = [&](Name name, Along along) { // many of them place the letters
        const std::string_view value = attributes.get(name);
        const auto length = lengthOf(attributes, name, units, along);
        text.isRich = text.isRich || (!value.empty() && !length);
        return length.value_or(0);
    };
    const double x = coordinate(Name::X, Along::X);
    text.anchor = toPage({x, coordinate(Name::Y, Along::Y)});
    try {
        text.size = *units.length("1em", Along::X) * scale;
    } catch (const UnknownUnit&) {
        text.isRich = true;
    }
    text.isRich = text.isRich || !(text.size > 0 && withinReach(text.size));
    const bool isUpright = toPage.a == toPage.d && toPage.a > 0 && toPage.b == 0 && toPage.c == 0;
    if (!isUpright) text.turned = {toPage.a / scale, toPage.b / scale, toPage.c / scale, toPage.d / scale};
    text.paint = std::move(paint);
    return text;
}

std::string collapsed(std::string_view text) {
    std::string result;
    for (const char c : text) {
        if (c == '\n' || c == '\r') continue;
        if (!isSpace(c))
            result += c;
        else if (!result.empty() && result.back() != ' ')
            result += ' ';
    }
    if (!result.empty() && result.back() == ' ') result.pop_back();
    return result;
}

model::ImageData readImage(const Attributes& attributes, const Units& units, const Affine& toPage) {
    const bool isPlain = attributes.has(Name::Href);
    const std::string_view link = trimmed(attributes.get(isPlain ? Name::Href : Name::XlinkHref));
    model::ImageData image{.isEmbedded = link.starts_with("data:")};
    if (!image.isEmbedded) image.link = link;
    const auto size = image.isEmbedded ? pixelSizeInside(link) : std::nullopt;
    image.columns = size ? size->columns : 0;
    image.rows = size ? size->rows : 0;
    double x = lengthOf(attributes, Name::X, units, Along::X).value_or(0);
    double y = lengthOf(attributes, Name::Y, units, Along::Y).value_or(0);
    double width = lengthOf(attributes, Name::Width, units, Along::X).value_or(image.columns);
    double height = lengthOf(attributes, Name::Height, units, Along::Y).value_or(image.rows);
    const std::string_view fit = trimmed(attributes.get(Name::PreserveAspectRatio));
    const bool isInTheMiddle = fit.empty() || fit == "xMidYMid" || fit == "xMidYMid meet";
    if (!(size && isInTheMiddle)) image.fit = fit.empty() ? "xMidYMid" : fit;
    if (size && isInTheMiddle) { // as large as it can be, in the middle
        const double scale = std::min(width / image.columns, height / image.rows);
        x += (width - image.columns * scale) / 2;
        y += (height - image.rows * scale) / 2;
        width = image.columns * scale;
        height = image.rows * scale;
    }
    image.place = Affine{width, 0, 0, height, x, y} * toPage;
    return image;
}

model::SymbolData readUse(const Attributes& attributes, const Units& units, const Affine& toPage) {
    const bool isPlain = attributes.has(Name::Href);
    const std::string_view link = trimmed(attributes.get(isPlain ? Name::Href : Name::XlinkHref));
    model::SymbolData use;
    use.symbol = link.starts_with("#") ? link.substr(1) : std::string_view();
    const double x = lengthOf(attributes, Name::X, units, Along::X).value_or(0);
    const double y = lengthOf(attributes, Name::Y, units, Along::Y).value_or(0);
    use.place = Affine{1, 0, 0, 1, x, y} * toPage;
    const auto width = lengthOf(attributes, Name::Width, units, Along::X);
    const auto height = lengthOf(attributes, Name::Height, units, Along::Y);
    const auto all = [&](Along along) { return *units.length("100%", along); };
    if (width || height) use.size = {width.value_or(all(Along::X)), height.value_or(all(Along::Y))};
    return use;
}

} // namespace easel::svg
