// Finds definitions in the text of a drawing, and replaces what they hold.
#include "svg/Definitions.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <map>
#include <set>
#include <utility>

#include "model/Bounds.h"
#include "model/Journal.h"
#include "svg/FileError.h"
#include "svg/Inheritance.h"
#include "svg/Markup.h"
#include "svg/Names.h"
#include "svg/Outlines.h"
#include "svg/Reader.h"
#include "svg/Source.h"
#include "svg/SplicedText.h"
#include "svg/Splicer.h"
#include "svg/Surroundings.h"
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

std::string startTagOf(Document& document, std::string_view kind, std::string_view name) {
    if (const Definition* const known = readAs(document, kind, name))
        return sourceOf(document)->text.substr(known->begin, known->tagEnd - known->begin);
    const Made* const made = madeAs(document, kind, name);
    return made ? "<" + made->kind + made->attributes + '>' : "";
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

/// Such a drawing, read.
std::unique_ptr<Document> readIn(const Document& document, std::string_view startTag, std::string_view content,
                                 std::string_view name) {
    std::string text = drawingAround(document, startTag, content);
    const Source* const source = sourceOf(document);
    return source ? readPart(std::move(text), std::string(name), *source) : read(std::move(text), std::string(name));
}

/// What is inside of the root, as this text has it.
std::string contentIn(const Document& edited, std::string_view text) {
    const Source* const source = sourceOf(edited);
    const std::size_t root = source ? source->elements.front().begin : text.find("<svg");
    const std::size_t begin = root + behindTag(text.substr(root));
    const std::size_t end = text.rfind("</");
    return std::string(end == text.npos || end < begin ? "" : text.substr(begin, end - begin));
}

std::string contentOf(Document& edited) { return contentIn(edited, write(edited)); }

bool isInside(const Definition& inner, const Definition& outer) {
    return outer.tagEnd <= inner.begin && inner.end <= outer.end && inner.begin < outer.end;
}

/// The one around it that holds something else than it was read with, and by that all that is to know of it.
const Made* madeAround(Document& document, const Definition& inner) {
    for (const auto& made : document.root().extras().definitions)
        if (const Definition* const outer = readAs(document, made->kind, made->name); outer && isInside(inner, *outer))
            return &*made;
    return nullptr;
}

/// A part of what was read, with what has been made of the definitions in it.
std::string nowIn(Document& document, std::size_t begin, std::size_t end) {
    const Source& source = *sourceOf(document);
    SplicedText text(source.text);
    for (const auto& made : document.root().extras().definitions)
        if (const Definition* const known = readAs(document, made->kind, made->name))
            replaceContent(text, source, *known, made->content);
    text.copy(begin, end);
    return text.joined();
}

std::string contentOf(Document& document, std::string_view kind, std::string_view name) {
    if (const Made* const made = madeAs(document, kind, name)) return made->content;
    const Definition* const known = readAs(document, kind, name);
    if (!known || known->tagEnd == known->end) return {};
    if (const Made* const around = madeAround(document, *known)) {
        const auto held = readDefinition(document, around->kind, around->name);
        return held ? contentOf(*held, kind, name) : std::string();
    }
    return nowIn(document, known->tagEnd, sourceOf(document)->text.rfind('<', known->end - 1));
}

/// All of them, for one that refers to others.
std::string definitionsIn(Document& document) {
    std::string text = "<defs xmlns=\"" + std::string(kSvgNamespace) + "\">";
    if (const Source* const source = sourceOf(document))
        for (std::size_t end = 0; const Definition& known : source->definitions) {
            if (known.begin < end) continue; // in the one before
            text += nowIn(document, known.begin, known.end);
            end = known.end;
        }
    for (const auto& made : document.root().extras().definitions)
        if (!readAs(document, made->kind, made->name))
            text += '<' + made->kind + " id=\"" + made->name + '"' + made->attributes + '>' + made->content + "</" +
                    made->kind + '>';
    return text + "</defs>";
}

/// What it holds now tells also of those in it.
void keep(Document& document, Made made) {
    model::Extras extras = document.root().extras();
    if (const Definition* const outer = readAs(document, made.kind, made.name))
        std::erase_if(extras.definitions, [&](const auto& each) {
            const Definition* const inner = readAs(document, each->kind, each->name);
            return inner && isInside(*inner, *outer);
        });
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
    if (node.extras().ownMask || node.units() || node.clip()) return false; // they lie in units of this document's
    if (node.type() != NodeType::Opaque) return !(node.isOutlined() && node.keepsPlace());
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

/// A symbol as instances show it: its box, if it has one, is fitted into theirs. What lies outside of that counts to
/// the bounds, as for the renderer.
class UsedSymbol {
  public:
    UsedSymbol(Document& document, const std::string& name) : page_{document.width(), document.height()} {
        if (const std::string tag = startTagOf(document, "symbol", name); !tag.empty()) tag_ = tag;
        std::string content = contentOf(document, "symbol", name);
        if (content.find('#') != content.npos) content.insert(0, definitionsIn(document));
        try {
            const auto drawing = readIn(document, tag_, content, name);
            drawing->measure();
            art_ = boundsOf(drawing->root(), {});
            box_ = {drawing->width(), drawing->height()};
        } catch (const FileError&) { // as in readDefinition
        }
    }

    /// One that shows it where its own units say, as large as it is.
    [[nodiscard]] model::SymbolData whereItIs() const {
        const std::vector<double> box = numbers(attribute("viewBox"));
        if (box.size() != 4 || !hasBox()) return {};
        return {.symbol = {}, .place = {1, 0, 0, 1, box[0], box[1]}, .size = model::Point{box[2], box[3]}};
    }
    /// From its drawing to the units of an instance.
    [[nodiscard]] model::Affine fitted(const model::SymbolData& use) const {
        if (!hasBox()) return {};
        const model::Point size = use.size.value_or(page_);
        const std::string fit = attribute("preserveAspectRatio");
        const auto says = [&](std::string_view word) { return fit.find(word) != fit.npos; };
        model::Affine by{size.x / box_.x, 0, 0, size.y / box_.y, 0, 0};
        if (!says("none")) by.a = by.d = says("slice") ? std::max(by.a, by.d) : std::min(by.a, by.d);
        const auto before = [&](std::string_view first, std::string_view last) {
            return says(first) ? 0 : says(last) ? 1 : 0.5;
        };
        by.e = (size.x - box_.x * by.a) * before("xMin", "xMax");
        by.f = (size.y - box_.y * by.d) * before("YMin", "YMax");
        return by;
    }
    /// Empty where they cannot be told.
    [[nodiscard]] model::Box boundsIn(const model::SymbolData& use) const {
        return transformed(art_, fitted(use) * use.place);
    }

  private:
    [[nodiscard]] std::string attribute(std::string_view name) const {
        return std::string(trimmed(Tag(tag_).find(name).value_or("")));
    }
    [[nodiscard]] bool hasBox() const { return !attribute("viewBox").empty() && box_.x > 0 && box_.y > 0; }

    std::string tag_ = "<symbol>";
    model::Point page_;
    model::Point box_; ///< its size
    model::Box art_;
};

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

std::optional<DefinitionText> definitionText(Document& document, std::string_view kind, std::string_view name) {
    std::string startTag = startTagOf(document, kind, name);
    if (startTag.empty()) return std::nullopt;
    return DefinitionText{std::move(startTag), contentOf(document, kind, name)};
}

std::string DefinitionChain::find(std::string_view attribute) const {
    for (const std::string& text : tags) {
        const Tag tag(text);
        if (const auto value = tag.find(attribute)) return std::string(trimmed(*value));
    }
    return {};
}

DefinitionChain definitionChain(Document& document, std::initializer_list<std::string_view> kinds,
                                std::string_view name) {
    constexpr std::size_t kLongest = 32;
    DefinitionChain chain;
    std::string next(name);
    while (!next.empty() && chain.tags.size() < kLongest) {
        std::optional<DefinitionText> text;
        for (const std::string_view kind : kinds) {
            if (!text) text = definitionText(document, kind, next);
            if (text && chain.kind.empty()) chain.kind = kind;
        }
        if (!text) break;
        if (chain.holder.empty() && text->content.find('<') != std::string::npos) {
            chain.content = text->content;
            chain.holder = next;
        }
        const Tag tag(text->startTag);
        const std::string_view link = trimmed(tag.find("href").value_or(tag.find("xlink:href").value_or("")));
        next = link.substr(0, 1) == "#" ? link.substr(1) : "";
        chain.tags.push_back(std::move(text->startTag));
    }
    return chain;
}

std::string keepDefinition(Document& document, std::string_view kind, std::string attributes, std::string content) {
    std::string name = freeName(document, kind);
    keep(document, {std::string(kind), name, std::move(attributes), std::move(content)});
    return name;
}

std::unique_ptr<Document> readDefinition(Document& document, std::string_view kind, std::string_view name) {
    const auto text = definitionText(document, kind, name);
    if (!text) return nullptr;
    try {
        return readIn(document, text->startTag, text->content, name);
    } catch (const FileError&) { // it needs something that stands around it
        return nullptr;
    }
}

namespace {

void hold(Document& document, std::string_view kind, std::string_view name, const std::string& content) {
    const Definition* const known = readAs(document, kind, name);
    const Made* const made = madeAs(document, kind, name);
    if ((made || known) && contentOf(document, kind, name) == content) return;
    const model::Journal::Scope change(document.journal());
    if (const Made* const around = known && !made ? madeAround(document, *known) : nullptr) {
        const Made holder = *around;
        const auto held = readDefinition(document, holder.kind, holder.name);
        if (!held) return;
        hold(*held, kind, name, content);
        redefine(document, holder.kind, holder.name, *held);
    } else {
        keep(document, {std::string(kind), std::string(name), made ? made->attributes : "", content});
    }
    if (kind != "symbol") return;
    std::optional<UsedSymbol> symbol;
    for (Node* node = &document.root(); node; node = nextWithin(document.root(), *node)) {
        if (!node->symbol() || node->symbol()->symbol != name) continue;
        if (!symbol) symbol.emplace(document, std::string(name));
        document.setBounds(*node, symbol->boundsIn(*node->symbol()));
    }
}

} // namespace

void redefine(Document& document, std::string_view kind, std::string_view name, Document& edited) {
    hold(document, kind, name, contentOf(edited));
}

std::string writeWith(Document& document, const std::vector<EditedDefinition>& edited) {
    if (edited.empty()) return write(document);
    Document stead(document.width(), document.height()); // takes what the document itself must not
    stead.origin = document.origin;
    stead.setExtras(stead.root(), document.root().extras());
    for (const EditedDefinition& each : edited) hold(stead, each.kind, each.name, contentIn(*each.drawing, each.text));
    return write(document, stead.root().extras().definitions);
}

namespace {

struct Drawn {
    std::string attributes; ///< that bind prefixes
    std::string content;
};

/// A copy of the art, as it is written; none where that cannot be made.
std::optional<Drawn> drawn(const Document& document, const Node& art) {
    // What style sheets say of such elements, the copy has to rule out.
    const Source* const source = sourceOf(document);
    const auto drawing = source && source->hasStyleSheet
                             ? readIn(document, "<symbol>", "", "")
                             : std::make_unique<Document>(document.width(), document.height());
    if (!copyInto(*drawing, drawing->currentLayer(), art)) return std::nullopt;
    Drawn result;
    for (const auto& [prefix, uri] : kBindings)
        result.attributes.append(" ").append(prefix).append("=\"").append(uri).append("\"");
    try {
        result.content = inAscii(contentOf(*drawing));
    } catch (const UnsavableError&) {
        return std::nullopt;
    }
    return result;
}

} // namespace

std::optional<std::string> define(Document& document, std::string_view kind, Node& art) {
    std::optional<Drawn> made = drawn(document, art);
    if (!made) return std::nullopt;
    std::string& attributes = made->attributes;
    if (kind == "symbol") attributes += " overflow=\"visible\"";
    if (kind == "pattern") {
        const model::Box box = boundsOf(art, {});
        if (box.isEmpty()) return std::nullopt;
        const std::string size[] = {number(box.right - box.left), number(box.bottom - box.top)};
        attributes += " patternUnits=\"userSpaceOnUse\" x=\"" + number(box.left) + "\" y=\"" + number(box.top) +
                      "\" width=\"" + size[0] + "\" height=\"" + size[1] + "\" viewBox=\"" + number(box.left) + ' ' +
                      number(box.top) + ' ' + size[0] + ' ' + size[1] + '"'; // else it would begin at the tile's corner
    }
    return keepDefinition(document, kind, std::move(attributes), std::move(made->content));
}

bool makeMask(Document& document, Node& art, Node& by) {
    document.measure();
    const model::Box bounds = boundsOf(by, {.strokes = true});
    std::optional<Drawn> made = drawn(document, by);
    if (!made || bounds.isEmpty()) return false;
    const model::Box box{bounds.left - 1, bounds.top - 1, bounds.right + 1, bounds.bottom + 1}; // for smooth edges
    model::Extras extras = art.extras();
    extras.ownMask = model::Shared(
        model::MaskDrawing{std::move(made->attributes), std::move(made->content), box, inverse(art.placed())});
    const model::Journal::Scope change(document.journal());
    document.setExtras(art, std::move(extras));
    Document::setHasOwnUnits(art); // so that the mask goes along
    document.remove(by);
    return true;
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
    to.transform(copy, by, scaleOf(by));
    return true;
}

void setSymbol(Document& document, Node& instance, const std::string& name) {
    model::SymbolData use = instance.symbol() ? *instance.symbol() : model::SymbolData{};
    if (use.symbol == name) return;
    const UsedSymbol symbol(document, name);
    if (instance.symbol())
        use.size = use.size ? use.size : symbol.whereItIs().size;
    else
        use = symbol.whereItIs();
    use.symbol = name;
    const model::Journal::Scope change(document.journal());
    document.setBounds(instance, symbol.boundsIn(use));
    document.setSpecial(instance, std::move(use));
}

bool canBeCopied(Document& drawing) {
    for (const Node* layer = drawing.root().firstChild(); layer; layer = layer->next()) {
        if (layer->content().extras || layer->clip()) return false;
        for (const Node* art = layer->firstChild(); art; art = nextWithin(*layer, *art))
            if (!canBeCopied(*art)) return false;
    }
    return true;
}

namespace {

/// Whether what an instance shows may be painted by what stands around it, or by itself.
bool passesOnPaint(const Document& document, const Node& instance) {
    const Source* const source = sourceOf(document);
    const std::uint32_t origin = instance.copied() ? instance.copied()->origin : instance.origin();
    if (!source || origin == 0) return false;
    const Element& element = source->elements[origin - 1];
    const Container& around = source->containers[element.container];
    Surroundings surroundings(*source);
    return !(around.style == initialStyle()) || !around.inherited.empty() ||
           std::any_of(std::begin(kInherited), std::end(kInherited), [&](const Inherited& each) {
               return each.isPaint && !surroundings.says(element, each.name).empty();
           });
}

} // namespace

bool expandInstance(Document& document, Node& instance) {
    const model::SymbolData use = *instance.symbol();
    const auto symbol = readDefinition(document, "symbol", use.symbol);
    if (!symbol || !canBeCopied(*symbol) || passesOnPaint(document, instance)) return false;
    const model::Affine fit = UsedSymbol(document, use.symbol).fitted(use);
    const model::Journal::Scope change(document.journal());
    Node& group = document.createInPlaceOf(instance, NodeType::Group);
    for (const Node* layer = symbol->root().lastChild(); layer; layer = layer->previous())
        for (const Node* art = layer->lastChild(); art; art = art->previous()) {
            if (!copyInto(document, group, *art, fit * use.place * instance.opaque().placed())) continue;
            if (layer->hidden()) document.setHidden(*group.firstChild(), true);
        }
    document.remove(instance);
    return true;
}

} // namespace easel::svg
