// How art is blended with what lies below it, and what else only few objects have.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "model/Clip.h"
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

/// What a group is besides a group: art that a plug-in looks after, of which one group is what is edited and the other
/// what shows; or a mesh, whose patches are paths, row by row from the top.
enum class GroupKind : std::uint8_t { Plain, Plugin, EditArt, Mesh };

/// Something that is drawn where it is referred to by its name: a new one, or other than what was read.
struct Definition {
    std::string kind;
    std::string name;
    std::string attributes; ///< of a new one, besides its name, as they are written
    std::string content;    ///< as it is written

    bool operator==(const Definition&) const = default;
};

/// What fades art by its brightness, of art that got it here: a drawing with the document's page.
struct MaskDrawing {
    std::string attributes; ///< of an element that holds it, as they are written
    std::string content;    ///< as it is written
    Box box;                ///< around all of it
    Affine toArt{};         ///< to where the art was at first, as in OpaqueData

    bool operator==(const MaskDrawing&) const = default;
};

/// The default is that of ordinary art, which stores none.
struct Extras {
    double opacity = 1; ///< 0 to 1
    BlendMode blendMode = BlendMode::Normal;
    Knockout knockout = Knockout::Off;
    bool centerPoint = false; ///< the middle of its bounds shows as a point
    GroupKind groupKind = GroupKind::Plain;
    std::string plugin{};          ///< that looks after it
    std::uint32_t columns = 0;     ///< of a mesh
    std::string mask{};            ///< that fades it, as the drawing refers to it
    Shared<MaskDrawing> ownMask{}; ///< instead of that
    bool maskDisabled = false;
    bool hasOtherClip = false; ///< than the one that it was read with, if it was:
    Shared<Clip> clip{};       ///< this one, or none
    Dictionary dictionary{};
    std::vector<Shared<Definition>> definitions{}; ///< of the document, at its root, as are the next
    std::vector<Artboard> artboards{};             ///< empty for one that is the drawing's page

    [[nodiscard]] bool hasMask() const { return !mask.empty() || ownMask; }
    bool operator==(const Extras&) const = default;
};

} // namespace easel::model
