// Texts that were made or changed here are measured by the renderer alone: a drawing of nothing but them costs the same
// whatever else the document holds.
#include "svg/Measuring.h"

#include <array>
#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "svg/ElementParts.h"
#include "svg/Markup.h"
#include "svg/Names.h"
#include "svg/RenderProcess.h"
#include "svg/Values.h"

namespace easel::svg {

namespace {

using model::Box;
using model::Document;
using model::Node;
using model::TextData;

/// What the extent of a text hangs on, besides where it stands; the first are attributes.
using Look = std::tuple<std::string, std::string, std::string, double, model::Justification, model::Orientation>;

/// What its own element, as it was read, and those around it say of its letters, besides what Easel knows.
std::string lettersOf(const Document& document, const Node& text) {
    static constexpr std::string_view kNames[] = {"font-style", "font-weight", "font-stretch", "font-variant"};
    const auto* const source = dynamic_cast<const Source*>(document.origin.get());
    const auto said = [&](const Node& node, std::string_view name) {
        const std::uint32_t origin = node.copied() ? node.copied()->origin : node.origin();
        if (origin == 0 || source->elements[origin - 1].reason == Reason::Entity) return std::string();
        const Tag tag(source->startTag(source->elements[origin - 1]));
        const std::string_view style = tag.find("style").value_or("");
        const auto declared = declaration(style, name);
        const std::string_view value =
            declared ? style.substr(declared->first, declared->second - declared->first) : tag.find(name).value_or("");
        const bool isPlain = value.find_first_of("&\"<") == value.npos;
        return std::string(isPlain && trimmed(value) != "inherit" ? trimmed(value) : "");
    };
    std::string letters;
    for (const std::string_view name : kNames) {
        std::string value;
        for (const Node* at = source ? &text : nullptr; at && value.empty(); at = at->parent()) value = said(*at, name);
        if (!value.empty()) letters.append(" ").append(name).append("=\"").append(value).append("\"");
    }
    return letters;
}

Look lookOf(const Document& document, const Node& node) {
    const TextData& text = *node.text();
    return {lettersOf(document, node), text.contents, text.font, text.size, text.justification, text.orientation};
}

/// The text at the origin, upright.
std::string markupOf(const Look& look, const std::string& id) {
    static constexpr const char* kAnchors[] = {"start", "middle", "end"};
    const auto& [letters, contents, font, size, justification, orientation] = look;
    std::string markup = "<text id=\"" + id + '"' + letters + " xml:space=\"preserve\" text-anchor=\"";
    markup += kAnchors[static_cast<int>(justification)];
    markup += "\" font-size=\"";
    appendNumber(markup, size);
    if (!font.empty()) {
        markup += "\" font-family=\"";
        appendAsciiEscaped(markup, font);
    }
    if (orientation == model::Orientation::Vertical) markup += "\" writing-mode=\"vertical-rl";
    markup += "\">";
    appendAsciiEscaped(markup, contents);
    return markup + "</text>";
}

/// Their boxes around the origin, as far as the renderer can tell.
std::map<Look, Box> extentsOf(const std::vector<Look>& texts) {
    std::string drawing = "<svg xmlns=\"" + std::string(kSvgNamespace) + "\" viewBox=\"0 0 100 100\">";
    std::vector<std::string> ids;
    for (const Look& look : texts) {
        ids.push_back('t' + std::to_string(ids.size()));
        drawing += markupOf(look, ids.back());
    }
    std::map<Look, Box> extents;
    try {
        const std::vector<Box> boxes = boxesIn(drawing + "</svg>", {100, 100}, ids);
        for (std::size_t i = 0; i < boxes.size(); ++i) extents[texts[i]] = boxes[i];
    } catch (const RenderError&) { // which says so when it is asked for a picture
    }
    return extents;
}

} // namespace

void measureTexts(Document& document, const std::vector<model::NodeId>& guessed) {
    static std::map<Look, Box> known; // a gesture makes the same text again and again
    constexpr std::size_t kMostKnown = 1000;
    if (known.size() > kMostKnown) known.clear();
    std::vector<std::pair<Node*, Look>> texts;
    std::vector<Look> unknown;
    for (const model::NodeId id : guessed) {
        Node* const node = document.find(id);
        if (!node || !node->text()) continue;
        texts.emplace_back(node, lookOf(document, *node));
        if (known.count(texts.back().second) == 0) unknown.push_back(texts.back().second);
    }
    if (!unknown.empty()) known.merge(extentsOf(unknown));
    for (const auto& [node, look] : texts) {
        const auto extent = known.find(look);
        if (extent == known.end() || extent->second.isEmpty()) continue;
        const TextData& text = *node->text();
        const std::array<double, 4>& t = text.turned;
        const model::Affine place{t[0], t[1], t[2], t[3], text.anchor.x, text.anchor.y};
        document.setMeasured(node->id(), node->opaque().bounds, transformed(extent->second, place));
    }
}

} // namespace easel::svg
