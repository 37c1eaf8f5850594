// The elements of texts, pictures and uses of symbols: new ones, and those that were read and have changed.
#include <cmath>
#include <string>

#include "svg/ElementParts.h"
#include "svg/ElementText.h"
#include "svg/Extras.h"
#include "svg/FileError.h"
#include "svg/Outlines.h"
#include "svg/Reach.h"
#include "svg/Values.h"

namespace easel::svg {

using model::Affine;
using model::Node;
using model::Point;
using model::Style;

namespace {

constexpr const char* kVertical = "vertical-rl";

std::string anchorText(model::Justification justification) {
    static constexpr const char* kAnchors[] = {"start", "middle", "end"};
    return kAnchors[static_cast<int>(justification)];
}

void setLength(Tag& tag, const char* name, double value) {
    if (!withinReach(value)) throw UnsavableError("an object beyond 1e9 points cannot be saved");
    std::string number;
    appendNumber(number, value);
    tag.set(name, number);
}

/// From its own units, which begin where it is put, to where it was at first: those of its letters, of a picture as the
/// square from 0 to 1, or of a symbol.
Affine placeAtFirst(const Node& node) {
    if (const model::TextData* const text = node.text())
        return {text->turned[0], text->turned[1], text->turned[2], text->turned[3], text->anchor.x, text->anchor.y};
    return node.image() ? node.image()->place : node.symbol()->place;
}

void setSize(Tag& tag, const model::SymbolData& use) {
    if (!use.size) return;
    setLength(tag, "width", use.size->x);
    setLength(tag, "height", use.size->y);
}

} // namespace

// New ones

std::string ElementText::newSpecial(const Node& node, const Place& place) {
    const auto* const image = node.image();
    Tag tag = newTag(node, place, node.text() ? "text" : image ? "image" : "use");
    Affine lies = placeAtFirst(node);
    Affine placed = node.opaque().placed();
    if (!isTurned(node)) {
        lies.e += placed.e;
        lies.f += placed.f;
        placed = {};
    }
    const bool isUpright = image ? lies.b == 0 && lies.c == 0 && lies.a >= 0 && lies.d >= 0
                                 : Affine{lies.a, lies.b, lies.c, lies.d, 0, 0} == Affine{};
    if (!isUpright) { // which only a transform can say
        const double width = image ? std::hypot(lies.a, lies.b) : 1;
        const double height = image ? std::hypot(lies.c, lies.d) : 1;
        if (width == 0 || height == 0) throw UnsavableError("a picture without any width or height cannot be saved");
        const Affine own{width, 0, 0, height, 0, 0};
        placed = inverse(own) * lies * placed;
        lies = own;
    }
    // Its lengths are the page's, whatever is around it.
    const Affine transform = placed * inverse(toPageIn(place));
    if (!(transform == Affine{})) tag.set("transform", transformText(transform));
    if (node.text()) return newText(node, {lies.e, lies.f}, place, tag);
    if (image) {
        newImage(*image, lies, tag);
    } else {
        if (lies.e != 0) setLength(tag, "x", lies.e);
        if (lies.f != 0) setLength(tag, "y", lies.f);
        setSize(tag, *node.symbol());
        changeLink(tag, '#' + node.symbol()->symbol);
    }
    setExtras(tag, node, {});
    return tag.text() + "/>";
}

std::string ElementText::newText(const Node& node, Point anchor, const Place& place, Tag& tag) {
    const model::TextData& text = *node.text();
    requireUsable(text.paint);
    setLength(tag, "x", anchor.x);
    setLength(tag, "y", anchor.y);
    setPaint(tag, node, text.paint, source_.containers[place.container]);
    if (!text.font.empty()) setProperty(tag, "font-family", escaped(text.font));
    if (!withinReach(text.size)) throw UnsavableError("text of a size beyond 1e9 points cannot be saved");
    std::string size;
    appendNumber(size, text.size);
    setProperty(tag, "font-size", tag.find("style") ? size + "px" : size);
    setProperty(tag, "text-anchor", anchorText(text.justification));
    if (text.orientation == model::Orientation::Vertical) setProperty(tag, "writing-mode", kVertical);
    tag.set("xml:space", "preserve");
    if (!overprintText(text.paint).empty()) setOverprint(tag, text.paint);
    setExtras(tag, node, {});
    return tag.text() + '>' + escaped(text.contents) + "</" + place.prefix + "text>";
}

void ElementText::newImage(const model::ImageData& image, const Affine& place, Tag& tag) const {
    setLength(tag, "x", place.e);
    setLength(tag, "y", place.f);
    if (place.a > 0) setLength(tag, "width", place.a);
    if (place.d > 0) setLength(tag, "height", place.d);
    tag.set("preserveAspectRatio", escaped(image.fit));
    changeLink(tag, image.link);
}

// Those that were read

void ElementText::changeSpecial(Tag& tag, const Node& node, const Element& element) const {
    const model::Special* const was = wasOf(node).special();
    if (const model::TextData* const text = node.text()) {
        const auto* const before = std::get_if<model::TextData>(was);
        const double scale = scaleOf(source_.transforms[element.toPage]);
        if (before && !(*text == *before)) changeText(tag, *text, *before, scale);
    }
    if (const model::ImageData* const image = node.image()) {
        const auto* const before = std::get_if<model::ImageData>(was);
        if (before && image->link != before->link) changeLink(tag, image->link);
    }
    if (const model::SymbolData* const use = node.symbol()) {
        const auto* const before = std::get_if<model::SymbolData>(was);
        if (before && use->symbol != before->symbol) changeLink(tag, '#' + use->symbol);
        if (before && use->size != before->size) setSize(tag, *use);
    }
}

void ElementText::changeText(Tag& tag, const model::TextData& is, const model::TextData& was, double scale) const {
    requireUsable(is.paint);
    std::string size;
    appendNumber(size, is.size / scale);
    if (is.font != was.font) setProperty(tag, "font-family", escaped(is.font.empty() ? "inherit" : is.font));
    if (is.size != was.size) setProperty(tag, "font-size", size);
    if (is.justification != was.justification) setProperty(tag, "text-anchor", anchorText(is.justification));
    const bool isVertical = is.orientation == model::Orientation::Vertical;
    if (is.orientation != was.orientation) setProperty(tag, "writing-mode", isVertical ? kVertical : "horizontal-tb");
    if (is.contents != was.contents) tag.set("xml:space", "preserve");
    if (is.paint == was.paint) return;
    const Style before = inUnits(was.paint, scale);
    for (const auto& [name, value] : properties(inUnits(is.paint, scale), &before)) setProperty(tag, name, value);
    if (overprintText(is.paint) != overprintText(was.paint)) setOverprint(tag, is.paint);
}

/// Old drawings say it in the way of links between documents.
void ElementText::changeLink(Tag& tag, const std::string& link) const {
    if (tag.find("href")) return tag.set("href", escaped(link));
    const std::string old = tag.find({"xlink"}, "href");
    tag.set(old.empty() ? "href" : old, escaped(link));
}

bool ElementText::isRefilled(const Node& node) const {
    const auto* const before = std::get_if<model::TextData>(wasOf(node).special());
    return node.text() && before && node.text()->contents != before->contents;
}

std::string ElementText::refilled(const Node& node, const std::string& startTag) const {
    Tag tag(startTag);
    if (startTag.ends_with("/>")) tag.openUp();
    return tag.text() + escaped(node.text()->contents) + "</" + std::string(tag.name()) + '>';
}

} // namespace easel::svg
