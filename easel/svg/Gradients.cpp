// What a gradient does not say itself, the one that it refers to says.
#include "svg/Gradients.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>

#include "svg/Definitions.h"
#include "svg/Markup.h"
#include "svg/Names.h"
#include "svg/Reach.h"
#include "svg/Source.h"
#include "svg/Units.h"
#include "svg/Values.h"

namespace easel::svg {

using model::Affine;

namespace {

using Stop = Gradient::Stop;

constexpr std::array<const char*, 2> kKinds{"linearGradient", "radialGradient"};

/// A number from 0 to 1, or a percentage.
std::optional<double> share(std::string_view text) {
    Scanner scanner(trimmed(text));
    const std::optional<double> value = scanner.number();
    return value ? std::optional(std::clamp(scanner.take('%') ? *value / 100 : *value, 0.0, 1.0)) : std::nullopt;
}

Stop readStop(const Tag& tag, const StyleSheet* rules) {
    Stop stop;
    const auto apply = [&](std::string_view name, std::string_view value) {
        if (name == "stop-color") stop.color = color(value).value_or(stop.color);
        if (name == "stop-opacity") stop.opacity = share(value).value_or(stop.opacity);
    };
    for (const std::string_view name : {"stop-color", "stop-opacity"})
        if (const auto value = tag.find(name)) apply(name, trimmed(*value));
    const Styled styled{"stop", std::string(tag.find("id").value_or("")), classesIn(tag.find("class").value_or(""))};
    const auto declared = rules ? rules->declarationsFor({styled}) : std::vector<const StyleSheet::Declaration*>();
    for (const StyleSheet::Declaration* const each : declared) apply(each->name, each->value);
    forEachDeclaration(tag.find("style").value_or(""),
                       [&](std::string_view name, std::string_view value, bool) { apply(name, value); });
    stop.offset = share(tag.find("offset").value_or("0")).value_or(0);
    return stop;
}

/// The stops among elements, each no further back than the one before it.
std::vector<Stop> readStops(std::string_view content, const StyleSheet* rules) {
    std::vector<Stop> stops;
    for (std::size_t open = content.find('<'); open < content.size(); open = content.find('<', open + 1)) {
        if (content.substr(open, 4) == "<!--") open = std::min(content.find("-->", open), content.size());
        const std::string_view rest = content.substr(open);
        const Tag tag(rest.substr(0, behindTag(rest)));
        if (localName(tag.name()) != "stop") continue;
        Stop stop = readStop(tag, rules);
        if (!stops.empty()) stop.offset = std::max(stop.offset, stops.back().offset);
        stops.push_back(stop);
    }
    return stops;
}

std::string spreadText(Gradient::Spread spread) {
    return spread == Gradient::Spread::Reflect ? "reflect" : spread == Gradient::Spread::Repeat ? "repeat" : "pad";
}

} // namespace

Stop Gradient::at(double place) const {
    const auto next = std::find_if(stops.begin(), stops.end(), [&](const Stop& stop) { return stop.offset > place; });
    if (next == stops.begin()) return stops.front();
    if (next == stops.end()) return stops.back();
    const Stop& before = *std::prev(next);
    const double t = (place - before.offset) / (next->offset - before.offset);
    const auto mixed = [t](double a, double b) { return a + (b - a) * t; };
    return {place,
            {mixed(before.color.red, next->color.red), mixed(before.color.green, next->color.green),
             mixed(before.color.blue, next->color.blue)},
            mixed(before.opacity, next->opacity)};
}

std::optional<Gradient> gradientNamed(model::Document& document, std::string_view name) try {
    const DefinitionChain chain = definitionChain(document, {kKinds[0], kKinds[1]}, name);
    const auto* const source = dynamic_cast<const Source*>(document.origin.get());
    Gradient gradient;
    gradient.stops = readStops(chain.content, source ? &source->rules : nullptr);
    if (gradient.stops.empty()) return std::nullopt;
    gradient.isRadial = chain.kind == kKinds[1];
    gradient.fitsBox = chain.find("gradientUnits") != "userSpaceOnUse";
    const std::string spread = chain.find("spreadMethod");
    if (spread == "reflect") gradient.spread = Gradient::Spread::Reflect;
    if (spread == "repeat") gradient.spread = Gradient::Spread::Repeat;
    gradient.transform = transform(chain.find("gradientTransform")).value_or(Affine{});
    const Units units = gradient.fitsBox ? Units(1, 1) : Units(document.width(), document.height());
    const auto length = [&](const char* attribute, Along along, const char* otherwise) {
        const std::string text = chain.find(attribute);
        const auto value = text.empty() ? std::nullopt : units.length(text, along);
        return value ? *value : *units.length(otherwise, along);
    };
    if (!gradient.isRadial) {
        gradient.from = {length("x1", Along::X, "0%"), length("y1", Along::Y, "0%")};
        gradient.to = {length("x2", Along::X, "100%"), length("y2", Along::Y, "0%")};
        return gradient;
    }
    gradient.to = {length("cx", Along::X, "50%"), length("cy", Along::Y, "50%")};
    gradient.toRadius = length("r", Along::Diagonal, "50%");
    gradient.from = {chain.find("fx").empty() ? gradient.to.x : length("fx", Along::X, "50%"),
                     chain.find("fy").empty() ? gradient.to.y : length("fy", Along::Y, "50%")};
    gradient.fromRadius = length("fr", Along::Diagonal, "0%");
    return gradient;
} catch (const std::range_error&) { // a length in units that are not known, a number beyond all numbers
    return std::nullopt;
}

std::string keepGradient(model::Document& document, const Gradient& gradient) {
    std::string attributes = " xmlns=\"" + std::string(kSvgNamespace) +
                             "\" gradientUnits=\"userSpaceOnUse\" spreadMethod=\"" + spreadText(gradient.spread) + '"';
    const auto say = [&](const char* name, double value) {
        attributes.append(" ").append(name).append("=\"");
        appendNumber(attributes, value);
        attributes += '"';
    };
    say(gradient.isRadial ? "fx" : "x1", gradient.from.x);
    say(gradient.isRadial ? "fy" : "y1", gradient.from.y);
    say(gradient.isRadial ? "cx" : "x2", gradient.to.x);
    say(gradient.isRadial ? "cy" : "y2", gradient.to.y);
    if (gradient.isRadial) say("r", gradient.toRadius);
    if (gradient.isRadial && gradient.fromRadius > 0) say("fr", gradient.fromRadius);
    attributes += " gradientTransform=\"matrix(";
    const auto& [a, b, c, d, e, f] = gradient.transform;
    for (const double number : {a, b, c, d, e, f}) {
        appendNumber(attributes, number);
        attributes += ' ';
    }
    attributes.back() = ')';
    attributes += '"';
    std::string content;
    for (const Stop& stop : gradient.stops) {
        content += "<stop offset=\"";
        appendNumber(content, stop.offset);
        model::Style style;
        style.setFill(stop.color);
        content.append("\" stop-color=\"").append(properties(style, nullptr).front().second);
        content += "\" stop-opacity=\"";
        appendNumber(content, stop.opacity);
        content += "\"/>";
    }
    return keepDefinition(document, kKinds[gradient.isRadial ? 1 : 0], std::move(attributes), std::move(content));
}

} // namespace easel::svg
