// How art is blended with what lies below it, and what else only few objects have.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "model/Types.h"

namespace easel::model {

enum class BlendMode : std::uint8_t {
    Normal,
    Multiply,
    Screen,
    Overlay,
    SoftLight,
    HardLight,
    ColorDodge,
    ColorBurn,
    Darken,
    Lighten,
    Difference,
    Exclusion,
    Hue,
    Saturation,
    Color,
    Luminosity
};

/// Whether what a group holds shows through what it holds above that.
enum class Knockout : std::uint8_t { Off, On, Inherit };

/// Values that plug-ins keep, by key.
using Dictionary = std::map<std::string, std::variant<bool, std::int32_t, double, std::string>>;

/// A part of the document that is a page; without a place of its own, the drawing's page.
struct Artboard {
    std::uint32_t id = 1; ///< never given to another one of the document
    std::string title;
    std::optional<Box> place;

    bool operator==(const Artboard&) const = default;
};

/// The default is that of ordinary art, which stores none.
struct Extras {
    double opacity = 1; ///< 0 to 1
    BlendMode blendMode = BlendMode::Normal;
    Knockout knockout = Knockout::Off;
    bool centerPoint = false; ///< the middle of its bounds shows as a point
    Dictionary dictionary{};
    std::vector<Artboard> artboards{}; ///< of the document, at its root; empty for one that is the drawing's page

    bool operator==(const Extras&) const = default;
};

} // namespace easel::model
