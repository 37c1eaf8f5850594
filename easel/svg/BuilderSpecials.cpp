// Texts, pictures and uses of symbols, and what is drawn where it is referred to.
#include <algorithm>
#include <cmath>
#include <iterator>
#include <set>
#include <utility>

#include "svg/Builder.h"
#include "svg/Extras.h"
#include "svg/Inheritance.h"
#include "svg/Outlines.h"
#include "svg/Specials.h"

namespace easel::svg {

void Builder::startDefinition(std::string_view element, const Attributes& attributes, TagBytes tag) {
    static constexpr std::string_view kKinds[] = {"symbol", "pattern", "linearGradient", "radialGradient", "mask"};
    const bool isOne = std::find(std::begin(kKinds), std::end(kKinds), element) != std::end(kKinds);
    if (!isOne || tag.inEntity || !attributes.has(Name::Id)) return;
    openDefinitions_.emplace_back(depth_, source_->definitions.size());
    source_->definitions.push_back(
        {std::string(attributes.get(Name::Id)), std::string(element), tag.begin, tag.end, tag.end});
}

void Builder::noteUndrawn(std::string_view element, TagBytes tag) {
    static constexpr std::string_view kKinds[] = {"defs",           "style",   "symbol", "clipPath", "linearGradient",
                                                  "radialGradient", "pattern", "mask",   "filter",   "marker"};
    const bool isOne = std::find(std::begin(kKinds), std::end(kKinds), element) != std::end(kKinds);
    if (!isOne || tag.inEntity || undrawnDepth_ > 0 || open_.empty()) return;
    const bool isInLatest = skipped_.open > 0 && skipped_.isLatest;
    const std::size_t around = isInLatest ? source_->elements.size() - 1 : open_.back().element;
    source_->undrawn.push_back({static_cast<std::uint32_t>(around), tag.begin, tag.end});
    undrawnDepth_ = depth_;
}

void Builder::nameSymbols() {
    std::set<std::string_view> symbols;
    for (const Definition& definition : source_->definitions)
        if (definition.kind == "symbol") symbols.insert(definition.id);
    for (auto& [node, use] : uses_)
        if (symbols.count(use.symbol) > 0) document_->setSpecial(*node, std::move(use));
}

void Builder::addSpecial(std::string_view element, model::Node& node, const Attributes& attributes) {
    const bool isUnderstood = latest().reason == Reason::Kind && !latest().wrapped;
    if (element == "image" && isUnderstood)
        document_->setSpecial(node, readImage(attributes, units(attributes), toPage_));
    if (element == "use" && isUnderstood) uses_.emplace_back(&node, readUse(attributes, units(attributes), toPage_));
    if (element != "text") return;
    const TextLook look = textLook(attributes, container().text);
    const double scale = scaleOf(toPage_);
    model::Style paint = styleOf(attributes, container().style, units(attributes));
    readOverprint(paint, attributes);
    paint.changeLengths([&](double& length) { length *= scale; });
    text_ = {&node, readText(attributes, look, units(attributes), paint, toPage_), {}, look.preservesSpace};
    text_.data.isRich = text_.data.isRich || !isUnderstood;
}

void Builder::endText() {
    OpenText text = std::exchange(text_, {});
    if (text.preservesSpace) std::replace(text.contents.begin(), text.contents.end(), '\n', ' ');
    text.data.contents = text.preservesSpace ? std::move(text.contents) : collapsed(text.contents);
    document_->setSpecial(*text.node, std::move(text.data));
}

} // namespace easel::svg
