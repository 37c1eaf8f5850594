// Elements that become nodes are noted in the source; of all others only their bytes are kept.
#include "svg/Builder.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>
#include <utility>

#include "svg/Extras.h"
#include "svg/Limits.h"
#include "svg/Markup.h"
#include "svg/Names.h"
#include "svg/Outlines.h"
#include "svg/Values.h"

namespace easel::svg {

namespace {

using model::Box;
using model::Document;
using model::Node;
using model::NodeType;
using model::PathData;
using model::Placement;
using model::Style;

constexpr double kFlat = 1e-12; ///< area under a transform that nothing comes back from

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

/// Stroke lengths under a transform that need not keep angles: scaled by the root of the area.
Style scaled(Style style, double scale) {
    style.changeLengths([&](double& length) { length *= scale; });
    return style;
}

/// Properties that go wrong count as absent.
Style styleOf(const Attributes& attributes, Style style, const Units& units) {
    attributes.forEachProperty([&](Name name, std::string_view value) {
        try {
            applyProperty(style, name, value, units);
        } catch (const std::range_error&) { // as absent
        }
    });
    return style;
}

/// Adds what is passed on to those inside and no style of the model can say.
void inherit(std::vector<std::pair<Name, std::string>>& inherited, Name name, std::string_view value) {
    const auto known =
        std::find_if(inherited.begin(), inherited.end(), [&](const auto& has) { return has.first == name; });
    if (known != inherited.end()) inherited.erase(known);
    if (!value.empty()) inherited.emplace_back(name, value);
}

void inherit(std::vector<std::pair<Name, std::string>>& inherited, const Attributes& attributes) {
    attributes.forEachProperty([&](Name name, std::string_view value) {
        if (value == "inherit") return;
        const bool isPaint = name == Name::Fill || name == Name::Stroke;
        if (isPaint) inherit(inherited, name, value == "none" || color(value) ? "" : value);
        if (name == Name::Marker)
            for (const Name each : {Name::MarkerStart, Name::MarkerMid, Name::MarkerEnd})
                inherit(inherited, each, value == "none" ? "" : value);
        else if (!initialValue(name).empty())
            inherit(inherited, name, value == initialValue(name) ? "" : value);
    });
}

bool isFlat(const Geom::Affine& transform) {
    const double area = std::fabs(transform.det());
    return !(area > kFlat && std::isfinite(area));
}

bool isInReach(const Box& box) { return box.isEmpty() || withinReach(box); }

bool isInReach(const Geom::Affine& transform) {
    bool reaches = true;
    for (unsigned i = 0; i < 6; ++i) reaches = reaches && withinReach(transform[i]);
    return reaches;
}

/// Only where all of it lies where coordinates are trusted.
Box trusted(const Box& box) { return isInReach(box) ? box : Box{}; }

Box hullOf(const std::vector<PathData>& subpaths) {
    Box hull;
    for (const PathData& subpath : subpaths) hull.include(subpath.hull());
    return hull;
}

/// The box that x, y, width and height tell.
Box boxOf(const Attributes& attributes, const Units& units, const Geom::Affine& toPage) {
    const auto get = [&](Name name, Along along) -> std::optional<double> {
        try {
            return units.length(attributes.get(name), along);
        } catch (const UnknownUnit&) {
            return std::nullopt;
        }
    };
    const double x = get(Name::X, Along::X).value_or(0);
    const double y = get(Name::Y, Along::Y).value_or(0);
    const std::optional<double> width = get(Name::Width, Along::X);
    const std::optional<double> height = get(Name::Height, Along::Y);
    Box box;
    if (!width || !height) return box;
    for (const Geom::Point corner : {Geom::Point(x, y), Geom::Point(x + *width, y), Geom::Point(x, y + *height),
                                     Geom::Point(x + *width, y + *height)}) {
        const Geom::Point on = corner * toPage;
        box.include(model::Point{on.x(), on.y()});
    }
    return trusted(box);
}

/// A side of a drawing without a viewBox: what it says itself, or else that of the window.
double sizeIn(const Units& window, const Attributes& attributes, Name name, Along along) {
    const double all = *window.length("100%", along);
    try {
        return attributes.has(name) ? window.length(attributes.get(name), along).value_or(all) : all;
    } catch (const UnknownUnit&) {
        return all;
    }
}

/// Takes the page's size on paper from the root's width and height; one of them implies the other. A percentage of the
/// window is no size.
void measureSheet(Source& source, const Units& window, const Attributes& attributes, const Document& page) {
    const auto points = [&](Name name, Along along) {
        const bool told = attributes.has(name) && attributes.get(name).find('%') == std::string_view::npos;
        const double size = told ? sizeIn(window, attributes, name, along) * 72 / 96 : 0;
        return size > 0 && withinReach(size) ? size : 0;
    };
    source.sheetWidth = points(Name::Width, Along::X);
    source.sheetHeight = points(Name::Height, Along::Y);
    const double ratio = page.width() / page.height();
    if (source.sheetWidth == 0) source.sheetWidth = source.sheetHeight * ratio;
    if (source.sheetHeight == 0) source.sheetHeight = source.sheetWidth / ratio;
}

/// Why a shape cannot be a path of the document; `subpaths` lie on the page.
Reason reasonAgainst(const std::vector<PathData>& subpaths, const Geom::Affine& toPage) {
    if (isFlat(toPage)) return Reason::Singular;
    for (const PathData& subpath : subpaths) {
        if (!withinReach(subpath)) return Reason::TooFar;
        if (subpath.points.size() > kMostAnchors) return Reason::Anchors;
    }
    return Reason::None;
}

/// What SVG has no place for, and the writer puts into attributes of its own or its neighbours: in the element's units.
void applyOwnFeatures(std::vector<PathData>& subpaths, const Attributes& attributes) {
    std::string_view types = attributes.get(Name::NodeTypes);
    const std::optional<std::string_view> text = attributes.find(Name::Ends);
    const std::vector<double> ends = text ? numbers(*text) : std::vector<double>{};
    std::size_t open = 0;
    for (PathData& path : subpaths) {
        const std::size_t count = path.points.size();
        model::PointFlags corners;
        for (std::size_t i = 0; i < std::min(types.size(), count); ++i) corners.push_back(types[i] == 'c');
        path.setCorners(0, corners);
        types.remove_prefix(std::min(types.size(), count + (path.closed ? 1 : 0))); // which has its first one twice
        if (path.closed || count == 0) continue;
        const double* const end = ends.data() + 4 * open++;
        if (ends.size() < 4 * open) continue;
        path.points.front().in = {end[0], end[1]};
        path.points.back().out = {end[2], end[3]};
    }
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
    for (const std::string& sheet : sheets) rules_.add(sheet);
}

void Builder::startElement(std::string_view name, Attributes attributes, TagBytes tag) {
    if (++source_->elementCount > kMostElements) {
        throw std::length_error("more than " + std::to_string(kMostElements) + " elements");
    }
    if (++depth_ > kDeepestElement) {
        throw std::length_error("elements nest deeper than " + std::to_string(kDeepestElement));
    }
    const std::string_view element = svgName(name);
    if (!rules_.isEmpty()) {
        styled_.push_back(
            {std::string(element), std::string(attributes.get(Name::Id)), classesIn(attributes.get(Name::Class))});
        attributes.cascade(rules_.declarationsFor(styled_));
    }
    if (element == "style") startSheet();
    clipPaths_.startElement(element, attributes, open_.empty() ? Units{} : container().units);
    if (skipped_.open > 0) {
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

/// Notes art whose bounds can only be guessed here.
void Builder::noteUnmeasured(std::string_view element, const Node& node) {
    if (element == "image" || element == "foreignObject" || isFlat(toPage_)) return;
    source_->unmeasured.push_back(
        {static_cast<std::uint32_t>(source_->elements.size() - 1), node.id(), node.opaque().bounds});
}

void Builder::endElement(TagBytes tag) {
    clipPaths_.endElement();
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
    fontsAreKnown_ = fontsAreKnown_ && !isElsewhere && (rules_.isUnderstood() || !has("font"));
    sheets_.push_back(std::move(sheet_.text));
    sheet_ = {};
}

void Builder::linkSheet() {
    source_->hasStyleSheet = source_->sheetHasServers = source_->sheetInsists = true;
    fontsAreKnown_ = false;
}

void Builder::addDefault(std::string_view tagName, std::string_view attribute, std::string_view value) {
    std::string text;
    appendAsciiEscaped(text, value);
    source_->defaults[std::string(tagName)].emplace(attribute, std::move(text)); // the first one counts
}

Units Builder::units(const Attributes& attributes) const {
    Units units = attributes.units(container().units);
    if (!fontsAreKnown_) units.forgetFontSize();
    return units;
}

void Builder::endSkipped() {
    open_.back().deepest = std::max(open_.back().deepest, skipped_.deepest);
    if (const Node* const node = std::exchange(measuring_.node, nullptr))
        document_->setMeasured(node->id(), node->opaque().bounds, trusted(measuring_.box));
    if (!std::exchange(skipped_.isLatest, false)) return;
    latest().after = static_cast<std::uint32_t>(source_->elements.size());
    latest().height = static_cast<std::uint16_t>(skipped_.deepest - depth_);
}

std::unique_ptr<Document> Builder::finish() {
    document_->journal().end();
    clipPaths_.finish();
    if (!firstLayerTaken_) newImplicitLayer();
    document_->origin = std::move(source_);
    return std::move(document_);
}

// Elements

void Builder::startRoot(std::string_view element, const Attributes& attributes) {
    if (element != "svg") throw std::runtime_error("not an SVG drawing");
    const std::vector<double> viewBox = numbers(attributes.get(Name::ViewBox));
    const bool hasBox = viewBox.size() == 4;
    // In a window without a size of its own, which is where pictures are drawn as well.
    const Units window = attributes.units(Units{});
    const auto requireUsable = [](double size, const char* name) {
        if (size > 0 && withinReach(size)) return size;
        throw std::range_error("the drawing's " + std::string(name) + " is no usable size");
    };
    const double width =
        requireUsable(hasBox ? viewBox[2] : sizeIn(window, attributes, Name::Width, Along::X), "width");
    const double height =
        requireUsable(hasBox ? viewBox[3] : sizeIn(window, attributes, Name::Height, Along::Y), "height");
    if (hasBox && !isInReach({viewBox[0], viewBox[1], viewBox[0], viewBox[1]})) {
        throw std::range_error("the drawing's page lies too far out");
    }
    document_ = std::make_unique<Document>(width, height);
    measureSheet(*source_, window, attributes, *document_);
    document_->journal().beginUnrecorded();
    toPage_ = attributes.transformInto(hasBox ? Geom::Affine(1, 0, 0, 1, -viewBox[0], -viewBox[1])
                                              : Geom::Affine::identity());
    if (isFlat(toPage_)) throw std::range_error("the drawing's transform cannot be inverted");
    source_->transforms.push_back(toPage_);
    source_->containers.push_back({.style = initialStyle(), .units = Units(width, height), .inherited = {}});
    openContainer(attributes, nullptr);
    Document::setOrigin(document_->root(), 1);
    if (attributes.has(Name::Data))
        document_->setExtras(document_->root(), {.dictionary = readExtras(attributes).dictionary});
    if (auto artboards = readArtboards(attributes); !artboards.empty()) document_->setArtboards(std::move(artboards));
    document_->settings.units = rulerUnits(attributes.get(Name::Width));
}

void Builder::startGroup(const Attributes& attributes) {
    if (isFlat(toPage_)) {
        addOpaque(attributes, Reason::Singular, {});
        return;
    }
    const bool otherTransform = attributes.transformsInStyle();
    if (otherTransform || !isInReach(toPage_)) {
        Node& node = addOpaque(attributes, otherTransform ? Reason::Transform : Reason::TooFar, {});
        if (otherTransform) noteUnmeasured("g", node);
        latest().wrapped = otherTransform;
        return;
    }
    const bool isLayer = !open_.back().node && attributes.find(Name::GroupMode) == "layer";
    Node& group = isLayer ? newLayer(attributes) : add(NodeType::Group, attributes);
    openContainer(attributes, &group);
    keep(&group);
    noteTransform(attributes);
    clipPaths_.putOn(group, attributes, toPage_);
}

void Builder::addShape(std::string_view element, const Attributes& attributes) {
    const Units measured = units(attributes);
    Outline outline = shapeOutline(element, attributes, measured);
    std::vector<PathData>& subpaths = outline.subpaths;
    if (outline.damaged) warn_("the outline is damaged; what comes before that is kept");
    if (subpaths.empty() && element == "path") subpaths.emplace_back(); // a path without points is still one
    if (subpaths.empty()) {                                             // nothing is shown
        ++skipped_.open;
        return;
    }
    if (attributes.has(Name::NodeTypes) || attributes.has(Name::Ends)) applyOwnFeatures(subpaths, attributes);
    for (PathData& subpath : subpaths) {
        anchors_ += subpath.points.size();
        transformBy(subpath, toPage_);
    }
    if (anchors_ > kMostAnchorsInFile)
        throw std::length_error("more than " + std::to_string(kMostAnchorsInFile) + " anchors");
    if (subpaths.size() > 1) subpaths_ += subpaths.size();
    const Reason reason = attributes.transformsInStyle() ? Reason::Transform
                          : subpaths_ > kMostElements    ? Reason::Subpaths
                                                         : reasonAgainst(subpaths, toPage_);
    if (reason != Reason::None) {
        if (reason == Reason::Subpaths) subpaths_ -= subpaths.size(); // a smaller one may still find room
        Node& node = addOpaque(attributes, reason, trusted(hullOf(subpaths)));
        if (reason == Reason::Transform) noteUnmeasured(element, node);
        latest().damaged = outline.damaged;
        latest().wrapped = reason == Reason::Transform;
        return;
    }
    Style own = styleOf(attributes, container().style, measured);
    readOverprint(own, attributes);
    Node& path = addOutlined(attributes, std::move(subpaths), scaled(own, std::sqrt(std::fabs(toPage_.det()))));
    keep(&path);
    if (path.type() == NodeType::Compound) {
        latest().inner = static_cast<std::uint32_t>(source_->compounds.size());
        source_->compounds.push_back(path.outlines());
    }
    noteTransform(attributes);
    clipPaths_.putOn(path, attributes, toPage_);
    latest().damaged = outline.damaged;
    skipped_.isLatest = true;
    ++skipped_.open;
}

void Builder::addForeign(std::string_view element, const Attributes& attributes) {
    const bool isBox = element == "image" || element == "foreignObject" || element == "svg";
    Node& node = addOpaque(attributes, isFlat(toPage_) ? Reason::Singular : Reason::Kind,
                           isBox ? boxOf(attributes, units(attributes), toPage_) : Box{});
    // Renderers disagree on whether a nested drawing may have a transform.
    latest().wrapped = element == "svg" || attributes.transformsInStyle();
    noteUnmeasured(element, node);
    if (element != "a" && element != "switch") return;
    measuring_.node = &node;
    measuring_.box = {};
    measuring_.transforms.assign(1, toPage_);
}

/// All the art of one reference is one piece, for it can only be moved together.
void Builder::addReference(const Attributes& attributes) {
    if (lastReference_ != tag_.begin) {
        noteUnmeasured("", addOpaque(attributes, Reason::Entity, {}));
        latest().end = tag_.end;
        latest().wrapped = true;
        latest().after = static_cast<std::uint32_t>(source_->elements.size());
        skipped_.isLatest = false;
        lastReference_ = tag_.begin;
    } else {
        ++skipped_.open;
    }
}

void Builder::measureInside(std::string_view element, const Attributes& attributes) {
    measuring_.transforms.push_back(std::nullopt);
    const std::optional<Geom::Affine> parent = measuring_.transforms[measuring_.transforms.size() - 2];
    const bool holds = element == "g" || element == "a" || element == "switch";
    if (!parent || !(holds || isShape(element))) return;
    try {
        const Geom::Affine transform = attributes.transformInto(*parent);
        if (holds) {
            measuring_.transforms.back() = transform;
            return;
        }
        Outline outline = shapeOutline(element, attributes, units(attributes));
        for (PathData& subpath : outline.subpaths) transformBy(subpath, transform);
        measuring_.box.include(hullOf(outline.subpaths));
    } catch (const std::range_error&) { // what cannot be measured does not count
    }
}

// Parts of them

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

Node& Builder::addOutlined(const Attributes& attributes, std::vector<PathData> subpaths, const Style& style) {
    const bool isPath = subpaths.size() == 1;
    Node& node = add(isPath ? NodeType::Path : NodeType::Compound, attributes);
    document_->setStyle(node, style); // which subpaths take over
    if (isPath) document_->setPath(node, std::move(subpaths.front()));
    if (isPath) return node;
    for (PathData& subpath : subpaths)
        document_->setPath(document_->create(NodeType::Path, Placement::OnTopInside, node), std::move(subpath));
    return node;
}

Node& Builder::addOpaque(const Attributes& attributes, Reason reason, const Box& bounds) {
    Node& node = add(NodeType::Opaque, attributes);
    document_->setBounds(node, bounds);
    keep(&node);
    noteTransform(attributes);
    latest().reason = reason;
    // Without a transform the mask cannot be placed.
    if (!isFlat(toPage_) && reason != Reason::Transform) clipPaths_.putOn(node, attributes, toPage_);
    skipped_.isLatest = true;
    ++skipped_.open;
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
    source_->implicitLayers.emplace(implicitLayer_->id().slot, std::move(title));
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

void Builder::openContainer(const Attributes& attributes, Node* node) {
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
    Container inner = source_->containers[outer];
    inner.units = attributes.units(inner.units);
    inner.style = styleOf(attributes, inner.style, inner.units);
    inherit(inner.inherited, attributes);
    inner.toPage = element.toPage;
    inner.element = static_cast<std::uint32_t>(source_->elements.size());
    element.inner = static_cast<std::uint32_t>(open_.empty() ? 0 : source_->containers.size());
    inner.depth = static_cast<std::uint16_t>(depth_);
    const std::uint32_t index = element.inner;
    if (open_.empty()) {
        source_->containers.front() = inner;
    } else {
        source_->containers.push_back(inner);
    }
    source_->elements.push_back(std::move(element));
    open_.push_back({inner.element, index, node, depth_});
    if (!node) keep(nullptr);
}

const Container& Builder::container() const { return source_->containers[open_.back().container]; }

const Geom::Affine& Builder::around() const { return source_->transforms[container().toPage]; }

} // namespace easel::svg
