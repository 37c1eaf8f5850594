// How the enumerations of text stand in the host's calls.
#pragma once

#include "core/values/DocumentValues.h"
#include "hostapi/AITextFrameSuite.h"
#include "plugin/host/HostCall.h"

namespace kzo::plugin::host {

inline constexpr Pair<core::ParagraphJustification> kJustifications[] = {
    {core::ParagraphJustification::Left, kAILeftJustification},
    {core::ParagraphJustification::Center, kAICenterJustification},
    {core::ParagraphJustification::Right, kAIRightJustification},
};
template <>
struct HostForm<core::ParagraphJustification> : Paired<kJustifications, core::ParagraphJustification::Left, -1> {};

} // namespace kzo::plugin::host
