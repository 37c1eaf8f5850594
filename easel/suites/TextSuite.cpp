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

bool isText(const model::Node& node) { return node.text() != nullptr; }

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

const model::TextData& textOf(const Art& art) {
    require(isText(art.node));
    return *art.node.text();
}

/// Gives the text what `change` does to it.
template <class Change> void changeText(const Art& art, Change change) {
    model::TextData text = textOf(art);
    require(!text.isRich, kRefusedErr);
    change(text);
    if (text == textOf(art)) return;
    art.document.setText(art.node, std::move(text));
}

void setContents(Art art, std::string_view contents) {
    require(!contents.empty() && isPlainText(contents));
    changeText(art, [&](model::TextData& text) { text.contents = contents; });
}

void setFont(Art art, const AITextFont& font) {
    require(font.name && isPlainText(font.name) && font.size > 0 && std::isfinite(font.size));
    changeText(art, [&](model::TextData& text) {
        text.font = font.name;
        text.size = font.size;
    });
}

void setOrientation(Art art, std::int16_t orientation) {
    require(orientation == kAIHorizontalText || orientation == kAIVerticalText);
    changeText(art, [&](model::TextData& text) { text.orientation = model::Orientation(orientation); });
}

AIRealPoint getAnchor(Art art) {
    const model::Point at = art.node.opaque().placed()(textOf(art).anchor);
    return {at.x, at.y};
}

} // namespace

template <> void fill(AITextFrameSuite& suite) {
    using Suite = AITextFrameSuite;
    enter<&Suite::NewPointText, newPointText>(suite);
    enter<&Suite::GetTextContents>(suite, [](Art art) { return textOf(art).contents.c_str(); });
    enter<&Suite::SetTextContents, setContents>(suite);
    enter<&Suite::GetTextFont>(suite, [](Art art) { return AITextFont{textOf(art).font.c_str(), textOf(art).size}; });
    enter<&Suite::SetTextFont, setFont>(suite);
    enter<&Suite::GetTextJustification>(suite, [](Art art) { return justificationToHost(textOf(art).justification); });
    enter<&Suite::SetTextJustification>(suite, [](Art art, std::int16_t justification) {
        const model::Justification is = justificationFromHost(justification);
        changeText(art, [&](model::TextData& text) { text.justification = is; });
    });
    enter<&Suite::GetTextOrientation>(suite, [](Art art) { return textOf(art).orientation; });
    enter<&Suite::SetTextOrientation, setOrientation>(suite);
    enter<&Suite::GetTextPaint>(suite, [](Art art) { return styleToHost(textOf(art).paint); });
    enter<&Suite::SetTextPaint>(suite, [](Art art, const AIPathStyle& paint) {
        const model::Style is = styleFromHost(paint);
        changeText(art, [&](model::TextData& text) { text.paint = repainted(text.paint, is); });
    });
    enter<&Suite::GetTextAnchor, getAnchor>(suite);
    enter<&Suite::IsTextEditable>(suite, [](Art art) { return !textOf(art).isRich; });
}

} // namespace easel::suites
