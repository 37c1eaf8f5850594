// Elements that become nodes are noted in the source; of all others only their bytes are kept.
#include "svg/Builder.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>
#include <utility>

#include "svg/Extras.h"
#include "svg/FileError.h"
#include "svg/Inheritance.h"
#include "svg/Limits.h"
#include "svg/Markup.h"
#include "svg/Names.h"
#include "svg/Outlines.h"
#include "svg/Reach.h"
#include "svg/Specials.h"

namespace easel::svg {

namespace {

using model::Affine;
using model::Document;
using model::Node;
using model::NodeType;
using model::Placement;

/// The name of an element of SVG; empty for a foreign one. Drawings without any namespace are taken for SVG.
std::string_view svgName(std::string_view name) {
    const std::size_t end = name.find(kNamespaceEnd);
    if (end == std::string_view::npos) return name;
    return name.substr(0, end) == kSvgNamespace ? name.substr(end + 1) : std::string_view{};
}

/// Art that is shown, but not edited.
bool isForeign(std::string_view element) {
    static constexpr std::array<std::string_view, 7> kKinds{"text", "image", "use",   "foreignObject",
                                                            "svg",  "a",     "switch"};
    return std::find(kKinds.begin(), kKinds.end(), element) != kKinds.end();
}

template <class Prefixes> bool has(const Prefixes& prefixes, std::string_view prefix) {
    return std::find(prefixes.begin(), prefixes.end(), prefix) != prefixes.end();
}

} // namespace

// Elements begin and end

void Builder::bindPrefix(std::string_view prefix, std::string_view uri) {
    std::vector<std::string>* const known = uri == kInkscapeNamespace   ? &source_->inkscapePrefixes
                                            : uri == kSodipodiNamespace ? &source_->sodipodiPrefixes
                                            : uri == kEaselNamespace    ? &source_->easelPrefixes
                                                                        : nullptr;
    const bool atRoot = source_->elementCount == 0;
    const bool taken = has(source_->inkscapePrefixes, prefix) || has(source_->sodipodiPrefixes, prefix) ||
                       has(source_->easelPrefixes, prefix);
    if (!atRoot && (known || taken)) source_->prefixesAtRoot = false;
    if (known && !has(*known, prefix)) known->emplace_back(prefix);
}

Builder::Builder(std::shared_ptr<Source> source, Warn warn, const std::vector<std::string>& sheets)
    : source_(std::move(source)), warn_(std::move(warn)) {
    for (const std::string& sheet : sheets) source_->rules.add(sheet);
}

void Builder::startElement(std::string_view name, Attributes attributes, TagBytes tag) {
    if (++source_->elementCount > kMostElements) {
        throw std::length_error("more than " + std::to_string(kMostElements) + " elements");
    }
    if (++depth_ > kDeepestElement) {
        throw std::length_error("elements nest deeper than " + std::to_string(kDeepestElement));
    }
    const std::string_view element = svgName(name);
    if (!source_->rules.isEmpty()) {
        styled_.push_back(
            {std::string(element), std::string(attributes.get(Name::Id)), classesIn(attributes.get(Name::Class))});
        attributes.cascade(source_->rules.declarationsFor(styled_));
    }
    if (element == "style") startSheet();
    clipPaths_.startElement(element, attributes, open_.empty() ? Units{} : container().units);
    startDefinition(element, attributes, tag);
    noteUndrawn(element, tag);
    if (skipped_.open > 0) {
        text_.data.isRich = text_.data.isRich || isInText();
        ++skipped_.open;
        skipped_.deepest = std::max(skipped_.deepest, depth_);
        if (measuring_.node) measureInside(element, attributes);
        return;
    }
    tag_ = tag;
    skipped_.deepest = depth_;
    if (open_.empty()) return startRoot(element, attributes);
    const bool isArt = element == "g" || isShape(element) || isForeign(element);
    try {
        toPage_ = around();
        if (isArt) toPage_ = attributes.transformInto(around());
        if (!isArt) {
            ++skipped_.open;
        } else if (tag.inEntity) {
            addReference(attributes);
        } else if (element == "g") {
            startGroup(attributes);
        } else if (isShape(element)) {
            addShape(element, attributes);
        } else {
            addForeign(element, attributes);
        }
    } catch (const std::range_error& error) { // in a transform or a measure: its geometry is unknown
        warn_(error.what());
        toPage_ = around();
        noteUnmeasured(
            element,
            addOpaque(attributes, dynamic_cast<const UnknownUnit*>(&error) ? Reason::Unit : Reason::Transform, {}));
    }
}

void Builder::endElement(TagBytes tag) {
    clipPaths_.endElement();
    if (!openDefinitions_.empty() && openDefinitions_.back().first == depth_) {
        source_->definitions[openDefinitions_.back().second].end = tag.end;
        openDefinitions_.pop_back();
    }
    if (depth_ == undrawnDepth_) {
        source_->undrawn.back().end = tag.end;
        undrawnDepth_ = 0;
    }
    if (depth_ == sheet_.depth) endSheet();
    if (!styled_.empty()) styled_.pop_back();
    if (skipped_.open > 0) {
        if (measuring_.node) measuring_.transforms.pop_back();
        if (--skipped_.open == 0) {
            if (skipped_.isLatest) latest().end = tag.end;
            endSkipped();
        }
    } else {
        const Open& open = open_.back();
        Element& element = source_->elements[open.element];
        element.end = tag.end;
        element.after = static_cast<std::uint32_t>(source_->elements.size());
        element.height = static_cast<std::uint16_t>(open.deepest - depth_);
        const std::size_t deepest = open.deepest;
        open_.pop_back();
        if (!open_.empty()) open_.back().deepest = std::max(open_.back().deepest, deepest);
    }
    --depth_;
}

// Style sheets

void Builder::startSheet() { // of any type, as for the renderer
    source_->hasStyleSheet = true;
    if (sheet_.depth == 0) sheet_ = {depth_, {}};
}

void Builder::endSheet() {
    const auto has = [&](std::string_view what) { return sheet_.text.find(what) != std::string::npos; };
    const bool isElsewhere = has("@import");
    source_->sheetHasServers = source_->sheetHasServers || isElsewhere || has("url(");
    source_->sheetInsists = source_->sheetInsists || isElsewhere || has("important");
    source_->sheetHasUnread = source_->sheetHasUnread || has("@");
    source_->fontsAreKnown = source_->fontsAreKnown && !isElsewhere && (source_->rules.isUnderstood() || !has("font"));
    sheets_.push_back(std::move(sheet_.text));
    sheet_ = {};
}

void Builder::linkSheet() {
    source_->hasStyleSheet = source_->sheetHasServers = source_->sheetInsists = source_->sheetHasUnread = true;
    source_->fontsAreKnown = false;
}

void Builder::addDefault(std::string_view tagName, std::string_view attribute, std::string_view value) {
    std::string text;
    appendAsciiEscaped(text, value);
    source_->defaults[std::string(tagName)].emplace(attribute, std::move(text)); // the first one counts
}

Units Builder::units(const Attributes& attributes) const {
    Units units = attributes.units(container().units);
    if (!source_->fontsAreKnown) units.forgetFontSize();
    return units;
}

void Builder::endSkipped() {
    if (isInText()) endText();
    open_.back().deepest = std::max(open_.back().deepest, skipped_.deepest);
    if (const Node* const node = std::exchange(measuring_.node, nullptr))
        document_->setMeasured(node->id(), node->opaque().bounds, trusted(measuring_.box));
    if (!std::exchange(skipped_.isLatest, false)) return;
    latest().after = static_cast<std::uint32_t>(source_->elements.size());
    latest().height = static_cast<std::uint16_t>(skipped_.deepest - depth_);
}

std::unique_ptr<Document> Builder::finish() {
    // A fault of ours: elements without an end cannot be written.
    if (!open_.empty()) throw FileError(source_->fileName + ": the ends of some elements were not met");
    nameSymbols();
    document_->journal().end();
    clipPaths_.finish();
    source_->sheetNamesGroups = source_->sheetHasUnread || source_->rules.maySelect("g");
    if (!firstLayerTaken_) newImplicitLayer();
    document_->origin = std::move(source_);
    return std::move(document_);
}

// Parts of what is built

Node& Builder::newLayer(const Attributes& attributes) {
    const std::string_view title = attributes.find(Name::Label).value_or(attributes.get(Name::Id));
    Node& layer = nextLayer(title);
    implicitLayer_ = nullptr; // art that follows lies above this one
    setFlags(layer, attributes);
    return layer;
}

Node& Builder::add(NodeType type, const Attributes& attributes) {
    Node* container = open_.back().node;
    if (!container) container = implicitLayer_ ? implicitLayer_ : &newImplicitLayer();
    Node& node = document_->create(type, Placement::OnTopInside, *container);
    document_->setName(node, attributes.find(Name::Id).value_or(attributes.get(Name::Label)));
    setFlags(node, attributes);
    return node;
}

Node& Builder::nextLayer(std::string_view title) {
    // The document came with one layer.
    Node& layer = firstLayerTaken_ ? document_->addLayer(title) : document_->currentLayer();
    firstLayerTaken_ = true;
    document_->setName(layer, title);
    return layer;
}

Node& Builder::newImplicitLayer() {
    std::string title(kLayerTitle);
    title += std::to_string(source_->implicitLayers.size() + 1);
    implicitLayer_ = &nextLayer(title);
    const model::NodeId id = implicitLayer_->id();
    source_->implicitLayers.emplace(id.slot, Source::ImplicitLayer{id, std::move(title)});
    return *implicitLayer_;
}

void Builder::setFlags(Node& node, const Attributes& attributes) {
    document_->setHidden(node, attributes.property(Name::Display) == "none");
    document_->setLocked(node, attributes.find(Name::Insensitive) == "true");
    document_->setExtras(node, readExtras(attributes));
}

/// Notes where the latest element stands.
void Builder::keep(Node* node) {
    const bool isOpen = !node || isGroup(*node);
    if (!isOpen) {
        Element element;
        element.container = open_.back().container;
        element.toPage = source_->containers[element.container].toPage;
        if (!(toPage_ == around())) {
            element.toPage = static_cast<std::uint32_t>(source_->transforms.size());
            source_->transforms.push_back(toPage_);
        }
        source_->elements.push_back(std::move(element));
    }
    Element& element = latest();
    element.begin = tag_.begin;
    element.tagEnd = tag_.end;
    if (!node) return;
    Document::setOrigin(*node, static_cast<std::uint32_t>(source_->elements.size()));
}

/// Whether the latest element has a transform that comes to nothing.
void Builder::noteTransform(const Attributes& attributes) { latest().voidTransform = attributes.hasVoidTransform(); }

Container Builder::insideOf(const Attributes& attributes) const {
    Container inner = source_->containers[open_.empty() ? 0 : open_.back().container];
    inner.units = attributes.units(inner.units);
    inner.style = styleOf(attributes, inner.style, inner.units);
    inner.text = textLook(attributes, std::move(inner.text));
    inherit(inner.inherited, attributes);
    return inner;
}

void Builder::openContainer(Container inner, Node* node) {
    const std::uint32_t outer = open_.empty() ? 0 : open_.back().container;
    Element element;
    element.container = outer;
    if (!open_.empty()) {
        element.toPage = source_->containers[outer].toPage;
        if (!(toPage_ == around())) {
            element.toPage = static_cast<std::uint32_t>(source_->transforms.size());
            source_->transforms.push_back(toPage_);
        }
    }
    inner.toPage = element.toPage;
    inner.element = static_cast<std::uint32_t>(source_->elements.size());
    element.inner = static_cast<std::uint32_t>(open_.empty() ? 0 : source_->containers.size());
    inner.depth = static_cast<std::uint16_t>(depth_);
    const std::uint32_t index = element.inner;
    if (open_.empty()) {
        source_->containers.front() = std::move(inner);
    } else {
        source_->containers.push_back(std::move(inner));
    }
    source_->elements.push_back(std::move(element));
    open_.push_back({source_->containers[index].element, index, node, depth_});
    if (!node) keep(nullptr);
}

const Container& Builder::container() const { return source_->containers[open_.back().container]; }

const Affine& Builder::around() const { return source_->transforms[container().toPage]; }

} // namespace easel::svg
