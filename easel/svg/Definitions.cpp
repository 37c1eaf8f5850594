// Finds definitions in the text of a drawing, and replaces what they hold.
#include "svg/Definitions.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "model/Bounds.h"
#include "svg/FileError.h"
#include "svg/Markup.h"
#include "svg/Names.h"
#include "svg/Reader.h"
#include "svg/Source.h"
#include "svg/Values.h"
#include "svg/Writer.h"

namespace easel::svg {

namespace {

using model::Document;
using model::Node;
using model::NodeType;
using Made = model::Definition;

const Source* sourceOf(const Document& document) { return dynamic_cast<const Source*>(document.origin.get()); }

const Definition* readAs(const Document& document, std::string_view kind, std::string_view name) {
    const Source* const source = sourceOf(document);
    if (!source) return nullptr;
    for (const Definition& known : source->definitions)
        if (known.kind == kind && known.id == name) return &known;
    return nullptr;
}

const Made* madeAs(Document& document, std::string_view kind, std::string_view name) {
    for (const auto& made : document.root().extras().definitions)
        if (made->kind == kind && made->name == name) return &*made;
    return nullptr;
}

/// What binds prefixes in a start tag, as it is written there.
void collectBindings(std::string_view startTag, std::map<std::string, std::string>& bindings) {
    for (std::size_t at = startTag.find("xmlns"); at != startTag.npos; at = startTag.find("xmlns", at + 1)) {
        const std::size_t equals = startTag.find('=', at);
        const std::size_t quote = startTag.find_first_of("\"'", at);
        if (equals == startTag.npos || quote == startTag.npos || quote < equals) continue;
        const std::size_t end = startTag.find(startTag[quote], quote + 1);
        if (end == startTag.npos) continue;
        bindings[std::string(trimmed(startTag.substr(at, equals - at)))] = startTag.substr(equals + 1, end - equals);
    }
}

const std::pair<std::string_view, std::string_view> kBindings[] = {{"xmlns", kSvgNamespace},
                                                                   {"xmlns:inkscape", kInkscapeNamespace},
                                                                   {"xmlns:sodipodi", kSodipodiNamespace},
                                                                   {"xmlns:easel", kEaselNamespace}};

std::string number(double value) {
    std::string text;
    appendNumber(text, value);
    return text;
}

/// A drawing around something, in which what holds at the definition holds as well.
std::string drawingAround(const Document& document, std::string_view startTag, std::string_view content) {
    const Source* const source = sourceOf(document);
    const std::string_view root = source ? source->startTag(source->elements.front()) : "<svg>";
    const std::string name = source ? std::string(source->tagName(source->elements.front())) : "svg";
    std::map<std::string, std::string> bindings;
    if (!source) bindings["xmlns"] = '"' + std::string(kSvgNamespace) + '"';
    collectBindings(root, bindings);
    collectBindings(startTag, bindings);
    const bool isAscii = !source || source->encoding == Encoding::Utf8 || source->encoding == Encoding::OtherAscii;
    std::string text = source && isAscii ? source->text.substr(0, source->elements.front().begin) : "";
    text += '<' + name;
    for (const auto& [prefix, value] : bindings) text += ' ' + prefix + '=' + value;
    const std::string page = "0 0 " + number(document.width()) + ' ' + number(document.height());
    const Tag tag(startTag);
    text += " viewBox=\"" + std::string(tag.find("viewBox").value_or(page)) + "\">";
    return text.append(content) + "</" + name + '>';
}

/// What is inside of the root.
std::string contentOf(Document& edited) {
    const std::string text = write(edited);
    const Source* const source = sourceOf(edited);
    const std::size_t root = source ? source->elements.front().begin : text.find("<svg");
    const std::size_t begin = root + behindTag(std::string_view(text).substr(root));
    const std::size_t end = text.rfind("</");
    return end == text.npos || end < begin ? std::string() : text.substr(begin, end - begin);
}

std::string_view contentIn(const Source& source, const Definition& definition) {
    if (definition.tagEnd == definition.end) return {};
    const std::size_t end = source.text.rfind('<', definition.end - 1);
    return std::string_view(source.text).substr(definition.tagEnd, end - definition.tagEnd);
}

void keep(Document& document, Made made) {
    model::Extras extras = document.root().extras();
    const auto known = std::find_if(extras.definitions.begin(), extras.definitions.end(),
                                    [&](const auto& is) { return is->kind == made.kind && is->name == made.name; });
    model::Shared kept(std::move(made));
    if (known == extras.definitions.end())
        extras.definitions.push_back(std::move(kept));
    else
        *known = std::move(kept);
    document.setExtras(document.root(), std::move(extras));
}

std::string freeName(Document& document, std::string_view kind) {
    std::set<std::string> taken;
    const Source* const source = sourceOf(document);
    for (const auto& made : document.root().extras().definitions) taken.insert(made->name);
    const std::string_view text = source ? std::string_view(source->text) : "";
    for (std::size_t number = 1;; ++number) {
        std::string name = std::string(kind) + '-' + std::to_string(number);
        const bool isFree = text.find('"' + name + '"') == text.npos && text.find('\'' + name + '\'') == text.npos;
        if (isFree && taken.count(name) == 0 && !document.findByName(name)) return name;
    }
}

bool canBeCopied(const Node& node) {
    if (node.type() != NodeType::Opaque) return !node.clip() && !(node.isOutlined() && node.keepsPlace());
    if (node.text()) return !node.text()->isRich;
    return node.symbol() || (node.image() && !node.image()->link.empty());
}

Node& copyOf(Document& to, Node& container, const Node& node) {
    Node& copy = to.create(node.type(), model::Placement::OnTopInside, container);
    if (node.type() == NodeType::Path) to.setPath(copy, node.path());
    if (node.isOutlined()) to.setStyle(copy, node.style());
    if (node.type() == NodeType::Opaque) {
        if (node.opaque().bounds) to.setBounds(copy, *node.opaque().bounds);
        to.setSpecial(copy, *node.content().special());
        to.transform(copy, node.opaque().placed());
    }
    if (node.isSubpath()) return copy;
    to.setExtras(copy, node.extras());
    to.setHidden(copy, node.hidden());
    to.setLocked(copy, node.locked());
    return copy;
}

} // namespace

std::vector<std::string> definitionNames(Document& document, std::string_view kind) {
    std::vector<std::string> names;
    if (const Source* const source = sourceOf(document))
        for (const Definition& known : source->definitions)
            if (known.kind == kind) names.push_back(known.id);
    for (const auto& made : document.root().extras().definitions)
        if (made->kind == kind && !readAs(document, kind, made->name)) names.push_back(made->name);
    return names;
}

std::unique_ptr<Document> readDefinition(Document& document, std::string_view kind, std::string_view name) {
    const Definition* const known = readAs(document, kind, name);
    const Made* const made = madeAs(document, kind, name);
    if (!known && !made) return nullptr;
    const Source* const source = sourceOf(document);
    const std::string startTag = known ? source->text.substr(known->begin, known->tagEnd - known->begin)
                                       : "<" + made->kind + made->attributes + '>';
    const std::string content = made ? made->content : std::string(contentIn(*source, *known));
    try {
        return read(drawingAround(document, startTag, content), std::string(name));
    } catch (const FileError&) { // it needs something that stands around it
        return nullptr;
    }
}

void redefine(Document& document, std::string_view kind, std::string_view name, Document& edited) {
    const Definition* const known = readAs(document, kind, name);
    const Made* const made = madeAs(document, kind, name);
    const std::string content = contentOf(edited);
    if (made ? made->content == content : known && contentIn(*sourceOf(document), *known) == content) return;
    keep(document, {std::string(kind), std::string(name), made ? made->attributes : "", content});
}

std::optional<std::string> define(Document& document, std::string_view kind, Node& art) {
    Document drawing(document.width(), document.height());
    if (!copyInto(drawing, drawing.currentLayer(), art)) return std::nullopt;
    std::string attributes;
    for (const auto& [prefix, uri] : kBindings)
        attributes.append(" ").append(prefix).append("=\"").append(uri).append("\"");
    if (kind == "symbol") attributes += " overflow=\"visible\"";
    if (kind == "pattern") {
        const model::Box box = boundsOf(art, {});
        if (box.isEmpty()) return std::nullopt;
        attributes += " patternUnits=\"userSpaceOnUse\" x=\"" + number(box.left) + "\" y=\"" + number(box.top) +
                      "\" width=\"" + number(box.right - box.left) + "\" height=\"" + number(box.bottom - box.top) +
                      "\"";
    }
    std::string content;
    try {
        content = contentOf(drawing);
    } catch (const UnsavableError&) {
        return std::nullopt;
    }
    std::string name = freeName(document, kind);
    keep(document, {std::string(kind), name, attributes, std::move(content)});
    return name;
}

bool copyInto(Document& to, Node& container, const Node& art, const model::Affine& by) {
    for (const Node* at = &art; at; at = nextWithin(art, *at))
        if (!canBeCopied(*at)) return false;
    Node& copy = copyOf(to, container, art);
    std::vector<std::pair<const Node*, Node*>> open{{&art, &copy}};
    while (!open.empty()) {
        const auto [from, into] = open.back();
        open.pop_back();
        for (const Node* child = from->lastChild(); child; child = child->previous())
            open.emplace_back(child, &copyOf(to, *into, *child));
    }
    to.transform(copy, by);
    return true;
}

namespace {

/// From a symbol's units to those of a use: its box is made as large as fits, in the middle.
std::optional<model::Affine> fitted(const Document& symbol, std::string_view viewBox,
                                    std::optional<model::Point> size) {
    if (viewBox.empty()) return model::Affine{};
    if (!size) return std::nullopt;
    const double scale = std::min(size->x / symbol.width(), size->y / symbol.height());
    return model::Affine{
        scale, 0, 0, scale, (size->x - symbol.width() * scale) / 2, (size->y - symbol.height() * scale) / 2};
}

} // namespace

bool expandInstance(Document& document, Node& instance) {
    const model::SymbolData use = *instance.symbol();
    const auto symbol = readDefinition(document, "symbol", use.symbol);
    if (!symbol) return false;
    const Definition* const known = readAs(document, "symbol", use.symbol);
    const Source* const source = sourceOf(document);
    const std::string tag = known ? source->text.substr(known->begin, known->tagEnd - known->begin) : "<symbol>";
    const auto fit = fitted(*symbol, Tag(tag).find("viewBox").value_or(""), use.size);
    if (!fit) return false;
    for (Node* layer = symbol->root().firstChild(); layer; layer = layer->next())
        for (const Node* art = layer->firstChild(); art; art = nextWithin(*layer, *art))
            if (!canBeCopied(*art)) return false;
    Node& group = document.create(NodeType::Group, model::Placement::Above, instance);
    for (const Node* layer = symbol->root().lastChild(); layer; layer = layer->previous())
        for (const Node* art = layer->lastChild(); art; art = art->previous())
            static_cast<void>(copyInto(document, group, *art, *fit * use.place * instance.opaque().placed()));
    document.setExtras(group, instance.extras());
    document.setHidden(group, instance.hidden());
    document.remove(instance);
    return true;
}

} // namespace easel::svg
