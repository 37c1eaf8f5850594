// Styles as attributes make them, and paint and markers that pass on as they are written.
#include "svg/Inheritance.h"

#include <algorithm>
#include <stdexcept>
#include <string_view>

#include "svg/Values.h"

namespace easel::svg {

namespace {

/// An empty value takes away what came from further out.
void inherit(std::vector<std::pair<Name, std::string>>& inherited, Name name, std::string_view value) {
    const auto known =
        std::find_if(inherited.begin(), inherited.end(), [&](const auto& has) { return has.first == name; });
    if (known != inherited.end()) inherited.erase(known);
    if (!value.empty()) inherited.emplace_back(name, value);
}

} // namespace

model::Style styleOf(const Attributes& attributes, model::Style style, const Units& units) {
    attributes.forEachProperty([&](Name name, std::string_view value) {
        try {
            applyProperty(style, name, value, units);
        } catch (const std::range_error&) { // as absent
        }
    });
    return style;
}

void inherit(std::vector<std::pair<Name, std::string>>& inherited, const Attributes& attributes) {
    attributes.forEachProperty([&](Name name, std::string_view value) {
        if (value == "inherit") return;
        const bool isPaint = name == Name::Fill || name == Name::Stroke;
        try {
            if (isPaint) inherit(inherited, name, value == "none" || color(value) ? "" : value);
        } catch (const std::range_error&) { // as absent
        }
        if (name == Name::Marker)
            for (const Name each : {Name::MarkerStart, Name::MarkerMid, Name::MarkerEnd})
                inherit(inherited, each, value == "none" ? "" : value);
        else if (!initialValue(name).empty())
            inherit(inherited, name, value == initialValue(name) ? "" : value);
    });
}

} // namespace easel::svg
