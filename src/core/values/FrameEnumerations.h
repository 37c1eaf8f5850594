// Enumerations and bit sets of tools, keys, plug-ins and undo. Their values are our own; plugin/frame maps them onto
// the host's.
#pragma once

#include <cstdint>

#include "core/values/BitSets.h"

namespace kzo::core {

// Tools and keys

enum class ModifierKeys : std::uint32_t { None = 0, Shift = 1, Option = 2, Control = 4, Command = 8 };

enum class ToolOptions : std::int32_t {
    None = 0,
    TrackCursor = 1,      ///< the tool hears of mouse moves with no button down
    BufferedDragging = 32 ///< what a drag changed is taken back before the next drag and before the release
};

/// What the locations of tool messages snap to.
enum class ToolSnapping : std::int32_t { None = 0, Art = 1, ArtBounds = 2, Artboard = 4, Grids = 8 };

/// The host's own cursors, by number.
enum class AdobeCursor : unsigned { Pen = 20, Move = 140, PenContinue = 230 };

// Plug-ins

/// Option bits without a meaning of their own; the host stores and returns them.
enum class PluginOptions : std::int32_t { None = 0, First = 1, Second = 2 };

// Undo

enum class UndoContext { Standard = 10, Silent = 20, Append = 30 };

} // namespace kzo::core

template <> struct kzo::utils::IsBitSet<kzo::core::ModifierKeys> : std::true_type {};
template <> struct kzo::utils::IsBitSet<kzo::core::PluginOptions> : std::true_type {};
template <> struct kzo::utils::IsBitSet<kzo::core::ToolOptions> : std::true_type {};
template <> struct kzo::utils::IsBitSet<kzo::core::ToolSnapping> : std::true_type {};
