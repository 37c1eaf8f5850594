// Enumerations and bit sets of art, hit tests and styles. Their values are our own; plugin/document/Convert*.h map them
// onto the host's.
#pragma once

#include <cstdint>

#include "core/values/BitSets.h"

namespace kzo::core {

// Art

enum class ArtType {
    Unknown = 0,
    Group = 100,
    Path = 110,
    CompoundPath = 120,
    Placed = 200,
    Raster = 300,
    PluginGroup = 310,
    Mesh = 320,
    TextFrame = 330,
    Symbol = 340,
    ForeignObject = 350,
    LegacyText = 360
};

/// Where new or moved art goes, seen from the prepositional art.
enum class PaintOrder { Above = 1, Below = 2, InsideOnTop = 3, InsideOnBottom = 4, AboveAll = 5, BelowAll = 6 };

enum class ArtAttribute : std::int32_t {
    Selected = 1,
    Locked = 2,
    Hidden = 4,
    FullySelected = 8,
    Clipped = 16, ///< only what lies inside a mask shows; cannot be set
    All = 31
};

/// Points of an object's bounds by which it is placed, turned or scaled.
enum class BoundsPinPointType {
    TopLeft = 10,
    TopCenter = 20,
    TopRight = 30,
    MidLeft = 40,
    MidCenter = 50,
    MidRight = 60,
    BottomLeft = 70,
    BottomCenter = 80,
    BottomRight = 90
};

/// What art is looked for; the kinds are those of ArtType.
enum class MatchArtType {
    Any = -1, ///< but the groups of layers
    Group = 100,
    Path = 110,
    CompoundPath = 120,
    Placed = 200,
    Raster = 300,
    PluginGroup = 310,
    Mesh = 320,
    TextFrame = 330,
    Symbol = 340,
    ForeignObject = 350,
    LegacyText = 360
};

// Blending; these have the host's numbers

enum class BlendMode {
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
enum class BlendKnockout { Off, On, Inherit };

// Documents; these have the host's numbers

enum class DocumentColorModel { Gray = 0, RGB = 1, CMYK = 2 };
enum class RulerUnits { Inches = 0, Centimeters = 1, Points = 2, Picas = 3, Millimeters = 4, Pixels = 6 };

// Hit tests

/// What to look for.
enum class HitRequest : std::int32_t {
    Anchors = 1,
    InControls = 2,
    OutControls = 4,
    Segments = 8,
    Fills = 16,
    Guides = 65536,
    SegPointParts = 7,
    AnchorsAndSegments = 9,
    Everything = -1,
    EverythingButGuides = -65537
};

/// What was found.
enum class HitType { None = 0, Anchor = 10, InControl = 20, OutControl = 30, Segment = 40, Fill = 50 };

// Paths

/// What of an anchor is selected; a control point, when the segment on its side is.
enum class SegPointSelectionState : std::int16_t { None = 0, InControl = 2, OutControl = 4, Anchor = 8 };

/// Which way from a hit a path is trimmed.
enum class TrimDirectionType : std::int32_t { None = 0, TowardsStart = 1, TowardsEnd = 2 };

/// As seen on screen. None: the path encloses nothing, or as much one way round as the other.
enum class WindingOrderType { None = 0, Clockwise = 10, CounterClockwise = 20 };

/// Where the stroke of a closed path lies.
enum class StrokeAlignment { Center = 10, Inside = 20, Outside = 30 };

// Text

enum class ParagraphJustification { Left = 10, Center = 20, Right = 30 };
enum class TextOrientation { None = 0, Horizontal = 10, Vertical = 20 }; ///< none: of what is no text

// Path style

enum class StrokeCap { Butt = 110, Round = 120, Projecting = 130 };
enum class StrokeJoin { Miter = 110, Round = 120, Bevel = 130 };

} // namespace kzo::core

template <> struct kzo::utils::IsBitSet<kzo::core::ArtAttribute> : std::true_type {};
template <> struct kzo::utils::IsBitSet<kzo::core::HitRequest> : std::true_type {};
template <> struct kzo::utils::IsBitSet<kzo::core::SegPointSelectionState> : std::true_type {};
template <> struct kzo::utils::IsBitSet<kzo::core::TrimDirectionType> : std::true_type {};
