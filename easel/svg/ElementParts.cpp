// Numbers that can be written, in which units, and declarations in style attributes.
#include "svg/ElementParts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "svg/FileError.h"
#include "svg/Markup.h"
#include "svg/Reach.h"
#include "svg/Values.h"

namespace easel::svg {

using model::Affine;
using model::Node;
using model::NodeType;
using model::PathData;
using model::Style;

void requireInReach(const Node& node) {
    for (const model::Shared<PathData>& outline : node.outlines())
        if (!withinReach(*outline)) throw UnsavableError("a path that reaches beyond 1e9 points cannot be saved");
}

void requireUsable(const Style& style) {
    bool usable = withinReach(style.strokeWidth) && withinReach(style.miterLimit) && withinReach(style.dashes().offset);
    for (const double dash : style.dashes().lengths) usable = usable && withinReach(dash);
    for (const model::Color& color : {style.fillColor, style.strokeColor}) {
        for (const double channel : {color.red, color.green, color.blue}) usable = usable && std::isfinite(channel);
    }
    if (!usable) throw UnsavableError("a stroke with lengths beyond 1e9 points cannot be saved");
}

Style inUnits(Style style, double scale) {
    style.changeLengths([&](double& length) { length /= scale; });
    return style;
}

std::string transformText(const Affine& transform) {
    constexpr double kAlmost = 1e-12;
    const auto& [a, b, c, d, e, f] = transform;
    const std::array<double, 6> numbers{a, b, c, d, e, f};
    const bool moves =
        std::fabs(a - 1) < kAlmost && std::fabs(b) < kAlmost && std::fabs(c) < kAlmost && std::fabs(d - 1) < kAlmost;
    std::string text = moves ? "translate(" : "matrix(";
    if (!withinReach(transform)) throw UnsavableError("an object beyond 1e9 points cannot be saved");
    for (std::size_t i = moves ? 4 : 0; i < 6; ++i) {
        appendNumber(text, numbers[i]);
        text += i < 5 ? ' ' : ')';
    }
    return text;
}

bool isTurned(const Node& node) {
    return node.type() == NodeType::Opaque && node.opaque().turned != model::OpaqueData().turned;
}

std::optional<std::pair<std::size_t, std::size_t>> declaration(std::string_view style, std::string_view name) {
    std::optional<std::pair<std::size_t, std::size_t>> last;
    std::vector<std::size_t> offsets;
    const std::string plain = unescaped(style, &offsets);
    bool insists = false;
    forEachDeclaration(plain, [&](std::string_view declared, std::string_view value, bool important) {
        if (declared != name || (insists && !important)) return;
        insists = important;
        const auto begin = static_cast<std::size_t>(value.data() - plain.data());
        last = {offsets[begin], offsets[begin + value.size()]};
    });
    return last;
}

} // namespace easel::svg
