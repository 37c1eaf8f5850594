// How fill and stroke stand in the host's calls.
#pragma once

#include "core/values/PathStyle.h"
#include "hostapi/AIPathStyleSuite.h"
#include "plugin/host/HostCall.h"

namespace kzo::plugin::host {

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

} // namespace kzo::plugin::host
