// What of art counts for its bounds, what a transform takes along, and what is taken apart: bit sets.
#pragma once

#include <cstdint>
#include <type_traits>

#include "utils/BitSet.h"

namespace kzo::core {

/// What of the art counts for its bounds, beside the outlines.
enum class BoundsOptions : std::int32_t {
    None = 0,
    Strokes = 1,           ///< and how far strokes reach
    Controls = 2,          ///< and the control points
    ExcludeHidden = 4,     ///< but not what is hidden
    ExcludeUnselected = 8, ///< nor what is not selected
    ExcludeUnpainted = 16  ///< nor what has neither fill nor stroke
};

/// What of the art a transform takes along. Gradients, patterns and masks may belong to the art and always go along.
enum class TransformOptions : std::int32_t {
    None = 0,
    Objects = 1, ///< outlines, and what else makes up the art
    FillGradients = 2,
    FillPatterns = 4,
    StrokePatterns = 8,
    LinkedMasks = 16,
    Children = 32,      ///< of a group, what it holds
    SelectionOnly = 64, ///< of that, only what is selected
    ScaleLines = 128,   ///< stroke widths and dashes
    Patterns = FillPatterns | StrokePatterns,
    AllButPatterns = Objects | FillGradients | LinkedMasks | Children
};

/// What is taken apart, and how; the host does what it can.
enum class ExpandOptions : std::int32_t {
    None = 0,
    PluginArt = 1, ///< into what shows of it
    Text = 2,
    Strokes = 4, ///< into filled paths
    Patterns = 8,
    GradientsToMeshes = 16,
    GradientsToPaths = 32, ///< and meshes
    SymbolInstances = 64,  ///< into copies of what they show
    OneByOne = 128,
    ShowProgress = 256,
    LockedObjects = 512 ///< as well
};

} // namespace kzo::core

template <> struct kzo::utils::IsBitSet<kzo::core::BoundsOptions> : std::true_type {};
template <> struct kzo::utils::IsBitSet<kzo::core::TransformOptions> : std::true_type {};
template <> struct kzo::utils::IsBitSet<kzo::core::ExpandOptions> : std::true_type {};
