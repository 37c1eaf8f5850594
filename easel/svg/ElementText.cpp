// Attributes that say what has changed are replaced where they stand; whatever else is in a start tag keeps its bytes.
#include "svg/ElementText.h"

#include <2geom/transforms.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "svg/FileError.h"
#include "svg/Limits.h"
#include "svg/Names.h"
#include "svg/Outlines.h"
#include "svg/Values.h"

namespace easel::svg {

namespace {

using model::Node;
using model::NodeType;
using model::PathData;
using model::PathPoint;
using model::Point;
using model::Style;

bool isUsable(double value) { return std::fabs(value) <= kFarthestCoordinate; }

void requireInReach(const PathData& path) {
    for (const PathPoint& point : path.points) {
        for (const Point& at : {point.anchor, point.in, point.out}) {
            if (!isUsable(at.x) || !isUsable(at.y)) {
                throw FileError("a path that reaches beyond 1e9 points cannot be saved");
            }
        }
    }
}

void requireUsable(const Style& style) {
    bool usable = isUsable(style.strokeWidth) && isUsable(style.miterLimit) && isUsable(style.dashOffset);
    for (const double dash : style.dashes) usable = usable && isUsable(dash);
    for (const model::Color& color : {style.fillColor, style.strokeColor}) {
        for (const double channel : {color.red, color.green, color.blue}) usable = usable && std::isfinite(channel);
    }
    if (!usable) throw FileError("a stroke with lengths beyond 1e9 points cannot be saved");
}

double scaleOf(const Geom::Affine& transform) { return std::sqrt(std::fabs(transform.det())); }

/// A style for lengths in the units of an element.
Style inUnits(Style style, double scale) {
    style.strokeWidth /= scale;
    style.dashOffset /= scale;
    for (double& dash : style.dashes) dash /= scale;
    return style;
}

PathData inUnits(PathData path, const Geom::Affine& toPage) {
    requireInReach(path);
    transformBy(path, toPage.inverse());
    return path;
}

/// Names can be ids when XML takes them for such.
bool canBeId(std::string_view name) {
    const auto startsName = [](unsigned char c) {
        return c == '_' || c >= 0x80 || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    };
    const auto inName = [&](unsigned char c) {
        return startsName(c) || c == '-' || c == '.' || (c >= '0' && c <= '9');
    };
    return !name.empty() && startsName(static_cast<unsigned char>(name.front())) &&
           std::all_of(name.begin(), name.end(), inName);
}

/// Where the value of a declaration stands in a style attribute, as far as it can be told without resolving references.
std::optional<std::pair<std::size_t, std::size_t>> declaration(std::string_view style, std::string_view name) {
    std::optional<std::pair<std::size_t, std::size_t>> last;
    for (std::size_t at = 0; at < style.size();) {
        const std::size_t end = std::min(style.find(';', at), style.size());
        const std::size_t start = std::min(style.find_first_not_of(kSpace, at), end);
        std::size_t colon = start + name.size();
        if (style.substr(start, end - start).substr(0, name.size()) == name) {
            while (colon < end && kSpace.find(style[colon]) != std::string_view::npos) ++colon;
            if (colon < end && style[colon] == ':') last = {colon + 1, end};
        }
        at = end + 1;
    }
    if (last && style.substr(last->first, last->second - last->first).find('&') != std::string_view::npos) return {};
    return last;
}

std::string transformText(const Geom::Affine& transform) {
    constexpr double almost = 1e-12;
    const bool moves = std::fabs(transform[0] - 1) < almost && std::fabs(transform[1]) < almost &&
                       std::fabs(transform[2]) < almost && std::fabs(transform[3] - 1) < almost;
    std::string text = moves ? "translate(" : "matrix(";
    for (unsigned i = moves ? 4 : 0; i < 6; ++i) {
        if (!isUsable(transform[i])) throw FileError("an object beyond 1e9 points cannot be saved");
        appendNumber(text, transform[i]);
        text += i < 5 ? ' ' : ')';
    }
    return text;
}

void prefixTransform(Tag& tag, const Geom::Affine& transform) {
    const std::string_view old = tag.find("transform").value_or("");
    tag.set("transform", transformText(transform) + (old.empty() ? "" : ' ' + std::string(old)));
}

std::string_view localName(std::string_view name) {
    const std::size_t colon = name.find(':');
    return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

} // namespace

// New elements

std::string ElementText::newTag(const Node& node, const Place& place) {
    const Container& container = source_.containers[place.container];
    const Geom::Affine& toPage = source_.transforms[container.toPage];
    Tag tag('<' + place.prefix + (node.isContainer() ? "g" : "path"));
    if (node.type() == NodeType::Layer) {
        setForeign(tag, source_.inkscapePrefixes, "inkscape", kInkscapeNamespace, "groupmode", "layer");
        setForeign(tag, source_.inkscapePrefixes, "inkscape", kInkscapeNamespace, "label", node.name());
    } else if (!node.name().empty()) {
        setName(tag, node);
    }
    if (node.hidden()) tag.set("style", "display:none");
    if (node.locked()) {
        setForeign(tag, source_.sodipodiPrefixes, "sodipodi", kSodipodiNamespace, "insensitive", "true");
    }
    if (node.type() != NodeType::Path) return tag.text();
    requireUsable(node.style());
    const PathData outline = inUnits(node.path(), toPage);
    tag.set("d", pathData(outline));
    setOwnFeatures(tag, outline);
    const Style style = inUnits(node.style(), scaleOf(toPage));
    for (auto& [name, value] : properties(style, container.plain ? &container.style : nullptr)) tag.set(name, value);
    if (container.plain) return tag.text();
    for (const char* const name : {"fill-opacity", "stroke-opacity"}) tag.set(name, "1");
    tag.set("marker", "none");
    tag.set("visibility", "visible");
    return tag.text();
}

// Changed elements

bool ElementText::isChanged(const Node& node, const Element& element, const Place& place) const {
    return node.content() != document_.original(node) || element.container != place.container;
}

std::string ElementText::startTag(const Node& node, const Element& element, const Place& place) {
    const std::string_view text = source_.startTag(element);
    if (!isChanged(node, element, place)) return std::string(text);
    Tag tag(text);
    change(tag, node, element, place);
    return tag.text();
}

void ElementText::change(Tag& tag, const Node& node, const Element& element, const Place& place) {
    const model::Content& is = node.content();
    const model::Content& was = document_.original(node);
    if (is.name != was.name) setName(tag, node);
    if (is.hidden != was.hidden) setProperty(tag, "display", node.hidden() ? "none" : "inline");
    if (is.locked != was.locked) {
        const std::string name = tag.find(source_.sodipodiPrefixes, "insensitive");
        if (!node.locked() && !name.empty()) {
            tag.remove(name);
        } else {
            setForeign(tag, source_.sodipodiPrefixes, "sodipodi", kSodipodiNamespace, "insensitive",
                       node.locked() ? "true" : "false");
        }
    }
    const std::optional<Geom::Affine> displaced = displacement(node, element, place);
    const bool outlineMoves = displaced && element.container == place.container;
    if (is.path != was.path && !outlineMoves) changeOutline(tag, node, element);
    if (is.style != was.style) {
        requireUsable(node.style());
        const double scale = scaleOf(source_.transforms[element.toPage]);
        const Style before = inUnits(*was.style, scale);
        for (const auto& [name, value] : properties(inUnits(*is.style, scale), &before)) setProperty(tag, name, value);
    }
    if (displaced) prefixTransform(tag, *displaced);
    if (element.container == place.container) return;
    // What it inherited where it was, unless it says so itself.
    const Style& here = source_.containers[place.container].style;
    for (const auto& [name, value] : properties(source_.containers[element.container].style, &here)) {
        if (!tag.find(name) && !declaration(tag.find("style").value_or(""), name)) setProperty(tag, name, value);
    }
}

/// The transform that is to be put before the element's own. Besides opaque art it moves what would not follow its
/// outline or would lose something by writing that anew: basic shapes, paint and clips that lie in the element's own
/// space, data that is damaged.
std::optional<Geom::Affine> ElementText::displacement(const Node& node, const Element& element,
                                                      const Place& place) const {
    const Geom::Affine& from = source_.transforms[source_.containers[element.container].toPage];
    const Geom::Affine& to = source_.transforms[source_.containers[place.container].toPage];
    Point move;
    if (node.type() == NodeType::Opaque) {
        move = node.opaque().moved;
    } else if (node.type() == NodeType::Path && element.container == place.container &&
               node.content().path != document_.original(node).path) {
        const std::string_view tag = source_.startTag(element);
        const bool byTransform = localName(source_.tagName(element)) != "path" || element.damaged ||
                                 tag.find("url(") != std::string_view::npos ||
                                 tag.find("sodipodi:type") != std::string_view::npos;
        if (!byTransform) return std::nullopt;
        const std::optional<Point> common = commonMove(*document_.original(node).path, node.path());
        if (!common) return std::nullopt;
        requireInReach(node.path());
        move = *common;
    }
    if (move == Point{} && from == to) return std::nullopt;
    if (from == to) { // in these units, without rounding what is nought
        const Geom::Affine back = to.withoutTranslation().inverse();
        return Geom::Affine(Geom::Translate(Geom::Point(move.x, move.y) * back));
    }
    return from * Geom::Affine(Geom::Translate(move.x, move.y)) * to.inverse();
}

void ElementText::changeOutline(Tag& tag, const Node& node, const Element& element) const {
    static constexpr std::string_view measures[] = {"x",  "y", "width", "height", "rx", "ry", "cx",
                                                    "cy", "r", "x1",    "y1",     "x2", "y2", "points"};
    const std::string name(tag.name());
    if (localName(name) != "path") {
        for (const std::string_view measure : measures) tag.remove(measure);
        tag.rename(name.substr(0, name.size() - localName(name).size()) + "path");
    }
    const PathData outline = inUnits(node.path(), source_.transforms[element.toPage]);
    tag.set("d", pathData(outline));
    setOwnFeatures(tag, outline);
    // Others would make the outline anew from these.
    tag.remove(tag.find(source_.sodipodiPrefixes, "type"));
    tag.remove(tag.find(source_.inkscapePrefixes, "original-d"));
    tag.remove(tag.find(source_.inkscapePrefixes, "path-effect"));
}

std::string ElementText::wrapper(const Node& node, const Element& element, const Place& place) const {
    Tag tag('<' + place.prefix + 'g');
    if (const std::optional<Geom::Affine> moved = displacement(node, element, place)) prefixTransform(tag, *moved);
    const model::Content& was = document_.original(node);
    if (node.hidden() && !was.hidden) tag.set("style", "display:none");
    if (node.locked() && !was.locked) {
        setForeign(tag, source_.sodipodiPrefixes, "sodipodi", kSodipodiNamespace, "insensitive", "true");
    }
    return tag.text();
}

// Attributes

/// A declaration wins over an attribute, and a style sheet lies between the two.
void ElementText::setProperty(Tag& tag, std::string_view name, const std::string& value) const {
    const std::optional<std::string_view> style = tag.find("style");
    const auto declared = declaration(style.value_or(""), name);
    if (declared) {
        std::string changed(*style);
        changed.replace(declared->first, declared->second - declared->first, value);
        tag.set("style", std::move(changed));
    } else if (style || source_.hasStyleSheet || name == "display") {
        std::string changed(style.value_or(""));
        const std::size_t end = changed.find_last_not_of(kSpace);
        if (end != std::string::npos && changed[end] != ';') changed += ';';
        tag.set("style", changed.append(name) + ':' + value);
    } else {
        tag.set(name, value);
    }
}

void ElementText::setForeign(Tag& tag, const std::vector<std::string>& prefixes, std::string_view usualPrefix,
                             std::string_view uri, std::string_view local, std::string_view value) const {
    std::string name = tag.find(prefixes, local);
    if (name.empty()) {
        const bool bound = !prefixes.empty() && source_.prefixesAtRoot;
        const std::string prefix = bound ? prefixes.front() : std::string(usualPrefix);
        if (!bound) tag.set("xmlns:" + prefix, std::string(uri));
        name = prefix + ':' + std::string(local);
    }
    tag.set(name, escaped(value));
}

void ElementText::setName(Tag& tag, const Node& node) {
    if (node.type() != NodeType::Layer && canBeId(node.name()) && takeId(node.name())) {
        tag.set("id", escaped(node.name()));
    } else {
        setForeign(tag, source_.inkscapePrefixes, "inkscape", kInkscapeNamespace, "label", node.name());
    }
}

void ElementText::setOwnFeatures(Tag& tag, const PathData& path) const {
    const std::string types = nodeTypes(path);
    const std::string oldTypes = tag.find(source_.sodipodiPrefixes, "nodetypes");
    if (!types.empty()) {
        setForeign(tag, source_.sodipodiPrefixes, "sodipodi", kSodipodiNamespace, "nodetypes", types);
    } else if (!oldTypes.empty()) {
        tag.remove(oldTypes);
    }
    const std::string ends = outerHandles(path);
    const std::string oldEnds = tag.find(source_.easelPrefixes, "ends");
    if (!ends.empty()) {
        setForeign(tag, source_.easelPrefixes, "easel", kEaselNamespace, "ends", ends);
    } else if (!oldEnds.empty()) {
        tag.remove(oldEnds);
    }
}

/// Whether nothing in the file is called so. What only looks like an id, in a comment, counts as well.
bool ElementText::takeId(const std::string& name) {
    if (!ids_) {
        ids_.emplace();
        const std::string_view text(source_.text);
        for (std::size_t at = text.find("id"); at != std::string_view::npos; at = text.find("id", at + 2)) {
            const std::size_t equals = text.find_first_not_of(kSpace, at + 2);
            if (equals == std::string_view::npos || text[equals] != '=') continue;
            const std::size_t quote = text.find_first_not_of(kSpace, equals + 1);
            if (quote == std::string_view::npos || (text[quote] != '"' && text[quote] != '\'')) continue;
            const std::size_t end = text.find(text[quote], quote + 1);
            if (end != std::string_view::npos) ids_->insert(text.substr(quote + 1, end - quote - 1));
        }
    }
    return ids_->insert(name).second;
}

std::string ElementText::escaped(std::string_view text) const {
    std::string result;
    appendEscaped(result, text, source_.encoding == Encoding::OtherAscii);
    return result;
}

} // namespace easel::svg
