// The drawing's page, and the sheet that it is printed on.
#include <cmath>
#include <stdexcept>

#include "model/Flat.h"
#include "svg/Builder.h"
#include "svg/Extras.h"
#include "svg/Reach.h"
#include "svg/Values.h"

namespace easel::svg {

namespace {

using model::Affine;
using model::Document;

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

} // namespace

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
    if (hasBox && !withinReach(model::Box{viewBox[0], viewBox[1], viewBox[0], viewBox[1]})) {
        throw std::range_error("the drawing's page lies too far out");
    }
    document_ = std::make_unique<Document>(width, height);
    measureSheet(*source_, window, attributes, *document_);
    document_->journal().beginUnrecorded();
    toPage_ = attributes.transformInto(hasBox ? Affine{1, 0, 0, 1, -viewBox[0], -viewBox[1]} : Affine{});
    if (isFlat(toPage_)) throw std::range_error("the drawing's transform cannot be inverted");
    source_->transforms.push_back(toPage_);
    source_->containers.push_back({.style = initialStyle(), .units = Units(width, height), .inherited = {}});
    openContainer(insideOf(attributes), nullptr);
    Document::setOrigin(document_->root(), 1);
    if (attributes.has(Name::Data))
        document_->setExtras(document_->root(), {.dictionary = readExtras(attributes).dictionary});
    if (auto artboards = readArtboards(attributes); !artboards.empty()) document_->setArtboards(std::move(artboards));
    document_->settings.units = rulerUnits(attributes.get(Name::Width));
}

} // namespace easel::svg
