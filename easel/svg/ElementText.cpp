// Attributes that say what has changed are replaced where they stand; whatever else is in a start tag keeps its bytes.
#include "svg/ElementText.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

#include "svg/ElementParts.h"
#include "svg/Extras.h"
#include "svg/FileError.h"
#include "svg/Inheritance.h"
#include "svg/Names.h"
#include "svg/Outlines.h"
#include "svg/Reach.h"
#include "svg/Values.h"

namespace easel::svg {

namespace {

using model::Affine;
using model::Node;
using model::NodeType;
using model::PathData;
using model::PathPoint;
using model::Point;
using model::Style;

constexpr double kSame = 1e-9; ///< against the numbers themselves
constexpr const char* kClip = "clip";
constexpr const char* kMask = "mask";

bool isNear(double a, double b) { return std::fabs(a - b) <= kSame * (1 + std::fabs(a) + std::fabs(b)); }
bool isNear(const Affine& a, const Affine& b) {
    return isNear(a.a, b.a) && isNear(a.b, b.b) && isNear(a.c, b.c) && isNear(a.d, b.d) && isNear(a.e, b.e) &&
           isNear(a.f, b.f);
}

/// Whether the same has been done to art as to what it is in, exactly where that is nothing.
bool goesAlong(const Affine& by, const Affine& around) {
    if (around == Affine{}) return by == around;
    return isNear(by.a, around.a) && isNear(by.b, around.b) && isNear(by.c, around.c) && isNear(by.d, around.d) &&
           isNear(by.e, around.e) && isNear(by.f, around.f);
}

bool isNear(const PathData& a, const PathData& b, const Affine& by) {
    if (a.closed != b.closed || !(a.smooth == b.smooth) || a.points.size() != b.points.size()) return false;
    const auto near = [&](Point was, Point is) {
        const Point to = by(was);
        return isNear(to.x, is.x) && isNear(to.y, is.y);
    };
    return std::equal(a.points.begin(), a.points.end(), b.points.begin(), [&](const PathPoint& p, const PathPoint& q) {
        return near(p.anchor, q.anchor) && near(p.in, q.in) && near(p.out, q.out);
    });
}

/// Whether outlines are what they were, but for what has been done to them as a whole.
bool isSame(const model::OutlineList& was, const model::OutlineList& is, const Affine& by) {
    if (by == Affine{}) return was == is;
    return std::equal(was.begin(), was.end(), is.begin(), is.end(),
                      [&](const auto& a, const auto& b) { return isNear(*a, *b, by); });
}

/// Whether all lengths change by the same, so that strokes stay as they are.
bool keepsShapes(const Affine& by) {
    const double first = by.a * by.a + by.b * by.b;
    const double second = by.c * by.c + by.d * by.d;
    return std::fabs(first - second) <= kSame * (first + second) &&
           std::fabs(by.a * by.c + by.b * by.d) <= kSame * (first + second);
}

bool sameSpecial(const model::Content& a, const model::Content& b) {
    return a.special() == b.special() || (a.special() && b.special() && *a.special() == *b.special());
}

/// Behind a comment, a section of data, an instruction or an end tag, which the text begins with, if with any.
std::size_t behindMarkup(std::string_view text) {
    static constexpr std::pair<std::string_view, std::string_view> kKinds[] = {
        {"<!--", "-->"}, {"<![CDATA[", "]]>"}, {"<?", "?>"}, {"<", ">"}};
    for (const auto& [begin, end] : kKinds)
        if (text.substr(0, begin.size()) == begin)
            return std::min(text.find(end), text.size() - end.size()) + end.size();
    return text.size();
}

/// A copy of markup without what only one element of a drawing can have.
std::string withoutIds(std::string_view markup) {
    std::string text;
    while (!markup.empty()) {
        const std::size_t open = std::min(markup.find('<'), markup.size());
        text += markup.substr(0, open);
        markup.remove_prefix(open);
        const bool isElement = markup.size() > 1 && markup[1] != '!' && markup[1] != '?' && markup[1] != '/';
        if (!isElement) { // up to its end; what stands in comments is text
            const std::size_t end = behindMarkup(markup);
            text += markup.substr(0, end);
            markup.remove_prefix(end);
            continue;
        }
        const std::size_t end = behindTag(markup);
        Tag tag(markup.substr(0, end));
        for (const std::string_view name : {"id", "xml:id"}) tag.remove(name);
        text += tag.text();
        markup.remove_prefix(end);
    }
    return text;
}

} // namespace

// New elements

/// What an object of any kind is made with.
Tag ElementText::newTag(const Node& node, const Place& place, std::string_view name) {
    Tag tag = tagOf('<' + place.prefix + std::string(name));
    if (node.type() == NodeType::Layer) {
        setForeign(tag, source_.inkscapePrefixes, "inkscape", kInkscapeNamespace, "groupmode", "layer");
        setForeign(tag, source_.inkscapePrefixes, "inkscape", kInkscapeNamespace, "label", node.name());
    } else if (!node.name().empty()) {
        setName(tag, node);
    }
    if (isGroup(node) && mayBeStyled(tag))
        tag.set("style", groupStyle(node.hidden()));
    else if (node.hidden())
        tag.set("style", "display:none");
    if (node.locked()) {
        setForeign(tag, source_.sodipodiPrefixes, "sodipodi", kSodipodiNamespace, "insensitive", "true");
    }
    if (tag.find("transform")) tag.set("transform", "translate(0)"); // one that all elements of this name have
    return tag;
}

// Masks

/// The id of what is written for the node besides its element.
const std::string& ElementText::newId(const Node& node, const char* kind) {
    std::string& id = newIds_[{&node, kind}];
    for (std::size_t number = newIds_.size(); id.empty(); ++number)
        if (std::string name = kind + ('-' + std::to_string(number)); !hasId(name)) id = std::move(name);
    ids_->insert(id);
    return id;
}

void ElementText::setClip(Tag& tag, const Node& node) {
    setProperty(tag, "clip-path", node.extras().clip ? "url(#" + newId(node, kClip) + ')' : "none");
}

void ElementText::setOwnMask(Tag& tag, const Node& node) {
    if (!node.extras().ownMask) return;
    const std::string value = "url(#" + newId(node, kMask) + ')';
    node.extras().maskDisabled ? setOwn(tag, "disabled-mask", value) : setProperty(tag, "mask", value);
}

std::string ElementText::maskBefore(const Node& node, const Element* element, const Place& place) {
    if (!node.extras().ownMask) return {};
    const model::MaskDrawing& drawing = *node.extras().ownMask;
    const Affine units = element ? unitsOf(node, *element, place) : unitsOf(node, place);
    const Affine toUnits = drawing.toArt * node.placed() * inverse(units);
    model::Box box;
    for (const double x : {drawing.box.left, drawing.box.right})
        for (const double y : {drawing.box.top, drawing.box.bottom}) box.include(toUnits({x, y}));
    const std::string name = place.prefix + "mask";
    std::string text = '<' + name + " id=\"" + newId(node, kMask) + "\" maskUnits=\"userSpaceOnUse\"";
    for (const auto& [side, value] :
         {std::pair("x", box.left), std::pair("y", box.top), std::pair("width", box.right - box.left),
          std::pair("height", box.bottom - box.top)}) {
        text.append(" ").append(side).append("=\"");
        appendNumber(text, value);
        text += '"';
    }
    return text + drawing.attributes + "><g transform=\"" + transformText(toUnits) + "\">" + drawing.content +
           "</g></" + name + '>';
}

std::string ElementText::clipPath(const Node& group, const Place& inside) {
    if (!group.extras().clip) return {};
    const std::string name = inside.prefix + "clipPath";
    std::string text = '<' + name + " id=\"" + newId(group, kClip) + "\">";
    for (model::Mask::Shape& shape : maskOnPage(group)) {
        for (PathData& subpath : shape.subpaths) transformBy(subpath, inverse(toPageIn(inside)));
        text += '<' + inside.prefix + "path d=\"" + pathData(shape.subpaths) + '"';
        text += std::string(shape.evenOdd ? " clip-rule=\"evenodd\"" : "") + "/>";
    }
    return text + "</" + name + '>';
}

std::string ElementText::newTag(const Node& node, const Place& place) {
    Tag tag = newTag(node, place, isGroup(node) ? "g" : "path");
    const Affine toPage = unitsOf(node, place);
    const Affine transform = toPage * inverse(toPageIn(place));
    if (node.units() && !isNear(transform, Affine{})) tag.set("transform", transformText(transform));
    if (!node.isOutlined()) {
        if (node.taken()) takeOver(tag, node);
        setExtras(tag, node, {});
        if (node.extras().clip) setClip(tag, node);
        return tag.text();
    }
    requireUsable(node.style());
    setOutline(tag, node, toPage);
    setPaint(tag, node, inUnits(node.style(), scaleOf(toPage)), source_.containers[place.container]);
    if (!overprintText(node.style()).empty()) setOverprint(tag, node.style());
    if (node.taken()) takeOver(tag, node);
    setExtras(tag, node, {});
    return tag.text();
}

/// What the origin knows of how the art is shown whose place it takes; the document knows the rest.
void ElementText::takeOver(Tag& tag, const Node& made) {
    const Element& element = source_.elements[made.taken() - 1];
    for (const char* const name : {"clip-path", "filter"}) {
        const std::string value = surroundings_.says(element, name);
        if (!value.empty() && value != "none") setProperty(tag, name, escaped(value));
    }
    if (made.extras().hasOtherClip) setClip(tag, made);
}

const model::Content& ElementText::wasOf(const Node& node) const {
    static const model::Content kNothing;
    if (node.copied()) return node.copied()->was;
    return node.type() == NodeType::Root && node.origin() == 0 ? kNothing : document_.original(node);
}

// Duplicates of what was read

std::string ElementText::copiedTag(const Node& node, const Element& element, const Place& place) {
    const std::string copied = withoutIds(source_.startTag(element));
    Tag tag = tagOf(copied);
    change(tag, node, element, place);
    std::string text = tag.text();
    text.resize(text.find_last_not_of(" \t\r\n/>") + 1);
    return text;
}

std::string ElementText::copiedElement(const Node& node, const Element& element, const Place& place) {
    if (element.wrapped) {
        const std::string inside =
            wrappedTag(node, element) + source_.text.substr(element.tagEnd, element.end - element.tagEnd);
        return wrapper(node, element, place) + '>' + withoutIds(inside) + "</" + place.prefix + "g>";
    }
    std::string text = copiedTag(node, element, place);
    if (element.tagEnd == element.end && !isRefilled(node)) return text + "/>";
    const std::string name(Tag(text).name());
    const std::size_t endTag = source_.text.rfind('<', element.end - 1);
    const std::string_view inside = std::string_view(source_.text).substr(element.tagEnd, endTag - element.tagEnd);
    const bool isText = isRefilled(node);
    return text + '>' + (isText ? escaped(node.text()->contents) : withoutIds(inside)) + "</" + name + '>';
}

/// Whether a new group would have more than its own tag says.
bool ElementText::mayBeStyled(const Tag& group) const {
    return source_.sheetNamesGroups || source_.defaults.count(std::string(group.name())) > 0;
}

/// Of a group that has no effect and passes on what it is in, whatever a style sheet says of groups.
std::string ElementText::groupStyle(bool hidden) const {
    const std::string_view end = source_.sheetInsists ? " !important;" : ";";
    std::string text = std::string("display:") + (hidden ? "none" : "inline");
    for (const std::string_view own :
         {"opacity:1", "clip-path:none", "mask:none", "filter:none", "mix-blend-mode:normal"})
        text.append(end).append(own);
    for (const Inherited& each : kInherited)
        if (each.name != "font" && each.name != "xml:space") // said by its parts, and no property
            text.append(end).append(each.name).append(":inherit");
    return text.append(end.substr(0, end.size() - 1));
}

/// Whatever could make the art look otherwise is ruled out: what it would inherit, and what a style sheet may say of
/// elements of its kind.
void ElementText::setPaint(Tag& tag, const Node& node, const Style& style, const Container& container) const {
    static constexpr std::pair<std::string_view, std::string_view> kOthers[] = {
        {"opacity", "1"},   {"fill-opacity", "1"},     {"stroke-opacity", "1"},
        {"marker", "none"}, {"clip-path", "none"},     {"mask", "none"},
        {"filter", "none"}, {"paint-order", "normal"}, {"visibility", "visible"}};
    const bool byDefault = source_.defaults.count(std::string(tag.name())) > 0;
    if (!source_.hasStyleSheet && !byDefault) {
        const bool isServed = container.passesOnServers();
        for (auto& [name, value] : properties(style, isServed ? nullptr : &container.style)) tag.set(name, value);
        for (const auto& [name, value] : container.inherited)
            if (const std::string_view initial = initialValue(name); !initial.empty())
                tag.set(textOf(name), std::string(initial));
        return;
    }
    const std::string_view end = source_.sheetInsists ? " !important;" : ";";
    std::string text = node.hidden() ? "display:none;" : "";
    const auto say = [&](std::string_view name, std::string_view value) {
        text.append(name).append(":").append(value).append(end);
    };
    if (!node.hidden()) say("display", "inline");
    for (const auto& [name, value] : properties(style, nullptr)) say(name, value);
    for (const auto& [name, value] : kOthers) say(name, value);
    text.pop_back();
    tag.set("style", std::move(text));
}

// Changed elements

bool ElementText::isChanged(const Node& node, const Element& element, const Place& place) const {
    const model::Content& was = wasOf(node);
    const model::Content& is = node.content();
    if (element.container != place.container) return true;
    const bool isCompound = node.type() == NodeType::Compound;
    if (place.placed == Affine{}) return is != was || (isCompound && node.outlines() != original(node));
    requireInReach(node); // it may go along without being written
    if (!sameSpecial(is, was)) return true;
    model::Content otherwise = is;
    otherwise.path = was.path;
    otherwise.style = was.style;
    otherwise.opaque = was.opaque;
    const Done done = doneTo(node, place.placed);
    if (otherwise != was || done.outlineChanged || !goesAlong(done.by, place.placed)) return true;
    if (!node.isOutlined()) return false;
    const Styles styles = stylesOf(node, element, done.by);
    return !(styles.now == styles.before);
}

std::string ElementText::startTag(const Node& node, const Element& element, const Place& place) {
    const std::string_view text = source_.startTag(element);
    if (!isChanged(node, element, place)) return std::string(text);
    Tag tag = tagOf(text);
    change(tag, node, element, place);
    return tag.text();
}

void ElementText::change(Tag& tag, const Node& node, const Element& element, const Place& place) {
    const model::Content& is = node.content();
    const model::Content& was = wasOf(node);
    if (is.name != was.name) setName(tag, node);
    if (is.hidden != was.hidden) setProperty(tag, "display", node.hidden() ? "none" : "inline");
    if (is.locked != was.locked) setLocked(tag, node.locked());
    const bool hadOtherClip = was.extras && was.extras->hasOtherClip;
    if (node.extras().hasOtherClip || hadOtherClip) setClip(tag, node);
    if (is.extras != was.extras) setExtras(tag, node, was.extras ? *was.extras : model::Extras());
    requireInReach(node);
    const bool staysInside = element.container == place.container;
    const Done done = doneTo(node, staysInside ? place.placed : Affine{});
    const Affine by = doneToUnits(node, element, place);
    const bool isAlong = staysInside && goesAlong(done.by, place.placed);
    if (node.isOutlined() && (done.outlineChanged || (outlineTells(node, element, place) && !isAlong)))
        changeOutline(tag, node, source_.transforms[element.toPage] * by);
    changeSpecial(tag, node, element);
    if (node.isOutlined()) {
        if (is.style != was.style) requireUsable(node.style());
        const Styles styles = stylesOf(node, element, by);
        for (const auto& [name, value] : properties(styles.now, &styles.before)) setProperty(tag, name, value);
        if (overprintText(*is.style) != overprintText(*was.style)) setOverprint(tag, *is.style);
    }
    if (!staysInside || !goesAlong(by, place.placed)) prefixTransform(tag, element, displacement(by, element, place));
    if (!staysInside || node.copied()) bringInherited(tag, node, element, place);
}

/// What the element looked like because of where it was, unless it says so itself. A duplicate has lost its id.
void ElementText::bringInherited(Tag& tag, const Node& node, const Element& element, const Place& place) {
    const Container& from = source_.containers[element.container];
    const Container& to = source_.containers[place.container];
    const bool hasTag = !element.wrapped || element.reason != Reason::Entity;
    const std::string own = !element.wrapped ? tag.text() : hasTag ? std::string(source_.startTag(element)) : "<g>";
    const Surroundings::Needed needed = surroundings_.needed(element, own, place.container, node.isOutlined());
    for (const auto& [name, value] : needed.properties)
        name == "xml:space" ? tag.set(name, escaped(value)) : setProperty(tag, name, escaped(value));
    if (element.container == place.container) return;
    const auto bring = [&](std::string_view name, std::string_view value) {
        const bool saysSo = tag.find(name) || declaration(tag.find("style").value_or(""), name) ||
                            needed.declared.count(std::string(name)) > 0;
        if (!saysSo && !value.empty()) setProperty(tag, name, escaped(value));
    };
    for (const auto& [name, value] : from.inherited)
        if (to.inherits(name) != value) bring(textOf(name), value);
    for (const auto& [name, value] : to.inherited)
        if (from.inherits(name).empty()) bring(textOf(name), initialValue(name));
    const bool isServed = to.passesOnServers();
    for (const auto& [name, value] : properties(from.style, isServed ? nullptr : &to.style)) {
        const bool wasServed = (name == "fill" && !from.style.fillServer().empty()) ||
                               (name == "stroke" && !from.style.strokeServer().empty());
        if (!wasServed) bring(name, value);
    }
}

/// `around`: what has been done to what it is in. Where it is not known what has been done to an outline, and that is
/// neither a move nor the same, the outline has been changed in there.
ElementText::Done ElementText::doneTo(const Node& node, const Affine& around) const {
    if (!node.isOutlined()) return {node.placed()};
    const model::OutlineList was = original(node);
    const model::OutlineList is = node.outlines();
    if (node.hull().isEmpty()) return {around, was != is};
    if (node.keepsPlace()) return {node.placed(), !isSame(was, is, node.placed())};
    if (was == is) return {};
    if (const std::optional<Point> move = commonMove(was, is)) return {{.e = move->x, .f = move->y}};
    return {around, !isSame(was, is, around)};
}

/// Whether what has been done to art can be told by its outline alone.
bool ElementText::outlineTells(const Node& node, const Element& element, const Place& place) const {
    return element.container == place.container && node.isOutlined() && !node.keepsPlace() && !needsTransform(element);
}

/// What has been done, on the page, to the units that the element is written in.
Affine ElementText::doneToUnits(const Node& node, const Element& element, const Place& place) const {
    if (outlineTells(node, element, place)) return place.placed;
    if (isGroup(node)) return placedInside(node, element, place);
    return doneTo(node, element.container == place.container ? place.placed : Affine{}).by;
}

/// In the element's units. Lengths that do not show, or that only rounding tells apart, are those before.
ElementText::Styles ElementText::stylesOf(const Node& node, const Element& element, const Affine& by) const {
    const Style& was = *wasOf(node).style;
    const double scale = scaleOf(source_.transforms[element.toPage]);
    const double scaled = scaleOf(by);
    Styles styles{inUnits(was, scale), inUnits(node.style(), scale * scaled)};
    if (scaled == 1) return styles;
    std::vector<double> lengths;
    Style before = styles.before;
    before.changeLengths([&](double& length) { lengths.push_back(length); });
    std::size_t at = 0;
    styles.now.changeLengths([&](double& length) {
        const bool has = at < lengths.size();
        if (has && (!styles.now.isStroked() || std::fabs(length - lengths[at]) <= kSame * lengths[at]))
            length = lengths[at];
        ++at;
    });
    return styles;
}

/// A group is transformed by its own element, so that all that lies in its units goes along. A plain one that would
/// only distort the strokes in it leaves that to what it holds.
Affine ElementText::placedInside(const Node& group, const Element& element, const Place& place) const {
    const bool staysInside = element.container == place.container;
    const bool isPlain = staysInside && !hasServers(element) && !source_.containers[element.inner].passesOnServers();
    return isPlain && !keepsShapes(inverse(place.placed) * group.placed()) ? place.placed : group.placed();
}

/// The outlines that were read.
model::OutlineList ElementText::original(const Node& node) const {
    if (node.type() == NodeType::Path) return {wasOf(node).path};
    const std::uint32_t origin = node.copied() ? node.copied()->origin : node.origin();
    return source_.compounds[source_.elements[origin - 1].inner];
}

/// Whether the element is moved by a transform, since it would not follow its outline or would lose something by
/// writing that anew: basic shapes, paint and clips that lie in the element's own space, data that is damaged.
bool ElementText::needsTransform(const Element& element) const {
    return localName(source_.tagName(element)) != "path" || element.damaged || hasServers(element) ||
           source_.containers[element.container].passesOnServers() ||
           source_.startTag(element).find("sodipodi:type") != std::string_view::npos;
}

bool ElementText::hasServers(const Element& element) const {
    return source_.sheetHasServers || source_.startTag(element).find("url(") != std::string_view::npos;
}

/// The way from where an element was read to where it is after `by`, in the units that hold around it.
Affine ElementText::displacement(const Affine& by, const Element& element, const Place& place) const {
    const Affine& from = source_.transforms[source_.containers[element.container].toPage];
    const Affine to = toPageIn(place);
    if (element.container == place.container && by.isMove() &&
        place.placed.isMove()) { // without rounding what is nought
        const Point on = inverse(Affine{to.a, to.b, to.c, to.d})({by.e - place.placed.e, by.f - place.placed.f});
        return {.e = on.x, .f = on.y};
    }
    return from * by * inverse(to);
}

void ElementText::prefixTransform(Tag& tag, const Element& element, const Affine& transform) const {
    if (transform == Affine{}) return;
    const std::string_view old = element.voidTransform ? "" : tag.find("transform").value_or("");
    tag.set("transform", transformText(transform) + (old.empty() ? "" : ' ' + std::string(old)));
}

/// From the units inside of what is written to the page.
Affine ElementText::toPageIn(const Place& place) const {
    return source_.transforms[source_.containers[place.container].toPage] * place.placed;
}

/// From the units of an element that is written anew to the page.
Affine ElementText::unitsOf(const Node& made, const Place& place) const {
    if (made.content().special()) return isTurned(made) ? made.placed() : Affine{};
    if (!made.units()) return toPageIn(place);
    return source_.transforms[source_.elements[made.units() - 1].toPage] * made.placed();
}

/// From the units of an element that was read, or of the group around it, to the page.
Affine ElementText::unitsOf(const Node& node, const Element& element, const Place& place) const {
    const std::uint32_t from = element.wrapped ? source_.containers[element.container].toPage : element.toPage;
    return source_.transforms[from] * (element.wrapped ? node.placed() : doneToUnits(node, element, place));
}

Affine ElementText::placedInside(const Node& made, const Place& place) const {
    if (!made.units()) return place.placed;
    const Affine& around = source_.transforms[source_.containers[place.container].toPage];
    return inverse(around) * unitsOf(made, place);
}

/// `toPage`: from the element's units as they are now.
void ElementText::changeOutline(Tag& tag, const Node& node, const Affine& toPage) const {
    static constexpr std::string_view kMeasures[] = {"x",  "y", "width", "height", "rx", "ry", "cx",
                                                     "cy", "r", "x1",    "y1",     "x2", "y2", "points"};
    const std::string name(tag.name());
    if (localName(name) != "path") {
        for (const std::string_view measure : kMeasures) tag.remove(measure);
        tag.rename(name.substr(0, name.size() - localName(name).size()) + "path");
    }
    setOutline(tag, node, toPage);
    // Others would make the outline anew from these.
    tag.remove(tag.find(source_.sodipodiPrefixes, "type"));
    tag.remove(tag.find(source_.inkscapePrefixes, "original-d"));
    tag.remove(tag.find(source_.inkscapePrefixes, "path-effect"));
}

std::string ElementText::wrappedTag(const Node& node, const Element& element) {
    const model::Content& was = wasOf(node);
    const bool shows = was.hidden && !node.hidden();
    const bool unlocks = was.locked && !node.locked();
    const bool inEntity = element.reason == Reason::Entity;
    if ((shows || unlocks) && inEntity)
        throw UnsavableError("what is hidden or locked in an entity cannot be saved otherwise");
    const bool isRenamed = node.content().name != was.name && !inEntity && !node.copied();
    if (!shows && !unlocks && !isRenamed) return std::string(source_.startTag(element));
    Tag tag = tagOf(source_.startTag(element));
    if (isRenamed) setName(tag, node);
    if (shows) setProperty(tag, "display", "inline");
    if (unlocks) setLocked(tag, false);
    return tag.text();
}

std::string ElementText::wrapper(const Node& node, const Element& element, const Place& place) {
    Tag tag('<' + place.prefix + 'g');
    const bool isAlong = element.container == place.container && goesAlong(node.placed(), place.placed);
    const Affine displaced = isAlong ? Affine{} : displacement(node.placed(), element, place);
    if (!(displaced == Affine{})) tag.set("transform", transformText(displaced));
    const model::Content& was = wasOf(node);
    const bool hides = node.hidden() && !was.hidden;
    const bool takesNoName = element.reason == Reason::Entity || node.copied();
    if (node.content().name != was.name && !node.name().empty() && takesNoName) setName(tag, node);
    if (mayBeStyled(tag))
        tag.set("style", groupStyle(hides));
    else if (hides)
        tag.set("style", "display:none");
    if (element.container != place.container) bringInherited(tag, node, element, place);
    if (node.locked() && !was.locked) {
        setForeign(tag, source_.sodipodiPrefixes, "sodipodi", kSodipodiNamespace, "insensitive", "true");
    }
    if (node.content().extras != was.extras) {
        // The element keeps its own opacity, so that the group only makes up the difference.
        model::Extras extras = node.extras();
        const double own = was.extras ? was.extras->opacity : 1;
        extras.opacity = own > 0 ? std::min(extras.opacity / own, 1.0) : 1;
        if (was.extras && was.extras->mask == extras.mask) extras.mask.clear();
        setExtras(tag, extras, {});
        setOwnMask(tag, node);
    }
    return tag.text();
}

} // namespace easel::svg
