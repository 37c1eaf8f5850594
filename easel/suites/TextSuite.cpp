// The text frame suite: text that plug-ins make.
#include <algorithm>
#include <cmath>

#include "hostapi/AITextFrameSuite.h"
#include "suites/Enter.h"
#include "suites/Shared.h"

namespace easel::suites {

namespace {

/// Whether the bytes are UTF-8 without control characters, which no drawing can say. Overlong forms, halves of
/// surrogate pairs and what lies beyond the last character are none.
bool isPlainText(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const auto lead = static_cast<unsigned char>(text[at++]);
        const int more = lead < 0x80 ? 0 : lead < 0xC2 ? -1 : lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : lead < 0xF5 ? 3 : -1;
        if (more < 0 || lead < 0x20 || lead == 0x7F) return false;
        std::uint32_t c = more == 0 ? lead : lead & (0x3FU >> more);
        for (int i = 0; i < more; ++i, ++at) {
            if (at == text.size() || (static_cast<unsigned char>(text[at]) & 0xC0) != 0x80) return false;
            c = c << 6 | (static_cast<unsigned char>(text[at]) & 0x3FU);
        }
        if ((more == 2 && c < 0x800) || (more == 3 && (c < 0x10000 || c > 0x10FFFF))) return false;
        if ((c >= 0xD800 && c < 0xE000) || c == 0xFFFE || c == 0xFFFF) return false;
    }
    return true;
}

model::Justification justificationFromHost(std::int16_t justification) {
    switch (justification) {
    case kAILeftJustification: return model::Justification::Left;
    case kAICenterJustification: return model::Justification::Center;
    case kAIRightJustification: return model::Justification::Right;
    default: throw HostError{kBadParameterErr};
    }
}

AIArtHandle newPointText(std::int16_t paintOrder, std::optional<Art> prep, const AIPointText& in) {
    require(in.contents && in.font && *in.contents && isPlainText(in.contents) && isPlainText(in.font));
    require(in.size > 0 && std::isfinite(in.size) && std::isfinite(in.anchor.h) && std::isfinite(in.anchor.v));
    model::TextData text{.contents = in.contents,
                         .font = in.font,
                         .size = in.size,
                         .justification = justificationFromHost(in.justification),
                         .anchor = {in.anchor.h, in.anchor.v},
                         .paint = styleFromHost(in.paint)};
    const Place place = placeFor(paintOrder, prep);
    model::Node& node = place.document.create(model::NodeType::Opaque, place.placement, place.anchor);
    place.document.setText(node, std::move(text));
    return artHandle(place.document, &node);
}

} // namespace

template <> void fill(AITextFrameSuite& suite) { enter<&AITextFrameSuite::NewPointText, newPointText>(suite); }

} // namespace easel::suites
