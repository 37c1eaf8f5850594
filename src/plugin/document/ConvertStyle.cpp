// The path style's record.
#include "plugin/document/ConvertStyle.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>

namespace kzo::plugin::host {

/// More than the host has room for, which it refuses.
constexpr std::size_t kMostDashes = std::numeric_limits<std::int16_t>::max();

AIPathStyle HostForm<core::PathStyle>::toHost(const core::PathStyle& style) {
    const core::StrokeStyle& stroke = style.stroke;
    AIPathStyle record{.fillPaint = style.fill.painted,
                       .strokePaint = stroke.painted,
                       .fillOverprint = style.fill.overprint,
                       .strokeOverprint = stroke.overprint,
                       .fillColor = host::toHost(style.fill.color),
                       .strokeColor = host::toHost(stroke.color),
                       .strokeWidth = stroke.width,
                       .miterLimit = stroke.miterLimit,
                       .cap = host::toHost(stroke.cap),
                       .join = host::toHost(stroke.join),
                       .dash = {.length = static_cast<std::int16_t>(std::min(stroke.dash.count, kMostDashes)),
                                .offset = stroke.dash.offset,
                                .array = {}}};
    std::copy(stroke.dash.lengths.begin(), stroke.dash.lengths.end(), record.dash.array);
    return record;
}

core::PathStyle HostForm<core::PathStyle>::fromHost(const AIPathStyle& record) {
    core::PathStyle style;
    style.fill = {host::fromHost<bool>(record.fillPaint), host::fromHost<core::ArtColor>(record.fillColor),
                  host::fromHost<bool>(record.fillOverprint)};
    style.stroke = {.painted = host::fromHost<bool>(record.strokePaint),
                    .color = host::fromHost<core::ArtColor>(record.strokeColor),
                    .width = record.strokeWidth,
                    .miterLimit = record.miterLimit,
                    .cap = host::fromHost<core::StrokeCap>(record.cap),
                    .join = host::fromHost<core::StrokeJoin>(record.join),
                    .dash = {.lengths = {}, .count = 0, .offset = record.dash.offset},
                    .overprint = host::fromHost<bool>(record.strokeOverprint)};
    const int count = std::clamp<int>(record.dash.length, 0, kMaxDashComponents);
    style.stroke.dash.count = static_cast<std::size_t>(count);
    std::copy_n(std::begin(record.dash.array), count, style.stroke.dash.lengths.begin());
    return style;
}

} // namespace kzo::plugin::host
