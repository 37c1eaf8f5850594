// Clip paths become masks in their own units; each use brings its way there.
#include "svg/ClipPaths.h"

#include <cmath>
#include <stdexcept>
#include <utility>

#include "model/Bounds.h"
#include "model/Document.h"
#include "svg/Outlines.h"
#include "svg/Reach.h"
#include "svg/Values.h"

namespace easel::svg {

namespace {

using model::Affine;
using model::Mask;
using model::PathData;

} // namespace

void ClipPaths::startElement(std::string_view element, const Attributes& attributes, const Units& units) {
    if (depth_ == 0 && element != "clipPath") return;
    if (++depth_ > 2) return;
    if (depth_ == 2) {
        if (isShape(element))
            addShape(element, attributes, inBox_ ? Units(1, 1) : units);
        else if (element == "text" || element == "use")
            understood_ = false;
        return;
    }
    id_ = attributes.get(Name::Id);
    evenOdd_ = attributes.property(Name::ClipRule) == "evenodd";
    understood_ = !attributes.transformsInStyle();
    inBox_ = attributes.get(Name::ClipPathUnits) == "objectBoundingBox";
    try {
        transform_ = attributes.transformInto(Affine{});
    } catch (const std::range_error&) { // a number beyond all numbers
        understood_ = false;
    }
}

void ClipPaths::endElement() {
    if (depth_ == 0 || --depth_ > 0) return;
    std::shared_ptr<const Mask> mask;
    std::vector<Mask::Shape> shapes = std::exchange(shapes_, {});
    if (understood_) mask = std::make_shared<const Mask>(std::move(shapes));
    clipPaths_.emplace(std::move(id_), ClipPath{std::move(mask), inBox_}); // of several with one id the first counts
}

void ClipPaths::addShape(std::string_view element, const Attributes& attributes, const Units& units) {
    if (attributes.property(Name::Display) == "none") return;
    const std::string_view rule = attributes.property(Name::ClipRule);
    Mask::Shape shape{.subpaths = {}, .evenOdd = rule.empty() ? evenOdd_ : rule == "evenodd"};
    try {
        shape.subpaths = shapeOutline(element, attributes, attributes.units(units)).subpaths;
        const Affine transform = attributes.transformInto(transform_);
        for (PathData& subpath : shape.subpaths) {
            transformBy(subpath, transform);
            subpath.closed = true;
            understood_ = understood_ && withinReach(subpath);
        }
    } catch (const std::range_error&) { // a number beyond all numbers
        understood_ = false;
    }
    understood_ = understood_ && !attributes.transformsInStyle();
    shapes_.push_back(std::move(shape));
}

void ClipPaths::putOn(model::Node& node, const Attributes& attributes, const Affine& toPage) {
    const std::string_view id = referredId(attributes.property(Name::ClipPath));
    if (!id.empty()) uses_.push_back({&node, std::string(id), toPage});
}

void ClipPaths::finish() {
    for (const Use& use : uses_) {
        const auto found = clipPaths_.find(use.id);
        if (found == clipPaths_.end() || !found->second.mask) continue;
        if (auto clip = clipFor(use, found->second))
            model::Document::setClip(*use.node, model::Shared(*std::move(clip)));
    }
}

std::optional<model::Clip> ClipPaths::clipFor(const Use& use, const ClipPath& path) {
    Affine toMask = inverse(use.toPage);
    model::Clip clip;
    clip.mask = path.mask;
    clip.fitsBox = path.inBox && use.node->isOutlined();
    if (path.inBox && !clip.fitsBox) {
        const auto fitted = model::toUnitBox(boundsOf(*use.node, {}, toMask));
        if (!fitted) return std::nullopt;
        toMask = toMask * *fitted;
    }
    clip.toMask = {toMask.a, toMask.b, toMask.c, toMask.d, toMask.e, toMask.f};
    return clip;
}

} // namespace easel::svg
