// The framework's enumerations and bit sets. Their values are our own; plugin/document/Convert.h maps them onto the
// host's.
#pragma once

#include <cstdint>

#include "utils/BitSet.h"

namespace kzo::core {

using utils::operator|;
using utils::operator&;
using utils::operator^;
using utils::operator|=;
using utils::operator^=;
using utils::any;
using utils::bits;

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
    Clipped = 16 ///< only what lies inside a mask shows; cannot be set
};

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

// Tools and keys

enum class ModifierKeys : std::uint32_t { None = 0, Shift = 1, Option = 2, Control = 4, Command = 8 };

enum class ToolOptions : std::int32_t {
    None = 0,
    TrackCursor = 1,      ///< the tool hears of mouse moves with no button down
    BufferedDragging = 32 ///< what a drag changed is taken back before the next drag and before the release
};

/// What the locations of tool messages are drawn to.
enum class ToolSnapping : std::int32_t { None = 0, Art = 1, ArtBounds = 2, Artboard = 4, Grids = 8 };

/// The host's own cursors, by number.
enum class AdobeCursor : unsigned { Pen = 20, Move = 140, PenContinue = 230 };

// Plug-ins

/// What a plug-in asks of the host as a whole. The host has no names for them either; it keeps them and hands them on.
enum class PluginOptions : std::int32_t { None = 0, First = 1, Second = 2 };

// Undo

enum class UndoContext { Standard = 10, Silent = 20, Append = 30 };

// Path style

enum class StrokeCap { Butt = 100, Round = 110, Projecting = 120 };
enum class StrokeJoin { Miter = 100, Round = 110, Bevel = 120 };

} // namespace kzo::core

template <> struct kzo::utils::IsBitSet<kzo::core::ArtAttribute> : std::true_type {};
template <> struct kzo::utils::IsBitSet<kzo::core::HitRequest> : std::true_type {};
template <> struct kzo::utils::IsBitSet<kzo::core::ModifierKeys> : std::true_type {};
template <> struct kzo::utils::IsBitSet<kzo::core::PluginOptions> : std::true_type {};
template <> struct kzo::utils::IsBitSet<kzo::core::ToolOptions> : std::true_type {};
template <> struct kzo::utils::IsBitSet<kzo::core::ToolSnapping> : std::true_type {};
