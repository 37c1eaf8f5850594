// Groups, shapes, and art that is shown but not edited.
#include <array>
#include <cmath>
#include <stdexcept>
#include <utility>

#include "model/Flat.h"
#include "svg/Builder.h"
#include "svg/Extras.h"
#include "svg/Inheritance.h"
#include "svg/Outlines.h"
#include "svg/Reach.h"
#include "svg/Values.h"

namespace easel::svg {

namespace {

using model::Affine;
using model::Box;
using model::Node;
using model::NodeType;
using model::PathData;
using model::Placement;
using model::Style;

/// Stroke lengths under a transform that need not keep angles: scaled by the root of the area.
Style scaled(Style style, double scale) {
    style.changeLengths([&](double& length) { length *= scale; });
    return style;
}

Box hullOf(const std::vector<PathData>& subpaths) {
    Box hull;
    for (const PathData& subpath : subpaths) hull.include(subpath.hull());
    return hull;
}

/// The box that x, y, width and height tell.
Box boxOf(const Attributes& attributes, const Units& units, const Affine& toPage) {
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
    // A side of a negative length lies on the other side.
    for (const model::Point corner : {model::Point{x, y}, {x + *width, y}, {x, y + *height}, {x + *width, y + *height}})
        box.include(toPage(corner));
    return trusted(box);
}

/// Why a shape cannot be a path of the document; `subpaths` lie on the page.
Reason reasonAgainst(const std::vector<PathData>& subpaths, const Affine& toPage) {
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

} // namespace

void Builder::startGroup(const Attributes& attributes) {
    if (isFlat(toPage_)) {
        addOpaque(attributes, Reason::Singular, {});
        return;
    }
    const bool otherTransform = attributes.transformsInStyle();
    if (otherTransform || !withinReach(toPage_)) {
        Node& node = addOpaque(attributes, otherTransform ? Reason::Transform : Reason::TooFar, {});
        if (otherTransform) noteUnmeasured("g", node);
        latest().wrapped = otherTransform;
        return;
    }
    const bool isLayer = !open_.back().node && attributes.find(Name::GroupMode) == "layer";
    Container inside = insideOf(attributes);
    Node& group = isLayer ? newLayer(attributes) : add(NodeType::Group, attributes);
    openContainer(std::move(inside), &group);
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
    Node& path = addOutlined(attributes, std::move(subpaths), scaled(own, scaleOf(toPage_)));
    keep(&path);
    if (path.type() == NodeType::Compound) {
        latest().inner = static_cast<std::uint32_t>(source_->compounds.size());
        source_->compounds.push_back(path.outlines());
    }
    noteTransform(attributes);
    clipPaths_.putOn(path, attributes, toPage_);
    const std::string_view tag = std::string_view(source_->text).substr(tag_.begin, tag_.end - tag_.begin);
    if (own.servers || source_->sheetHasServers || tag.find("url(") != std::string_view::npos)
        model::Document::setHasOwnUnits(path);
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
    addSpecial(element, node, attributes);
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
    const std::optional<Affine> parent = measuring_.transforms[measuring_.transforms.size() - 2];
    const bool holds = element == "g" || element == "a" || element == "switch";
    if (!parent || !(holds || isShape(element))) return;
    try {
        const Affine transform = attributes.transformInto(*parent);
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

/// Notes art whose bounds can only be guessed here.
void Builder::noteUnmeasured(std::string_view element, const Node& node) {
    if (element == "image" || element == "foreignObject" || isFlat(toPage_)) return;
    source_->unmeasured.push_back(
        {static_cast<std::uint32_t>(source_->elements.size() - 1), node.id(), node.opaque().bounds});
}

} // namespace easel::svg
