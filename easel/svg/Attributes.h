// The attributes of one element as the parser reports them, and the properties in its style. Names that nothing here
// asks for are passed over.
#pragma once

#include <array>
#include <bitset>
#include <boost/container/small_vector.hpp>
#include <optional>
#include <string_view>

#include "model/Types.h"
#include "svg/StyleSheet.h"
#include "svg/Units.h"

namespace easel::svg {

/// Attributes and properties that are read.
enum class Name : std::uint8_t {
    // Outlines
    D,
    Points,
    X,
    Y,
    Width,
    Height,
    Rx,
    Ry,
    Cx,
    Cy,
    R,
    X1,
    Y1,
    X2,
    Y2,
    // What elements are
    Id,
    Label,
    GroupMode,
    Insensitive,
    NodeTypes,
    Ends,
    Knockout,
    CenterPoint,
    Overprint,
    Data,
    Artboards,
    Kind,
    DisabledMask,
    Style,
    Space,
    Href,
    XlinkHref,
    PreserveAspectRatio,
    Class,
    ViewBox,
    ClipPathUnits,
    // Properties; those of paint lie between Fill and StrokeDashOffset
    Transform,
    Display,
    Visibility,
    Fill,
    FillRule,
    Stroke,
    StrokeWidth,
    StrokeLineCap,
    StrokeLineJoin,
    StrokeAlignment,
    StrokeMiterLimit,
    StrokeDashArray,
    StrokeDashOffset,
    FillOpacity,
    PaintOrder,
    StrokeOpacity,
    Marker,
    MarkerStart,
    MarkerMid,
    MarkerEnd,
    ClipPath,
    ClipRule,
    FontSize,
    Font,
    Opacity,
    MixBlendMode,
    Mask,
    FontFamily,
    TextAnchor,
    WritingMode,
    Unknown
};

/// Its text; only for properties.
[[nodiscard]] std::string_view textOf(Name name);
/// Of a property that a style of the model does not have: what SVG starts from. Empty for others.
[[nodiscard]] std::string_view initialValue(Name name);

class Attributes {
  public:
    /// Names and values in turn, ended by null. Names of other namespaces than SVG's come with theirs (see Names.h).
    explicit Attributes(const char** pairs);

    [[nodiscard]] std::optional<std::string_view> find(Name name) const {
        const auto index = static_cast<std::size_t>(name);
        if (!present_[index]) return std::nullopt;
        return std::string_view(values_[index].text, values_[index].size);
    }
    [[nodiscard]] std::string_view get(Name name) const { return find(name).value_or(""); }
    [[nodiscard]] bool has(Name name) const { return present_[static_cast<std::size_t>(name)]; }

    /// Puts what style sheets declare, which must live longer, between attributes and style.
    void cascade(const std::vector<const StyleSheet::Declaration*>& declarations);

    /// Calls `use(name, value)` for each property, attributes first, as later ones win. One that is to be inherited
    /// takes away those before it.
    template <class Use> void forEachProperty(Use use) const {
        for (std::size_t i = 0; i < properties_.size(); ++i)
            if (!isInheritedBehind(i)) use(properties_[i].first, properties_[i].second);
    }
    /// The value that wins; empty when there is none.
    [[nodiscard]] std::string_view property(Name name) const;

    /// The element's own transform, then `around`.
    [[nodiscard]] model::Affine transformInto(const model::Affine& around) const;
    /// Whether there is a transform that says nothing: "none", or nothing that can be read.
    [[nodiscard]] bool hasVoidTransform() const;
    /// Whether the style has a transform too, which is not evaluated.
    [[nodiscard]] bool transformsInStyle() const;
    /// What lengths are measured by on the element, if it is in something where `around` holds.
    [[nodiscard]] Units units(const Units& around) const;

  private:
    [[nodiscard]] bool isInheritedBehind(std::size_t place) const;
    bool addDeclaration(std::string_view text, std::string_view value, std::size_t place);

    static constexpr std::size_t kCount = static_cast<std::size_t>(Name::Unknown);

    struct Value {
        const char* text;
        std::size_t size;
    };

    std::bitset<kCount> present_;
    std::array<Value, kCount> values_; // of those that are present; there are too many to clear them for each element
    /// Of attributes; then of the style; then those that it insists on.
    boost::container::small_vector<std::pair<Name, std::string_view>, 16> properties_;
    std::size_t attributeCount_ = 0;
    std::size_t insistingCount_ = 0;
    bool transformsInStyle_ = false;
};

} // namespace easel::svg
