// One walk over the nodes in paint order, from the bottom, with a cursor in the text of each element that is open: what
// lies between the nodes is copied on the way. Nothing recurses.
#include "svg/Writer.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

#include "svg/ElementText.h"
#include "svg/Files.h"
#include "svg/Limits.h"
#include "svg/Names.h"
#include "svg/Packing.h"

namespace easel::svg {

namespace {

using model::Document;
using model::Node;
using model::NodeType;

constexpr std::string_view kSpace = " \t\r\n";

/// What a document that was made here is written into.
std::shared_ptr<const Source> emptyDrawing(const Document& document) {
    auto source = std::make_shared<Source>();
    std::string& text = source->text;
    text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    Element root;
    root.begin = static_cast<std::uint32_t>(text.size());
    const std::pair<std::string_view, std::string_view> spaces[] = {{"xmlns", kSvgNamespace},
                                                                    {"xmlns:inkscape", kInkscapeNamespace},
                                                                    {"xmlns:sodipodi", kSodipodiNamespace},
                                                                    {"xmlns:easel", kEaselNamespace}};
    text += "<svg";
    for (const auto& [name, uri] : spaces) {
        text += ' ';
        text += name;
        text += "=\"";
        text += uri;
        text += '"';
    }
    text += " width=\"";
    appendNumber(text, document.width());
    text += "pt\" height=\"";
    appendNumber(text, document.height());
    text += "pt\" viewBox=\"0 0 ";
    appendNumber(text, document.width());
    text += ' ';
    appendNumber(text, document.height());
    text += "\">";
    root.tagEnd = static_cast<std::uint32_t>(text.size());
    text += "\n</svg>";
    root.end = static_cast<std::uint32_t>(text.size());
    text += '\n';
    root.after = 1;
    Container container;
    container.style.fill = true;
    container.style.stroke = false;
    container.style.miterLimit = 4;
    container.depth = 1;
    source->containers.push_back(container);
    source->elements.push_back(root);
    source->transforms.emplace_back();
    source->elementCount = 1;
    source->inkscapePrefixes = {"inkscape"};
    source->sodipodiPrefixes = {"sodipodi"};
    source->easelPrefixes = {"easel"};
    return source;
}

void requireUsablePage(const Document& document) {
    for (const double size : {document.width(), document.height()}) {
        if (size > 0 && size <= kFarthestCoordinate) continue;
        throw FileError("a page of this size cannot be saved");
    }
}

class Writing {
  public:
    Writing(Document& document, const Source& source)
        : document_(document),
          source_(source),
          text_(source.text),
          elements_(source),
          elementCount_(source.elementCount) {}

    std::string run() {
        out_.reserve(text_.size() + text_.size() / 64 + 4096);
        copy(0, source_.elements.front().begin);
        openElement(document_.root(), source_.elements.front(), std::string(startTagOf(source_.elements.front())), 1);
        while (!open_.empty()) {
            if (open_.back().next == open_.back().items.size()) {
                close();
            } else {
                step();
            }
        }
        copy(source_.elements.front().end, text_.size());
        return std::move(out_);
    }

  private:
    struct Item {
        const Node* node;
        const Element* element; ///< null: made here
        bool inPlace = false;   ///< stands where it was read
    };
    struct Open {
        const Element* element = nullptr; ///< null: made here
        std::uint32_t container = 0;      ///< whose style and transform hold inside
        std::size_t depth = 0;
        std::string prefix; ///< of SVG's names inside
        std::vector<Item> items;
        std::size_t next = 0;
        std::size_t cursor = 0; ///< in the text
        std::size_t contentEnd = 0;
        std::size_t nextInFile = 0; ///< the element that comes next in the text
        const Element* firstInPlace = nullptr;
        bool passedFirst = false;
        bool atEnd = false;     ///< all of the text inside has been copied
        std::string tail;       ///< white space that belongs before the end tag
        std::string ownBreak;   ///< line break and indentation of the element
        std::string childBreak; ///< and of what is in it
        std::string closing;    ///< the end tag, where the text has none
        std::string afterwards; ///< to be written behind the end tag
    };

    [[nodiscard]] std::string_view startTagOf(const Element& element) const { return source_.startTag(element); }

    void copy(std::size_t from, std::size_t to) {
        // What stood between two brackets and a third one may be gone, but text must not close a section that is not
        // open.
        const std::string_view joint = std::string_view(text_).substr(from, std::min<std::size_t>(to - from, 2));
        const std::size_t tail = std::min<std::size_t>(out_.size(), 2);
        std::string seam = out_.substr(out_.size() - tail);
        if (seam.append(joint).find("]]>") != std::string::npos) out_ += "<!-- -->";
        out_.append(text_, from, to - from);
    }

    // The walk

    void step() {
        Open& open = open_.back();
        const Item item = open.items[open.next++];
        std::string afterwards;
        if (item.inPlace) {
            copyTo(open, item.element->begin);
            open.cursor = item.element->end;
            open.nextInFile = item.element->after;
            open.passedFirst = true;
        } else if (open.passedFirst) {
            out_ += open.childBreak;
        } else if (open.firstInPlace) {
            copyTo(open, open.firstInPlace->begin);
            afterwards = open.childBreak;
        } else {
            copyToEnd(open);
            out_ += open.childBreak;
        }
        write(item, afterwards);
    }

    void write(const Item& item, const std::string& afterwards) {
        const Open& parent = open_.back();
        const std::size_t depth = parent.depth + 1;
        if (!item.inPlace) {
            if (!item.element) ++elementCount_;
            if (elementCount_ > kMostElements) {
                throw FileError("more than " + std::to_string(kMostElements) + " objects cannot be saved");
            }
            if (depth + (item.element ? item.element->height : 0) > kDeepestElement) {
                throw FileError("groups nest too deeply to be saved");
            }
        }
        const Place place{parent.container, parent.prefix};
        if (!item.element) {
            out_ += elements_.newTag(*item.node, place);
            if (item.node->firstChild()) {
                openNew(*item.node, depth, afterwards);
                return;
            }
            out_ += "/>";
        } else if (item.node->isContainer()) {
            openElement(*item.node, *item.element, elements_.startTag(*item.node, *item.element, place), depth);
            open_.back().afterwards = afterwards;
            return;
        } else if (!elements_.isChanged(*item.node, *item.element, place)) {
            copy(item.element->begin, item.element->end);
        } else {
            out_ += elements_.whole(*item.node, *item.element, place);
        }
        out_ += afterwards;
    }

    void openNew(const Node& node, std::size_t depth, const std::string& afterwards) {
        const Open& parent = open_.back();
        Open open;
        open.container = parent.container;
        open.depth = depth;
        open.prefix = parent.prefix;
        open.ownBreak = parent.childBreak;
        open.childBreak = parent.childBreak.empty() ? "" : parent.childBreak + "  ";
        open.closing = "</" + open.prefix + "g>";
        open.afterwards = afterwards;
        open.atEnd = true;
        open.tail = open.ownBreak;
        collect(node, open);
        out_ += '>';
        open_.push_back(std::move(open));
    }

    void openElement(const Node& node, const Element& element, std::string tag, std::size_t depth) {
        Open open;
        open.element = &element;
        open.container = element.inner;
        open.depth = depth;
        const std::string_view name = source_.tagName(element);
        const std::size_t colon = name.find(':');
        if (colon != std::string_view::npos) open.prefix = name.substr(0, colon + 1);
        open.cursor = element.tagEnd;
        open.nextInFile = static_cast<std::size_t>(&element == &source_.elements.front() ? 1 : indexOf(node));
        collect(node, open);
        if (element.tagEnd == element.end) {
            open.contentEnd = element.end;
            if (!open.items.empty()) {
                Tag changed(tag);
                changed.openUp();
                tag = changed.text();
                open.closing = "</" + std::string(name) + '>';
            }
        } else {
            open.contentEnd = text_.rfind('<', element.end - 1);
        }
        open.ownBreak = breakBefore(element.begin);
        if (open.ownBreak.empty() && element.begin == 0 && text_.find('\n') != std::string::npos) open.ownBreak = "\n";
        open.childBreak = open.ownBreak.empty() ? "" : open.ownBreak + "  ";
        if (open.nextInFile < element.after) {
            const std::string first = breakBefore(source_.elements[open.nextInFile].begin);
            if (!first.empty()) open.childBreak = first;
        }
        out_ += tag;
        open_.push_back(std::move(open));
    }

    void close() {
        Open& open = open_.back();
        if (open.element) {
            if (!open.atEnd) copyTo(open, open.contentEnd);
            out_ += open.tail;
            if (open.closing.empty()) {
                copy(open.contentEnd, open.element->end);
            } else {
                out_ += open.closing;
            }
        } else {
            out_ += open.tail;
            out_ += open.closing;
        }
        out_ += open.afterwards;
        open_.pop_back();
    }

    /// The index behind the node's own element.
    [[nodiscard]] static std::size_t indexOf(const Node& node) { return node.origin(); }

    // The text between

    /// Copies up to `to`, without the elements that are no longer there.
    void copyTo(Open& open, std::size_t to) {
        while (open.nextInFile < open.element->after && source_.elements[open.nextInFile].begin < to) {
            const Element& gone = source_.elements[open.nextInFile];
            const auto [from, until] = lineOf(gone);
            copy(open.cursor, std::max(from, open.cursor));
            open.cursor = std::max(until, open.cursor);
            open.nextInFile = gone.after;
        }
        copy(open.cursor, to);
        open.cursor = to;
    }

    /// Copies the rest, but keeps back the white space before the end tag.
    void copyToEnd(Open& open) {
        if (open.atEnd) return;
        const std::size_t start = out_.size();
        copyTo(open, open.contentEnd);
        open.atEnd = true;
        std::size_t keep = out_.find_last_not_of(kSpace) + 1;
        keep = std::max(keep, start);
        open.tail = out_.substr(keep);
        out_.resize(keep);
        if (open.tail.find('\n') == std::string::npos) open.tail = open.ownBreak;
    }

    /// The element's bytes, and those of its lines when it has them for itself.
    [[nodiscard]] std::pair<std::size_t, std::size_t> lineOf(const Element& element) const {
        const std::string indent = breakBefore(element.begin);
        std::size_t behind = text_.find_first_not_of(" \t", element.end);
        if (behind == std::string::npos) behind = text_.size();
        if (behind < text_.size() && text_[behind] == '\r') ++behind;
        const bool lineEnds = behind < text_.size() && text_[behind] == '\n';
        if (indent.empty() || !lineEnds) return {element.begin, element.end};
        const std::size_t spaces = indent.size() - indent.find('\n') - 1;
        return {element.begin - spaces, behind + 1};
    }

    /// The line break and indentation before a place in the text; empty when something else stands before it.
    [[nodiscard]] std::string breakBefore(std::size_t at) const {
        std::size_t start = at;
        while (start > 0 && (text_[start - 1] == ' ' || text_[start - 1] == '\t')) --start;
        if (start == 0 || text_[start - 1] != '\n') return "";
        --start;
        if (start > 0 && text_[start - 1] == '\r') --start;
        return text_.substr(start, at - start);
    }

    // What is in an element

    [[nodiscard]] const Element* elementOf(const Node& node) const {
        return node.origin() == 0 ? nullptr : &source_.elements[node.origin() - 1];
    }

    /// Whether this is the layer of art that is in none, as it was read.
    [[nodiscard]] bool isImplicit(const Node& layer) const {
        return source_.strayLayer == layer.id() && layer.name() == kFirstLayerTitle && !layer.hidden() &&
               !layer.locked();
    }

    void collect(const Node& node, Open& open) const {
        std::vector<std::size_t> stray;
        std::vector<std::size_t> own;
        const auto add = [&](const Node& child, std::vector<std::size_t>& candidates) {
            const Element* const element = elementOf(child);
            const bool stayed = element && open.element && element->container == open.container;
            if (stayed) candidates.push_back(open.items.size());
            open.items.push_back({&child, element});
        };
        for (const Node* child = node.lastChild(); child; child = child->previous()) {
            if (child->type() != NodeType::Layer || !isImplicit(*child)) {
                add(*child, own);
                continue;
            }
            for (const Node* art = child->lastChild(); art; art = art->previous()) add(*art, stray);
        }
        markInPlace(open.items, own);
        markInPlace(open.items, stray);
        if (!stray.empty() && !own.empty()) sortByFile(open.items);
        for (const Item& item : open.items) {
            if (!item.inPlace) continue;
            open.firstInPlace = item.element;
            break;
        }
    }

    /// Marks the longest row of candidates that follow one another in the file; the others have been moved.
    static void markInPlace(std::vector<Item>& items, const std::vector<std::size_t>& candidates) {
        const auto begin = [&](std::size_t index) { return items[candidates[index]].element->begin; };
        std::vector<std::size_t> ends;     // of the best row of each length
        std::vector<std::size_t> previous; // in the row that ends at a candidate
        for (std::size_t i = 0; i < candidates.size(); ++i) {
            const auto at = std::lower_bound(ends.begin(), ends.end(), begin(i),
                                             [&](std::size_t end, std::uint32_t value) { return begin(end) < value; });
            previous.push_back(at == ends.begin() ? candidates.size() : *(at - 1));
            if (at == ends.end()) {
                ends.push_back(i);
            } else {
                *at = i;
            }
        }
        if (ends.empty()) return;
        for (std::size_t i = ends.back(); i != candidates.size(); i = previous[i]) items[candidates[i]].inPlace = true;
    }

    /// Layers and art outside of them may alternate in the file. What is not in place stays behind what it lies on.
    static void sortByFile(std::vector<Item>& items) {
        std::vector<std::pair<std::uint32_t, Item>> keyed;
        std::uint32_t key = 0;
        for (const Item& item : items) {
            if (item.inPlace) key = item.element->begin;
            keyed.emplace_back(key, item);
        }
        std::stable_sort(keyed.begin(), keyed.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
        for (std::size_t i = 0; i < items.size(); ++i) items[i] = keyed[i].second;
    }

    Document& document_;
    const Source& source_;
    const std::string& text_;
    ElementText elements_;
    std::size_t elementCount_;
    std::string out_;
    std::vector<Open> open_;
};

const Source* sourceOf(const Document& document) { return dynamic_cast<const Source*>(document.origin.get()); }

/// The text; `source` is null for a document that was made here.
std::string textOf(Document& document, const Source* source) {
    requireUsablePage(document);
    const std::shared_ptr<const Source> made = source ? nullptr : emptyDrawing(document);
    return Writing(document, source ? *source : *made).run();
}

std::string encoded(std::string text, const Source* source) {
    if (!source || source->encoding == Encoding::Utf8 || source->encoding == Encoding::OtherAscii) return text;
    return toUtf16(text, source->encoding == Encoding::Utf16Big);
}

bool asksForPacking(std::string_view path) {
    std::string end(path.substr(path.size() - std::min<std::size_t>(path.size(), 5)));
    for (char& c : end) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c | 0x20);
    }
    return end == ".svgz";
}

} // namespace

std::string write(Document& document) {
    const Source* const source = sourceOf(document);
    return encoded(textOf(document, source), source);
}

void save(Document& document, const std::string& path) {
    const Source* const source = sourceOf(document);
    std::string text;
    try {
        text = textOf(document, source);
    } catch (const FileError& error) {
        throw FileError(path + ": " + error.what());
    }
    const bool sameFile = source && source->fileName == path;
    const bool packs = asksForPacking(path) || (sameFile && source->packed);
    // Packing again need not give the same bytes, so those that were read are kept.
    if (source && packs == source->packed && text == source->text) {
        replaceFile(path, source->raw.empty() ? source->text : source->raw);
        return;
    }
    text = encoded(std::move(text), source);
    replaceFile(path, packs ? pack(text) : text);
}

} // namespace easel::svg
