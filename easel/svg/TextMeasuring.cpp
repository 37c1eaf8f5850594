// Texts that were made or changed here are measured by the renderer alone: a drawing of nothing but them costs the same
// whatever else the document holds.
#include "svg/Measuring.h"

#include <array>
#include <map>
#include <string>
#include <tuple>
#include <vector>

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

/// What the extent of a text hangs on, besides where it stands.
using Look = std::tuple<std::string, std::string, double, model::Justification, model::Orientation>;

Look lookOf(const TextData& text) {
    return {text.contents, text.font, text.size, text.justification, text.orientation};
}

/// The text at the origin, upright.
std::string markupOf(const TextData& text, const std::string& id) {
    static constexpr const char* kAnchors[] = {"start", "middle", "end"};
    std::string markup = "<text id=\"" + id + "\" xml:space=\"preserve\" text-anchor=\"";
    markup += kAnchors[static_cast<int>(text.justification)];
    markup += "\" font-size=\"";
    appendNumber(markup, text.size);
    if (!text.font.empty()) {
        markup += "\" font-family=\"";
        appendAsciiEscaped(markup, text.font);
    }
    if (text.orientation == model::Orientation::Vertical) markup += "\" writing-mode=\"vertical-rl";
    markup += "\">";
    appendAsciiEscaped(markup, text.contents);
    return markup + "</text>";
}

/// Their boxes around the origin, as far as the renderer can tell.
std::map<Look, Box> extentsOf(const std::vector<const TextData*>& texts) {
    std::string drawing = "<svg xmlns=\"" + std::string(kSvgNamespace) + "\" viewBox=\"0 0 100 100\">";
    std::vector<std::string> ids;
    for (const TextData* const text : texts) {
        ids.push_back('t' + std::to_string(ids.size()));
        drawing += markupOf(*text, ids.back());
    }
    std::map<Look, Box> extents;
    try {
        const std::vector<Box> boxes = boxesIn(drawing + "</svg>", {100, 100}, ids);
        for (std::size_t i = 0; i < boxes.size(); ++i) extents[lookOf(*texts[i])] = boxes[i];
    } catch (const RenderError&) { // which says so when it is asked for a picture
    }
    return extents;
}

} // namespace

void measureTexts(Document& document, const std::vector<model::NodeId>& guessed) {
    static std::map<Look, Box> known; // a gesture makes the same text again and again
    constexpr std::size_t kMostKnown = 1000;
    std::vector<Node*> nodes;
    std::vector<const TextData*> unknown;
    for (const model::NodeId id : guessed) {
        Node* const node = document.find(id);
        if (!node || !node->text()) continue;
        nodes.push_back(node);
        if (known.count(lookOf(*node->text())) == 0) unknown.push_back(node->text());
    }
    if (!unknown.empty()) {
        if (known.size() > kMostKnown) known.clear();
        known.merge(extentsOf(unknown));
    }
    for (Node* const node : nodes) {
        const TextData& text = *node->text();
        const auto extent = known.find(lookOf(text));
        if (extent == known.end() || extent->second.isEmpty()) continue;
        const std::array<double, 4>& t = text.turned;
        const model::Affine place{t[0], t[1], t[2], t[3], text.anchor.x, text.anchor.y};
        document.setMeasured(node->id(), node->opaque().bounds, transformed(extent->second, place));
    }
}

} // namespace easel::svg
