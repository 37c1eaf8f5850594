// The text frame suite's calls.
#include "plugin/document/TextFrame.h"

#include <cmath>

#include "hostapi/AITextFrameSuite.h"
#include "plugin/document/Convert.h"
#include "plugin/document/ConvertStyle.h"
#include "plugin/document/ConvertText.h"
#include "plugin/host/HostCall.h"

namespace kzo::plugin {

ArtObject* newPointText(const PointText& text, core::PaintOrder order, ArtObject* prep) {
    if (!host::isWhole(text.contents) || !host::isWhole(text.font)) return nullptr;
    const auto place = host::toHost(text.position);
    const bool isSized = text.size > 0 && std::isfinite(text.size);
    if (!isSized || !std::isfinite(place.h) || !std::isfinite(place.v)) return nullptr;
    const AIPointText record{.contents = text.contents.c_str(),
                             .font = text.font.c_str(),
                             .size = text.size,
                             .justification = host::toHost(text.justification),
                             .paint = host::toHost(text.paint),
                             .anchor = place};
    return host::get<&AITextFrameSuite::NewPointText>(order, prep, &record);
}

} // namespace kzo::plugin
