// How the document's values, enumerations and records stand in the host's calls. The host's y grows downward, as ours
// does, so nothing is flipped.
#pragma once

#include "core/values/ArtboardPoint.h"
#include "core/values/ArtboardRect.h"
#include "core/values/ArtboardSegPoint.h"
#include "core/values/DocumentEnumerations.h"
#include "core/values/DocumentValues.h"
#include "core/values/PathStyle.h"
#include "geo/TransformMatrix.h"
#include "hostapi/AIArtStyleSuite.h"
#include "hostapi/AIArtSuite.h"
#include "hostapi/AIDocumentSuite.h"
#include "hostapi/AIHitTestSuite.h"
#include "hostapi/AIMatchingArtSuite.h"
#include "hostapi/AIPathStyleSuite.h"
#include "hostapi/AIPathSuite.h"
#include "hostapi/AITextFrameSuite.h"
#include "hostapi/AITransformArtSuite.h"
#include "plugin/host/HostCall.h"
#include "plugin/values/ArtboardPoint.h"
#include "plugin/values/ArtboardRect.h"
#include "plugin/values/PathSegPoint.h"

namespace kzo::plugin::host {

// Values

template <> struct HostForm<core::ArtboardPoint> {
    static AIRealPoint toHost(const core::ArtboardPoint& point) { return point.impl().toAIRealPoint(); }
    static core::ArtboardPoint fromHost(const AIRealPoint& point) { return core::ArtboardPoint(ArtboardPoint(point)); }
};
template <> struct HostForm<core::ArtboardRect> {
    static AIRealRect toHost(const core::ArtboardRect& rect) { return rect.impl().toAIRealRect(); }
    static core::ArtboardRect fromHost(const AIRealRect& rect) { return core::ArtboardRect(ArtboardRect(rect)); }
};
template <> struct HostForm<core::ArtboardSegPoint> {
    static AIPathSegment toHost(const core::ArtboardSegPoint& point) { return point.impl().toAIPathSegment(); }
    static core::ArtboardSegPoint fromHost(const AIPathSegment& record) {
        return core::ArtboardSegPoint(PathSegPoint(record));
    }
};

template <> struct HostForm<geo::TransformMatrix> {
    static AIRealMatrix toHost(const geo::TransformMatrix& m) { return {m.a, m.b, m.c, m.d, m.tx, m.ty}; }
};

// Art

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
template <> struct HostForm<core::PaintOrder> : SameNumbers<core::PaintOrder> {};

// Hit tests

inline constexpr Pair<core::HitType> kHitTypes[] = {
    {core::HitType::Anchor, kAIAnchorHit},
    {core::HitType::InControl, kAIInHandleHit},
    {core::HitType::OutControl, kAIOutHandleHit},
    {core::HitType::Segment, kAISegmentHit},
    {core::HitType::Fill, kAIFillHit},
};
template <> struct HostForm<core::HitType> : Paired<kHitTypes, core::HitType::None> {};

// Styles

inline constexpr Pair<core::StrokeCap> kStrokeCaps[] = {
    {core::StrokeCap::Butt, kAIButtCap},
    {core::StrokeCap::Round, kAIRoundCap},
    {core::StrokeCap::Projecting, kAIProjectingCap},
};
template <> struct HostForm<core::StrokeCap> : Paired<kStrokeCaps, core::StrokeCap::Butt> {};

inline constexpr Pair<core::StrokeJoin> kStrokeJoins[] = {
    {core::StrokeJoin::Miter, kAIMiterJoin},
    {core::StrokeJoin::Round, kAIRoundJoin},
    {core::StrokeJoin::Bevel, kAIBevelJoin},
};
template <> struct HostForm<core::StrokeJoin> : Paired<kStrokeJoins, core::StrokeJoin::Miter> {};

template <> struct HostForm<core::ArtColor> {
    static AIColor toHost(const core::ArtColor& color) { return {color.red, color.green, color.blue}; }
    static core::ArtColor fromHost(const AIColor& color) { return {color.red, color.green, color.blue}; }
};
template <> struct HostForm<core::PathStyle> {
    static AIPathStyle toHost(const core::PathStyle& style);
    static core::PathStyle fromHost(const AIPathStyle& record);
};

inline constexpr Pair<core::StrokeAlignment> kStrokeAlignments[] = {
    {core::StrokeAlignment::Center, kAICenterStroke},
    {core::StrokeAlignment::Inside, kAIInsideStroke},
    {core::StrokeAlignment::Outside, kAIOutsideStroke},
};
template <> struct HostForm<core::StrokeAlignment> : Paired<kStrokeAlignments, core::StrokeAlignment::Center, -1> {};

template <> struct HostForm<core::BlendMode> : SameNumbers<core::BlendMode> {};
template <> struct HostForm<core::BlendKnockout> : SameNumbers<core::BlendKnockout> {};
template <> struct HostForm<core::ArtStyle> {
    static AIArtStyle toHost(const core::ArtStyle& style) {
        return {host::toHost(style.paint), style.opacity, host::toHost(style.blendMode), host::toHost(style.knockout)};
    }
    static core::ArtStyle fromHost(const AIArtStyle& record) {
        return {host::fromHost<core::PathStyle>(record.paint), record.opacity, core::BlendMode(record.blendingMode),
                core::BlendKnockout(record.knockout)};
    }
};

// Documents

template <> struct HostForm<core::DocumentColorModel> : SameNumbers<core::DocumentColorModel> {};
template <> struct HostForm<core::RulerUnits> : SameNumbers<core::RulerUnits> {};
template <> struct HostForm<core::DocumentSetup> {
    static core::DocumentSetup fromHost(const AIDocumentSetup& record) { return {record.width, record.height}; }
};
template <> struct HostForm<core::Grid> {
    static AIGrid toHost(const core::Grid& grid) { return {grid.spacing, grid.subdivisions, grid.visible, grid.snaps}; }
    static core::Grid fromHost(const AIGrid& record) {
        return {record.spacing, record.subdivisions, record.visible != 0, record.snaps != 0};
    }
};
template <> struct HostForm<core::MatchArtSpec> {
    static AIMatchingArtSpec toHost(const core::MatchArtSpec& kind) {
        const auto type = kind.type == core::MatchArtType::Any
                              ? std::int16_t{kAnyArt}
                              : host::toHost(core::ArtType(static_cast<int>(kind.type)));
        return {type, bits(kind.which), bits(kind.attributes)};
    }
};

// Text

inline constexpr Pair<core::ParagraphJustification> kJustifications[] = {
    {core::ParagraphJustification::Left, kAILeftJustification},
    {core::ParagraphJustification::Center, kAICenterJustification},
    {core::ParagraphJustification::Right, kAIRightJustification},
};
template <>
struct HostForm<core::ParagraphJustification> : Paired<kJustifications, core::ParagraphJustification::Left, -1> {};
template <> struct HostForm<core::TextStyle> {
    /// Its font's name must live as long as the record.
    static AITextStyle toHost(const core::TextStyle& style) {
        return {style.font.name.c_str(), style.font.size, host::toHost(style.justification)};
    }
    static core::TextStyle fromHost(const AITextStyle& record) {
        return {{record.font ? record.font : "", record.size},
                host::fromHost<core::ParagraphJustification>(record.justification)};
    }
};

} // namespace kzo::plugin::host
