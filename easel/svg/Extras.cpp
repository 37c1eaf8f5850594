// Opacity, blend mode, overprint, dictionaries, artboards and units, from attributes and back.
#include "svg/Extras.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <stdexcept>

#include "svg/Markup.h"
#include "svg/Values.h"

namespace easel::svg {

namespace {

using Json = nlohmann::json;
using model::Knockout;

/// In the order of model::BlendMode.
constexpr std::array<std::string_view, 16> kBlendModes{
    "normal", "multiply", "screen",     "overlay",   "soft-light", "hard-light", "color-dodge", "color-burn",
    "darken", "lighten",  "difference", "exclusion", "hue",        "saturation", "color",       "luminosity"};

double opacityOf(std::string_view text) {
    try {
        Scanner scanner(text);
        const std::optional<double> value = scanner.number();
        if (!value) return 1;
        return std::clamp(scanner.take('%') ? *value / 100 : *value, 0.0, 1.0);
    } catch (const std::range_error&) {
        return 1;
    }
}

model::BlendMode blendModeOf(std::string_view text) {
    const auto* const found = std::find(kBlendModes.begin(), kBlendModes.end(), text);
    return found == kBlendModes.end() ? model::BlendMode::Normal : model::BlendMode(found - kBlendModes.begin());
}

model::Dictionary dictionaryOf(std::string_view text) {
    model::Dictionary dictionary;
    const Json data = Json::parse(text.begin(), text.end(), nullptr, false);
    if (!data.is_object()) return dictionary;
    for (const auto& [key, value] : data.items()) {
        const bool isWhole = value.is_number_integer() && value >= std::numeric_limits<std::int32_t>::min() &&
                             value <= std::numeric_limits<std::int32_t>::max();
        if (value.is_boolean())
            dictionary[key] = value.get<bool>();
        else if (isWhole)
            dictionary[key] = value.get<std::int32_t>();
        else if (value.is_number())
            dictionary[key] = value.get<double>();
        else if (value.is_string())
            dictionary[key] = value.get<std::string>();
    }
    return dictionary;
}

constexpr std::string_view kPluginGroup = "plug-in-group";
constexpr std::string_view kEditArt = "edit-art";
constexpr std::string_view kMesh = "mesh";

/// "plug-in-group NAME", "edit-art" or "mesh COLUMNS".
void readKind(model::Extras& extras, std::string_view text) {
    const std::size_t space = text.find(' ');
    const std::string_view kind = text.substr(0, space);
    const std::string_view rest = space == text.npos ? "" : text.substr(space + 1);
    if (kind == kEditArt) extras.groupKind = model::GroupKind::EditArt;
    if (kind == kPluginGroup) {
        extras.groupKind = model::GroupKind::Plugin;
        extras.plugin = rest;
    }
    std::uint32_t columns = 0;
    const auto read = std::from_chars(rest.data(), rest.data() + rest.size(), columns);
    if (kind != kMesh || read.ec != std::errc() || columns == 0) return;
    extras.groupKind = model::GroupKind::Mesh;
    extras.columns = columns;
}

} // namespace

model::Extras readExtras(const Attributes& attributes) {
    model::Extras extras;
    attributes.forEachProperty([&](Name name, std::string_view value) {
        if (name == Name::Opacity) extras.opacity = opacityOf(value);
        if (name == Name::MixBlendMode) extras.blendMode = blendModeOf(value);
        if (name == Name::Mask) extras.mask = value == "none" ? std::string_view() : value;
    });
    if (extras.mask.empty()) extras.mask = attributes.get(Name::DisabledMask);
    extras.maskDisabled = attributes.has(Name::DisabledMask);
    readKind(extras, attributes.get(Name::Kind));
    const std::string_view knockout = attributes.get(Name::Knockout);
    if (knockout == "on") extras.knockout = Knockout::On;
    if (knockout == "inherit") extras.knockout = Knockout::Inherit;
    extras.centerPoint = attributes.get(Name::CenterPoint) == "visible";
    if (attributes.has(Name::Data)) extras.dictionary = dictionaryOf(attributes.get(Name::Data));
    return extras;
}

std::vector<model::Artboard> readArtboards(const Attributes& root) {
    std::vector<model::Artboard> artboards;
    const std::string_view text = root.get(Name::Artboards);
    const Json list = Json::parse(text.begin(), text.end(), nullptr, false);
    if (!list.is_array()) return artboards;
    for (const Json& item : list) {
        model::Artboard& artboard = artboards.emplace_back();
        artboard.id = static_cast<std::uint32_t>(artboards.size());
        if (!item.is_object()) continue;
        if (const auto title = item.find("title"); title != item.end() && title->is_string()) artboard.title = *title;
        const auto place = item.find("place");
        if (place == item.end() || !place->is_array() || place->size() != 4) continue;
        if (!std::all_of(place->begin(), place->end(), [](const Json& edge) { return edge.is_number(); })) continue;
        const model::Box box{(*place)[0], (*place)[1], (*place)[2], (*place)[3]};
        if (box.left < box.right && box.top < box.bottom) artboard.place = box;
    }
    return artboards;
}

std::string artboardsText(const std::vector<model::Artboard>& artboards) {
    if (artboards.empty()) return {};
    Json list = Json::array();
    for (const model::Artboard& artboard : artboards) {
        Json item{{"title", artboard.title}};
        if (const auto& place = artboard.place) item["place"] = {place->left, place->top, place->right, place->bottom};
        list.push_back(std::move(item));
    }
    return list.dump(-1, ' ', false, Json::error_handler_t::replace);
}

model::Units rulerUnits(std::string_view width) {
    static constexpr std::pair<std::string_view, model::Units> kSuffixes[] = {{"mm", model::Units::Millimeters},
                                                                              {"cm", model::Units::Centimeters},
                                                                              {"in", model::Units::Inches},
                                                                              {"pc", model::Units::Picas},
                                                                              {"px", model::Units::Pixels}};
    for (const auto& [suffix, units] : kSuffixes)
        if (width.ends_with(suffix)) return units;
    return model::Units::Points;
}

void readOverprint(model::Style& style, const Attributes& attributes) {
    const std::string_view text = attributes.get(Name::Overprint);
    style.overprintFill = text.find("fill") != std::string_view::npos;
    style.overprintStroke = text.find("stroke") != std::string_view::npos;
}

std::string opacityText(double opacity) {
    std::string text;
    appendNumber(text, opacity);
    return text;
}

std::string_view blendModeText(model::BlendMode mode) { return kBlendModes[static_cast<std::size_t>(mode)]; }

std::string_view knockoutText(Knockout knockout) {
    static constexpr std::string_view kTexts[] = {"", "on", "inherit"};
    return kTexts[static_cast<std::size_t>(knockout)];
}

std::string kindText(const model::Extras& extras) {
    switch (extras.groupKind) {
    case model::GroupKind::Plain: break;
    case model::GroupKind::Plugin: return std::string(kPluginGroup) + ' ' + extras.plugin;
    case model::GroupKind::EditArt: return std::string(kEditArt);
    case model::GroupKind::Mesh: return std::string(kMesh) + ' ' + std::to_string(extras.columns);
    }
    return {};
}

std::string_view overprintText(const model::Style& style) {
    if (style.overprintFill) return style.overprintStroke ? "fill stroke" : "fill";
    return style.overprintStroke ? "stroke" : "";
}

std::string dataText(const model::Dictionary& dictionary) {
    if (dictionary.empty()) return {};
    Json data = Json::object();
    for (const auto& [key, value] : dictionary)
        std::visit([&, &name = key](const auto& held) { data[name] = held; }, value);
    return data.dump(-1, ' ', false, Json::error_handler_t::replace);
}

} // namespace easel::svg
