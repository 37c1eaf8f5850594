// The path style's record.
#include "plugin/document/Convert.h"

#include <algorithm>

namespace kzo::plugin::host {

AIPathStyle HostForm<core::PathStyle>::toHost(const core::PathStyle& style) {
    const core::StrokeStyle& stroke = style.stroke;
    AIPathStyle record{
        .fillPaint = style.fill.painted,
        .strokePaint = stroke.painted,
        .fillColor = host::toHost(style.fill.color),
        .strokeColor = host::toHost(stroke.color),
        .strokeWidth = stroke.width,
        .miterLimit = stroke.miterLimit,
        .cap = host::toHost(stroke.cap),
        .join = host::toHost(stroke.join),
        .dash = {.length = static_cast<std::int16_t>(stroke.dash.count), .offset = stroke.dash.offset, .array = {}}};
    std::copy(stroke.dash.lengths.begin(), stroke.dash.lengths.end(), record.dash.array);
    return record;
}

} // namespace kzo::plugin::host
