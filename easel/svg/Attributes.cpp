// Names are told apart once an attribute, by their length and two of their letters.
#include "svg/Attributes.h"

#include "svg/Names.h"
#include "svg/Values.h"

namespace easel::svg {

using model::Affine;

namespace {

struct Known {
    std::string_view text;
    Name name = Name::Unknown;
};

constexpr std::array kNames{Known{"d", Name::D},
                            Known{"points", Name::Points},
                            Known{"x", Name::X},
                            Known{"y", Name::Y},
                            Known{"width", Name::Width},
                            Known{"height", Name::Height},
                            Known{"rx", Name::Rx},
                            Known{"ry", Name::Ry},
                            Known{"cx", Name::Cx},
                            Known{"cy", Name::Cy},
                            Known{"r", Name::R},
                            Known{"x1", Name::X1},
                            Known{"y1", Name::Y1},
                            Known{"x2", Name::X2},
                            Known{"y2", Name::Y2},
                            Known{"id", Name::Id},
                            Known{kLabel, Name::Label},
                            Known{kGroupMode, Name::GroupMode},
                            Known{kInsensitive, Name::Insensitive},
                            Known{kNodeTypes, Name::NodeTypes},
                            Known{kEnds, Name::Ends},
                            Known{kKnockout, Name::Knockout},
                            Known{kCenterPoint, Name::CenterPoint},
                            Known{kOverprint, Name::Overprint},
                            Known{kData, Name::Data},
                            Known{kArtboards, Name::Artboards},
                            Known{kKind, Name::Kind},
                            Known{kDisabledMask, Name::DisabledMask},
                            Known{kSpaceAttribute, Name::Space},
                            Known{"href", Name::Href},
                            Known{kXlinkHref, Name::XlinkHref},
                            Known{"preserveAspectRatio", Name::PreserveAspectRatio},
                            Known{"style", Name::Style},
                            Known{"class", Name::Class},
                            Known{"viewBox", Name::ViewBox},
                            Known{"clipPathUnits", Name::ClipPathUnits},
                            Known{"transform", Name::Transform},
                            Known{"display", Name::Display},
                            Known{"visibility", Name::Visibility},
                            Known{"fill", Name::Fill},
                            Known{"stroke", Name::Stroke},
                            Known{"stroke-width", Name::StrokeWidth},
                            Known{"stroke-linecap", Name::StrokeLineCap},
                            Known{"stroke-linejoin", Name::StrokeLineJoin},
                            Known{"stroke-alignment", Name::StrokeAlignment},
                            Known{"stroke-miterlimit", Name::StrokeMiterLimit},
                            Known{"stroke-dasharray", Name::StrokeDashArray},
                            Known{"stroke-dashoffset", Name::StrokeDashOffset},
                            Known{"fill-opacity", Name::FillOpacity},
                            Known{"fill-rule", Name::FillRule},
                            Known{"paint-order", Name::PaintOrder},
                            Known{"stroke-opacity", Name::StrokeOpacity},
                            Known{"marker", Name::Marker},
                            Known{"marker-start", Name::MarkerStart},
                            Known{"marker-mid", Name::MarkerMid},
                            Known{"marker-end", Name::MarkerEnd},
                            Known{"clip-path", Name::ClipPath},
                            Known{"clip-rule", Name::ClipRule},
                            Known{"font-size", Name::FontSize},
                            Known{"font", Name::Font},
                            Known{"opacity", Name::Opacity},
                            Known{"mix-blend-mode", Name::MixBlendMode},
                            Known{"mask", Name::Mask},
                            Known{"font-family", Name::FontFamily},
                            Known{"text-anchor", Name::TextAnchor},
                            Known{"writing-mode", Name::WritingMode}};

constexpr std::size_t kSlots = 512;

constexpr std::size_t slotOf(std::string_view text) {
    const auto letter = [&](std::size_t at) { return static_cast<unsigned char>(text[at]); };
    return (text.size() * 67 + letter(text.size() - 1) * 5 + letter(text.size() / 2)) % kSlots;
}

/// Each name in its slot or in the next one that is free.
constexpr std::array<Known, kSlots> kTable = [] {
    std::array<Known, kSlots> table{};
    for (const Known& known : kNames) {
        std::size_t slot = slotOf(known.text);
        while (!table[slot].text.empty()) slot = (slot + 1) % kSlots;
        table[slot] = known;
    }
    return table;
}();

Name nameOf(std::string_view text) {
    if (text.empty()) return Name::Unknown;
    std::size_t slot = slotOf(text);
    while (!kTable[slot].text.empty() && kTable[slot].text != text) slot = (slot + 1) % kSlots;
    return kTable[slot].name;
}

/// Shorthands and what came with style sheets cannot be attributes.
bool isPresentation(Name name) {
    return name > Name::Transform && name != Name::Unknown && name != Name::Marker && name != Name::Font &&
           name != Name::MixBlendMode;
}

} // namespace

std::string_view textOf(Name name) {
    for (const Known& known : kNames)
        if (known.name == name) return known.text;
    return {};
}

std::string_view initialValue(Name name) {
    switch (name) {
    case Name::FillOpacity:
    case Name::StrokeOpacity: return "1";
    case Name::MarkerStart:
    case Name::MarkerMid:
    case Name::MarkerEnd: return "none";
    case Name::PaintOrder: return "normal";
    case Name::Visibility: return "visible";
    default: return {};
    }
}

Attributes::Attributes(const char** pairs) {
    for (; *pairs; pairs += 2) {
        const Name name = nameOf(pairs[0]);
        if (name == Name::Unknown) continue;
        const std::string_view value = pairs[1];
        present_.set(static_cast<std::size_t>(name));
        values_[static_cast<std::size_t>(name)] = {value.data(), value.size()};
        if (isPresentation(name)) properties_.emplace_back(name, trimmed(value));
    }
    attributeCount_ = properties_.size();
    if (!has(Name::Style)) return;
    forEachDeclaration(get(Name::Style), [this](std::string_view text, std::string_view value, bool important) {
        const bool added = addDeclaration(text, value, properties_.size() - (important ? 0 : insistingCount_));
        if (added && important) ++insistingCount_;
    });
}

/// Before the property at `place`.
bool Attributes::addDeclaration(std::string_view text, std::string_view value, std::size_t place) {
    const Name name = nameOf(text);
    if (name == Name::Transform && value != "none") transformsInStyle_ = true;
    if (name <= Name::Transform || name == Name::Unknown) return false;
    properties_.emplace(properties_.begin() + static_cast<std::ptrdiff_t>(place), name, value);
    return true;
}

void Attributes::cascade(const std::vector<const StyleSheet::Declaration*>& declarations) {
    std::size_t insisting = insistingCount_; // what the style insists on wins over what sheets do
    for (const StyleSheet::Declaration* const declaration : declarations) {
        const std::size_t place = declaration->important ? properties_.size() - insisting : attributeCount_;
        const bool added = addDeclaration(declaration->name, declaration->value, place);
        if (added && declaration->important) ++insistingCount_;
        if (added && !declaration->important) ++attributeCount_;
    }
}

bool Attributes::isInheritedBehind(std::size_t place) const {
    for (std::size_t i = place + 1; i < properties_.size(); ++i)
        if (properties_[i].first == properties_[place].first && properties_[i].second == "inherit") return true;
    return false;
}

std::string_view Attributes::property(Name name) const {
    std::string_view found;
    for (const auto& [known, value] : properties_)
        if (known == name) found = value;
    return found;
}

Affine Attributes::transformInto(const Affine& around) const {
    const std::string_view text = get(Name::Transform);
    if (text.empty()) return around;
    return transform(text).value_or(Affine{}) * around;
}

bool Attributes::hasVoidTransform() const { return has(Name::Transform) && !transform(get(Name::Transform)); }

bool Attributes::transformsInStyle() const { return transformsInStyle_; }

Units Attributes::units(const Units& around) const {
    Units units = around;
    for (const auto& [name, value] : properties_) {
        if (name == Name::FontSize) units.setFontSize(value, around);
        if (name == Name::Font && value != "inherit") units.forgetFontSize();
    }
    return units;
}

} // namespace easel::svg
