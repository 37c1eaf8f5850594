// Values are compared as they are written, but for the size of fonts, which is what it comes to.
#include "svg/Surroundings.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "svg/Inheritance.h"
#include "svg/Markup.h"
#include "svg/Outlines.h"
#include "svg/Values.h"

namespace easel::svg {

namespace {

bool hasLengthsByFont(std::string_view tag) {
    for (std::size_t at = 1; at + 1 < tag.size(); ++at) {
        const std::string_view unit = tag.substr(at, 2);
        if ((unit == "em" || unit == "ex") && isDigit(tag[at - 1])) return true;
    }
    return false;
}

Styled styled(std::string_view startTag) {
    const Tag tag(startTag);
    return {std::string(localName(tag.name())), unescaped(tag.find("id").value_or("")),
            classesIn(unescaped(tag.find("class").value_or("")))};
}

} // namespace

const Surroundings::Inside& Surroundings::inside(std::uint32_t container) {
    std::vector<std::uint32_t> unknown;
    static const Inside kNothing;
    const Inside* around = &kNothing;
    for (std::uint32_t at = container;; at = source_.elements[source_.containers[at].element].container) {
        if (const auto known = inside_.find(at); known != inside_.end()) {
            around = &known->second;
            break;
        }
        unknown.push_back(at);
        if (at == 0) break;
    }
    for (; !unknown.empty(); unknown.pop_back())
        around = &inside_.emplace(unknown.back(), insideOf(*around, source_.containers[unknown.back()])).first->second;
    return *around;
}

Surroundings::Inside Surroundings::insideOf(const Inside& around, const Container& container) const {
    const std::string_view tag = source_.startTag(source_.elements[container.element]);
    Inside inside = around;
    inside.path.push_back(styled(tag));
    const Values says = [&] {
        Values values;
        const Tag attributes(tag);
        for (const Inherited& each : kInherited)
            if (const auto value = attributes.find(each.name); value && !each.isPaint)
                values[std::string(each.name)] = unescaped(*value);
        values.erase("font"); // which is no attribute
        for (auto& [name, value] : declared(inside.path, tag, false)) values[name] = value;
        forEachDeclaration(unescaped(attributes.find("style").value_or("")),
                           [&](auto name, auto value, bool) { values[std::string(name)] = value; });
        for (auto& [name, value] : declared(inside.path, tag, true)) values[name] = value;
        return values;
    }();
    if (says.count("font") > 0)
        std::erase_if(inside.values, [](const auto& known) { return known.first.substr(0, 5) == "font-"; });
    for (const Inherited& each : kInherited)
        if (const auto said = says.find(std::string(each.name));
            !each.isPaint && said != says.end() && said->second != "inherit")
            inside.values[said->first] = said->second;
    if (const auto size = inside.values.find("font-size"); size != inside.values.end())
        if (const double known = container.units.fontSize(); std::isfinite(known)) {
            size->second.clear();
            appendNumber(size->second, known);
        }
    return inside;
}

/// What style sheets say of the last of some elements.
Surroundings::Values Surroundings::declared(std::vector<Styled> path, std::string_view tag, bool important) const {
    Values values;
    if (source_.rules.isEmpty()) return values;
    if (path.empty() || !tag.empty()) path.back() = styled(tag);
    for (const StyleSheet::Declaration* const each : source_.rules.declarationsFor(path))
        if (each->important == important) values[each->name] = each->value;
    return values;
}

std::string Surroundings::says(const Element& element, std::string_view name) {
    const std::string_view text = source_.startTag(element);
    std::vector<Styled> path = inside(element.container).path;
    path.emplace_back();
    const Tag tag(text);
    std::string value = unescaped(tag.find(name).value_or(""));
    const auto take = [&](const Values& values) {
        if (const auto said = values.find(std::string(name)); said != values.end()) value = said->second;
    };
    take(declared(path, text, false));
    Values own;
    forEachDeclaration(unescaped(tag.find("style").value_or("")),
                       [&](auto known, auto said, bool) { own[std::string(known)] = said; });
    take(own);
    take(declared(path, text, true));
    return value;
}

Surroundings::Needed Surroundings::needed(const Element& element, std::string_view tag, std::uint32_t into,
                                          bool isOutlined) {
    const auto declaredIn = [&](const Inside& container, std::string_view as) {
        std::vector<Styled> path = container.path;
        path.emplace_back();
        Values values = declared(path, as, false);
        for (auto& [name, value] : declared(path, as, true)) values[name] = value;
        return values;
    };
    const Inside& from = inside(element.container);
    const Inside& to = inside(into);
    const bool hasTag = element.reason != Reason::Entity;
    const Values before = declaredIn(from, hasTag ? source_.startTag(element) : tag);
    Needed needed{{}, declaredIn(to, tag)};
    const Tag attributes(tag);
    Values own; // which win, unless a sheet insists
    forEachDeclaration(unescaped(attributes.find("style").value_or("")),
                       [&](auto name, auto value, bool) { own[std::string(name)] = value; });
    const auto valueOf = [&](const std::string& name, const Values& declared, const Inside& around) {
        if (const auto said = declared.find(name); said != declared.end()) return said->second;
        if (const auto said = attributes.find(name)) return unescaped(*said);
        const auto inherited = around.values.find(name);
        return inherited == around.values.end() ? std::string() : inherited->second;
    };
    const auto consider = [&](const std::string& name, std::string_view initial) {
        if (own.count(name) > 0 || (own.count("font") > 0 && name.substr(0, 5) == "font-")) return;
        std::string was = valueOf(name, before, from);
        // A shorthand says all of them at once.
        const bool isFont = name.substr(0, 5) == "font-";
        const bool saidTogether = isFont && from.values.count("font") > 0;
        const bool isReset = isFont && !saidTogether && to.values.count("font") > 0;
        if (saidTogether && was.empty()) return;
        if (was == valueOf(name, needed.declared, to) && !isReset) return;
        if (was.empty()) was = initial;
        if (!was.empty()) needed.properties.emplace_back(name, std::move(was));
    };
    const bool needsFont = !isOutlined || hasLengthsByFont(tag);
    for (const Inherited& each : kInherited)
        if (!each.isPaint && (each.ofOutlines || !isOutlined || (needsFont && each.name == "font-size")))
            consider(std::string(each.name), each.initial);
    for (const auto& [name, value] : before) {
        const bool isKnown =
            std::any_of(std::begin(kInherited), std::end(kInherited),
                        [&, &name = name](const Inherited& each) { return each.name == name && !each.isPaint; });
        if (!isKnown) consider(name, "");
    }
    return needed;
}

} // namespace easel::svg
