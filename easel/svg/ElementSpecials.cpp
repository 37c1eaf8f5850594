// The elements of texts, pictures and uses of symbols: new ones, and those that were read and have changed.
#include <string>

#include "svg/ElementParts.h"
#include "svg/ElementText.h"
#include "svg/Extras.h"
#include "svg/FileError.h"
#include "svg/Reach.h"
#include "svg/Values.h"

namespace easel::svg {

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

} // namespace

// New ones

std::string ElementText::newSpecial(const Node& node, const Place& place) {
    const auto* const image = node.image();
    Tag tag = newTag(node, place, node.text() ? "text" : image ? "image" : "use");
    // Its lengths are the page's, whatever is around it.
    const Geom::Affine placed = isTurned(node) ? placedOf(node) : Geom::Affine::identity();
    const Geom::Affine transform = placed * toPageIn(place).inverse();
    if (!transform.isIdentity(0)) tag.set("transform", transformText(transform));
    const Point moved = isTurned(node) ? Point{} : node.opaque().moved;
    if (node.text()) return newText(node, moved, place, tag);
    if (image) {
        newImage(*image, moved, tag);
    } else {
        if (moved.x != 0) setLength(tag, "x", moved.x);
        if (moved.y != 0) setLength(tag, "y", moved.y);
        changeLink(tag, '#' + node.symbol()->symbol);
    }
    setExtras(tag, node.extras(), {});
    return tag.text() + "/>";
}

std::string ElementText::newText(const Node& node, Point moved, const Place& place, Tag& tag) {
    const model::TextData& text = *node.text();
    requireUsable(text.paint);
    setLength(tag, "x", text.anchor.x + moved.x);
    setLength(tag, "y", text.anchor.y + moved.y);
    if (!text.font.empty()) tag.set("font-family", escaped(text.font));
    setLength(tag, "font-size", text.size);
    tag.set("text-anchor", anchorText(text.justification));
    if (text.orientation == model::Orientation::Vertical) tag.set("writing-mode", kVertical);
    tag.set("xml:space", "preserve");
    setPaint(tag, node, text.paint, source_.containers[place.container]);
    if (!overprintText(text.paint).empty()) setOverprint(tag, text.paint);
    setExtras(tag, node.extras(), {});
    return tag.text() + '>' + escaped(text.contents) + "</" + place.prefix + "text>";
}

void ElementText::newImage(const model::ImageData& image, Point moved, Tag& tag) const {
    setLength(tag, "x", image.place.e + moved.x);
    setLength(tag, "y", image.place.f + moved.y);
    setLength(tag, "width", image.place.a);
    setLength(tag, "height", image.place.d);
    tag.set("preserveAspectRatio", "none");
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
