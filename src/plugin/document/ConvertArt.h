// How kinds of art stand in the host's calls.
#pragma once

#include "core/values/DocumentEnumerations.h"
#include "core/values/DocumentValues.h"
#include "hostapi/AIArtSuite.h"
#include "hostapi/AIMatchingArtSuite.h"
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

} // namespace kzo::plugin::host
