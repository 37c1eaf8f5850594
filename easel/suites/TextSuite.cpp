// The text frame suite: text that plug-ins make.
#include <utf8.h>

#include <algorithm>
#include <cmath>

#include "hostapi/AITextFrameSuite.h"
#include "suites/Enter.h"
#include "suites/Shared.h"

namespace easel::suites {

bool isPlainText(std::string_view text) {
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; };
    return utf8::is_valid(text) && std::none_of(text.begin(), text.end(), isControl) &&
           text.find("\xEF\xBF\xBE") == text.npos && text.find("\xEF\xBF\xBF") == text.npos;
}

model::Justification justificationFromHost(std::int16_t justification) {
    switch (justification) {
    case kAILeftJustification: return model::Justification::Left;
    case kAICenterJustification: return model::Justification::Center;
    case kAIRightJustification: return model::Justification::Right;
    default: throw HostError{kBadParameterErr};
    }
}

std::int16_t justificationToHost(model::Justification justification) {
    static constexpr std::int16_t kAll[] = {kAILeftJustification, kAICenterJustification, kAIRightJustification};
    return kAll[static_cast<std::size_t>(justification)];
}

bool isText(const model::Node& node) { return node.type() == model::NodeType::Opaque && node.opaque().text; }

namespace {

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
    require(place.parent().mayHold(model::NodeType::Opaque));
    if (text.font.empty()) text.font = place.document.settings.text.font;
    model::Node& node = place.document.create(model::NodeType::Opaque, place.placement, place.anchor);
    place.document.setText(node, std::move(text));
    return artHandle(place.document, &node);
}

} // namespace

template <> void fill(AITextFrameSuite& suite) { enter<&AITextFrameSuite::NewPointText, newPointText>(suite); }

} // namespace easel::suites
