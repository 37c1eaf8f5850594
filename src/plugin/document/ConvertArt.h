// How kinds of art, and options of operations on art, stand in the host's calls.
#pragma once

#include "core/values/ArtOptions.h"
#include "core/values/DocumentEnumerations.h"
#include "core/values/DocumentValues.h"
#include "hostapi/AIArtSuite.h"
#include "hostapi/AIExpandSuite.h"
#include "hostapi/AIMatchingArtSuite.h"
#include "hostapi/AITransformArtSuite.h"
#include "plugin/host/HostCall.h"

namespace kzo::plugin::host {

inline constexpr Pair<core::ArtType> kArtTypes[] = {
    {core::ArtType::Group, kGroupArt},
    {core::ArtType::Path, kPathArt},
    {core::ArtType::CompoundPath, kCompoundPathArt},
    {core::ArtType::Placed, kPlacedArt},
    {core::ArtType::Raster, kRasterArt},
    {core::ArtType::PluginGroup, kPluginGroupArt},
    {core::ArtType::Mesh, kMeshArt},
    {core::ArtType::TextFrame, kTextFrameArt},
    {core::ArtType::Symbol, kSymbolArt},
    {core::ArtType::ForeignObject, kForeignArt},
    {core::ArtType::LegacyText, kLegacyTextArt},
};
template <> struct HostForm<core::ArtType> : Paired<kArtTypes, core::ArtType::Unknown> {};
template <> struct HostForm<core::MatchArtSpec> {
    static AIMatchingArtSpec toHost(const core::MatchArtSpec& kind) {
        const auto type = kind.type == core::MatchArtType::Any
                              ? std::int16_t{kAnyArt}
                              : host::toHost(core::ArtType(static_cast<int>(kind.type)));
        return {type, bits(kind.which), bits(kind.attributes)};
    }
};

/// For bit sets with a table: bits that are not in it are left out.
template <const auto& kTable> struct PairedBits {
    using Ours = std::decay_t<decltype(kTable[0].ours)>;
    static constexpr std::int32_t toHost(Ours set) {
        std::int32_t bits = 0;
        for (const Pair<Ours>& row : kTable)
            if (any(set & row.ours)) bits |= row.host;
        return bits;
    }
    static constexpr Ours fromHost(std::int32_t bits) {
        Ours set{};
        for (const Pair<Ours>& row : kTable)
            if ((bits & row.host) != 0) set |= row.ours;
        return set;
    }
};

inline constexpr Pair<core::BoundsOptions> kBoundsOptions[] = {
    {core::BoundsOptions::Strokes, kStrokeBounds},
    {core::BoundsOptions::Controls, kControlBounds},
    {core::BoundsOptions::ExcludeHidden, kExcludeHiddenBounds},
    {core::BoundsOptions::ExcludeUnselected, kExcludeUnselectedBounds},
    {core::BoundsOptions::ExcludeUnpainted, kExcludeUnpaintedBounds},
};
template <> struct HostForm<core::BoundsOptions> : PairedBits<kBoundsOptions> {};

inline constexpr Pair<core::TransformOptions> kTransformOptions[] = {
    {core::TransformOptions::Objects, kTransformObjects},
    {core::TransformOptions::FillGradients, kTransformFillGradients},
    {core::TransformOptions::FillPatterns, kTransformFillPatterns},
    {core::TransformOptions::StrokePatterns, kTransformStrokePatterns},
    {core::TransformOptions::LinkedMasks, kTransformLinkedMasks},
    {core::TransformOptions::Children, kTransformChildren},
    {core::TransformOptions::SelectionOnly, kTransformSelectionOnly},
    {core::TransformOptions::ScaleLines, kScaleLines},
};
template <> struct HostForm<core::TransformOptions> : PairedBits<kTransformOptions> {};

inline constexpr Pair<core::ExpandOptions> kExpandOptions[] = {
    {core::ExpandOptions::PluginArt, kExpandPluginArt},
    {core::ExpandOptions::Text, kExpandText},
    {core::ExpandOptions::Strokes, kExpandStroke},
    {core::ExpandOptions::Patterns, kExpandPattern},
    {core::ExpandOptions::GradientsToMeshes, kExpandGradientToMesh},
    {core::ExpandOptions::GradientsToPaths, kExpandGradientToPaths},
    {core::ExpandOptions::SymbolInstances, kExpandSymbolInstances},
    {core::ExpandOptions::OneByOne, kExpandOneByOne},
    {core::ExpandOptions::ShowProgress, kExpandShowProgress},
    {core::ExpandOptions::LockedObjects, kExpandLocked},
};
template <> struct HostForm<core::ExpandOptions> : PairedBits<kExpandOptions> {};

} // namespace kzo::plugin::host
