// Every conversion between our enumerations and records and the host's. The host's y grows downward, as ours does, and
// its bit sets have our values, so that those pass as numbers.
#pragma once

#include <cstdint>

#include "core/values/Enumerations.h"
#include "core/values/PathStyle.h"
#include "hostapi/AIArtSuite.h"
#include "hostapi/AIHitTestSuite.h"
#include "hostapi/AIPathStyleSuite.h"
#include "hostapi/AIUndoSuite.h"

namespace kzo::plugin {

/// One row of a table that pairs our value with the host's.
template <class Ours> struct Pair {
    Ours ours;
    std::int32_t host;
};

inline constexpr Pair<core::ArtType> artTypes[] = {
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

inline constexpr Pair<core::HitType> hitTypes[] = {
    {core::HitType::Anchor, kAIAnchorHit},
    {core::HitType::InControl, kAIInHandleHit},
    {core::HitType::OutControl, kAIOutHandleHit},
    {core::HitType::Segment, kAISegmentHit},
    {core::HitType::Fill, kAIFillHit},
};

inline constexpr Pair<core::StrokeCap> strokeCaps[] = {
    {core::StrokeCap::Butt, kAIButtCap},
    {core::StrokeCap::Round, kAIRoundCap},
    {core::StrokeCap::Projecting, kAIProjectingCap},
};

inline constexpr Pair<core::StrokeJoin> strokeJoins[] = {
    {core::StrokeJoin::Miter, kAIMiterJoin},
    {core::StrokeJoin::Round, kAIRoundJoin},
    {core::StrokeJoin::Bevel, kAIBevelJoin},
};

inline constexpr Pair<core::UndoContext> undoContexts[] = {
    {core::UndoContext::Standard, kAIStandardUndoContext},
    {core::UndoContext::Silent, kAISilentUndoContext},
    {core::UndoContext::Append, kAIAppendUndoContext},
};

/// The host's value, or `otherwise` for a value that is not in the table.
template <class Ours, std::size_t n>
[[nodiscard]] constexpr std::int16_t toHost(const Pair<Ours> (&table)[n], Ours ours, std::int16_t otherwise = 0) {
    for (const Pair<Ours>& row : table)
        if (row.ours == ours) return static_cast<std::int16_t>(row.host);
    return otherwise;
}

template <class Ours, std::size_t n>
[[nodiscard]] constexpr Ours fromHost(const Pair<Ours> (&table)[n], std::int32_t host, Ours otherwise) {
    for (const Pair<Ours>& row : table)
        if (row.host == host) return row.ours;
    return otherwise;
}

/// The host's bits of a plug-in's options lie one higher; others than these two are dropped.
inline constexpr core::PluginOptions pluginOptions = core::PluginOptions::First | core::PluginOptions::Second;
[[nodiscard]] constexpr core::PluginOptions pluginOptionsFromHost(std::int32_t host) {
    return core::PluginOptions(host >> 1) & pluginOptions;
}
[[nodiscard]] constexpr std::int32_t toHost(core::PluginOptions options) { return bits(options & pluginOptions) << 1; }

[[nodiscard]] constexpr std::int16_t toHost(core::ArtType type) { return toHost(artTypes, type); }
[[nodiscard]] constexpr std::int16_t toHost(core::PaintOrder order) { return static_cast<std::int16_t>(order); }

[[nodiscard]] inline AIColor toHost(const core::RgbColor& color) { return {color.red, color.green, color.blue}; }

[[nodiscard]] inline AIPathStyle toHost(const core::PathStyle& style) {
    const core::StrokeStyle& stroke = style.stroke;
    AIPathStyle host{
        .fillPaint = style.fill.painted,
        .strokePaint = stroke.painted,
        .fillColor = toHost(style.fill.color),
        .strokeColor = toHost(stroke.color),
        .strokeWidth = stroke.width,
        .miterLimit = stroke.miterLimit,
        .cap = toHost(strokeCaps, stroke.cap),
        .join = toHost(strokeJoins, stroke.join),
        .dash = {.length = static_cast<std::int16_t>(stroke.dash.count), .offset = stroke.dash.offset, .array = {}}};
    for (std::size_t i = 0; i < stroke.dash.lengths.size(); ++i) host.dash.array[i] = stroke.dash.lengths[i];
    return host;
}

} // namespace kzo::plugin
