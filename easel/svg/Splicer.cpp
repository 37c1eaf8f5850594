// One walk over the nodes in paint order, from the bottom, with a cursor in the text of each element that is open: what
// lies between the nodes is copied on the way. Nothing recurses.
#include "svg/Splicer.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>
#include <vector>

#include "svg/ElementText.h"
#include "svg/FileError.h"
#include "svg/Limits.h"
#include "svg/SaveCheck.h"
#include "svg/SplicedText.h"
#include "svg/Values.h"

namespace easel::svg {

namespace {

using model::Document;
using model::Node;
using model::NodeType;

/// An object to be written.
struct Item {
    const Node* node;
    const Element* element; ///< null: made here
    bool inPlace = false;   ///< stands where it was read
};

/// Line breaks with the indentation that follows.
struct Layout {
    std::string ownBreak;   ///< before the element
    std::string childBreak; ///< before what is in it
    std::string tail;       ///< before its end tag
};

/// An element whose contents are being written.
struct Level {
    const Element* element = nullptr; ///< null: made here
    Place place;                      ///< of what is inside
    bool elsewhere = false;           ///< the element, or one around it, has been put elsewhere
    std::size_t depth = 0;
    std::vector<Item> items;
    std::size_t next = 0;
    const Element* firstInPlace = nullptr;
    bool passedFirst = false;
    Layout layout;
    std::string closing; ///< the end tag, where the text has none
    std::string behind;  ///< to be written after the end tag

    // In the text that was read
    std::size_t cursor = 0;
    std::size_t contentEnd = 0;
    std::size_t nextElement = 0; ///< index of the one that comes next
    bool atEnd = false;          ///< all of the text inside has been copied
};

/// Marks the longest row of items that follow one another in the file, of those that have stayed in their element.
void markInPlace(std::vector<Item>& items, std::uint32_t container) {
    std::vector<std::size_t> candidates;
    for (std::size_t i = 0; i < items.size(); ++i)
        if (items[i].element && items[i].element->container == container) candidates.push_back(i);
    const auto comesBefore = [&](std::size_t a, std::size_t b) {
        return items[a].element->begin < items[b].element->begin;
    };
    if (std::is_sorted(candidates.begin(), candidates.end(), comesBefore)) { // as nearly always
        for (const std::size_t candidate : candidates) items[candidate].inPlace = true;
        return;
    }
    const auto begin = [&](std::size_t index) { return items[candidates[index]].element->begin; };
    std::vector<std::size_t> ends;     // of the best row of each length
    std::vector<std::size_t> previous; // in the row that ends at a candidate
    for (std::size_t i = 0; i < candidates.size(); ++i) {
        const auto at = std::lower_bound(ends.begin(), ends.end(), begin(i),
                                         [&](std::size_t end, std::uint32_t value) { return begin(end) < value; });
        previous.push_back(at == ends.begin() ? candidates.size() : *(at - 1));
        if (at == ends.end())
            ends.push_back(i);
        else
            *at = i;
    }
    if (ends.empty()) return;
    for (std::size_t i = ends.back(); i != candidates.size(); i = previous[i]) items[candidates[i]].inPlace = true;
}

class Splicer {
  public:
    Splicer(Document& document, const Source& source, const MadeDefinitions& definitions)
        : document_(document),
          source_(source),
          definitions_(definitions),
          text_(source.text),
          elements_(document, source),
          elementCount_(source.elementCount),
          out_(source.text) {}

    SplicedText run() {
        for (const Node* node = &document_.root(); node; node = nextWithin(document_.root(), *node))
            if (node->origin() != 0 && !node->isSubpath()) fates_[node->origin() - 1] = Fate::Kept;
        const Element& root = source_.elements.front();
        replaceDefinitions();
        out_.copy(0, root.begin, false);
        openElement(document_.root(), root, elements_.startTag(document_.root(), root, Place{}), Place{}, 1, false);
        out_.add(newDefinitions(open_.back().place.prefix));
        while (!open_.empty()) {
            if (open_.back().next == open_.back().items.size())
                close();
            else
                step();
        }
        out_.copy(root.end, text_.size(), false);
        checkBeforeSaving(out_, fates_, source_);
        return std::move(out_);
    }

  private:
    // What is drawn where it is referred to

    [[nodiscard]] const Definition* known(const model::Definition& made) const {
        const auto found = std::find_if(source_.definitions.begin(), source_.definitions.end(),
                                        [&](const Definition& d) { return d.kind == made.kind && d.id == made.name; });
        return found == source_.definitions.end() ? nullptr : &*found;
    }

    void replaceDefinitions() {
        for (const auto& made : definitions_) {
            const Definition* const was = known(*made);
            if (was) replaceContent(out_, source_, *was, made->content);
        }
    }

    [[nodiscard]] std::string newDefinitions(const std::string& prefix) const {
        std::string text;
        for (const auto& made : definitions_) {
            if (known(*made)) continue;
            const std::string name = prefix + made->kind;
            text +=
                '<' + name + " id=\"" + made->name + '"' + made->attributes + '>' + made->content + "</" + name + '>';
        }
        return text.empty() ? text : '<' + prefix + "defs>" + text + "</" + prefix + "defs>";
    }

    // The walk

    void step() {
        Level& level = open_.back();
        const Item item = level.items[level.next++];
        std::string behind;
        if (item.inPlace) {
            copyTo(level, item.element->begin);
            level.cursor = item.element->end;
            level.nextElement = item.element->after;
            level.passedFirst = true;
        } else if (level.passedFirst) {
            out_.add(level.layout.childBreak);
        } else if (level.firstInPlace) {
            copyTo(level, level.firstInPlace->begin);
            behind = level.layout.childBreak;
        } else {
            copyToEnd(level);
            out_.add(level.layout.childBreak);
        }
        write(item, std::move(behind));
    }

    void write(const Item& item, std::string behind) {
        const Level& parent = open_.back();
        if (!item.inPlace) requireRoom(item);
        const Element* const told = item.element ? item.element : item.node->copied() ? &copiedOf(*item.node) : nullptr;
        const std::string mask = elements_.maskBefore(*item.node, told, parent.place);
        if (!mask.empty()) out_.add(mask + parent.layout.childBreak);
        if (!item.element && !item.node->copied() && item.node->content().special()) {
            out_.add(elements_.newSpecial(*item.node, parent.place));
        } else if (item.node->copied() && !isGroup(*item.node)) {
            out_.add(elements_.copiedElement(*item.node, copiedOf(*item.node), parent.place));
        } else if (!item.element) {
            const Node& node = *item.node;
            out_.add(node.copied() ? elements_.copiedTag(node, copiedOf(node), parent.place)
                                   : elements_.newTag(node, parent.place));
            if (isGroup(node) && (node.firstChild() || node.extras().clip)) return openNew(node, std::move(behind));
            out_.add("/>");
        } else if (isGroup(*item.node)) {
            const Place inside{item.element->inner, parent.place.prefix,
                               elements_.placedInside(*item.node, *item.element, parent.place)};
            const bool elsewhere = parent.elsewhere || !item.inPlace;
            std::string tag = elements_.startTag(*item.node, *item.element, parent.place);
            openElement(*item.node, *item.element, std::move(tag), inside, parent.depth + 1, elsewhere);
            open_.back().behind = std::move(behind);
            return;
        } else {
            writeLeaf(item);
        }
        out_.add(behind);
    }

    void requireRoom(const Item& item) {
        if (!item.element) ++elementCount_;
        if (elementCount_ > kMostElements)
            throw UnsavableError("more than " + std::to_string(kMostElements) + " objects cannot be saved");
        if (open_.back().depth + 1 + (item.element ? item.element->height : 0) > kDeepestElement)
            throw UnsavableError("groups nest too deeply to be saved");
    }

    void writeLeaf(const Item& item) {
        const Place& place = open_.back().place;
        const Element& element = *item.element;
        const bool elsewhere = open_.back().elsewhere || !item.inPlace;
        if (!elements_.isChanged(*item.node, element, place)) return out_.copy(element.begin, element.end, elsewhere);
        if (element.wrapped) {
            const std::string group = elements_.wrapper(*item.node, element, place);
            const bool isNeeded = group.find(' ') != group.npos;
            if (isNeeded) out_.add(group + '>');
            const std::string tag = elements_.wrappedTag(*item.node, element);
            const bool isChanged = tag != source_.startTag(element);
            if (isChanged) noteChange(element);
            if (isChanged) out_.add(tag);
            out_.copy(isChanged ? element.tagEnd : element.begin, element.end, elsewhere);
            if (isNeeded) out_.add("</" + place.prefix + "g>");
            return;
        }
        const std::string tag = elements_.startTag(*item.node, element, place);
        if (elements_.isRefilled(*item.node)) {
            fates_[item.node->origin() - 1] = Fate::Rewritten;
            return out_.add(elements_.refilled(*item.node, tag));
        }
        noteChange(element);
        out_.add(tag);
        const std::string_view before = source_.tagName(element);
        const std::string after(Tag(tag).name());
        if (element.tagEnd == element.end || before == after) return out_.copy(element.tagEnd, element.end, elsewhere);
        const std::size_t endTag = text_.rfind('<', element.end - 1);
        out_.copy(element.tagEnd, endTag, elsewhere);
        out_.add("</" + after + '>');
    }

    void openNew(const Node& node, std::string behind) {
        const Level& parent = open_.back();
        Level level;
        level.place = parent.place;
        level.elsewhere = parent.elsewhere;
        level.depth = parent.depth + 1;
        const std::string& own = parent.layout.childBreak;
        level.layout = {own, own.empty() ? "" : own + "  ", own};
        level.closing = "</" + level.place.prefix + "g>";
        if (node.copied()) {
            const Element& element = copiedOf(node);
            level.place = {element.inner, level.place.prefix, elements_.placedInside(node, element, parent.place)};
            level.closing = "</" + std::string(source_.tagName(element)) + '>';
        }
        if (!node.copied()) level.place.placed = elements_.placedInside(node, parent.place);
        level.behind = std::move(behind);
        level.atEnd = true;
        collect(node, level);
        out_.add('>' + elements_.clipPath(node, level.place));
        open_.push_back(std::move(level));
    }

    void openElement(const Node& node, const Element& element, std::string tag, Place inside, std::size_t depth,
                     bool elsewhere) {
        Level level;
        level.element = &element;
        level.place = std::move(inside);
        level.elsewhere = elsewhere;
        level.depth = depth;
        const std::string_view name = source_.tagName(element);
        const std::size_t colon = name.find(':');
        level.place.prefix = colon == std::string_view::npos ? "" : name.substr(0, colon + 1);
        level.cursor = element.tagEnd;
        level.nextElement = &element == &source_.elements.front() ? 1 : node.origin(); // the index behind its own
        collect(node, level);
        if (element.tagEnd == element.end) {
            level.contentEnd = element.end;
            const bool isRoot = open_.empty();
            if (!level.items.empty() || node.extras().clip || (isRoot && !definitions_.empty())) {
                Tag opened(tag);
                opened.openUp();
                tag = opened.text();
                level.closing = "</" + std::string(name) + '>';
            }
        } else {
            level.contentEnd = text_.rfind('<', element.end - 1);
        }
        level.layout = layoutOf(element, level.nextElement);
        if (tag == source_.startTag(element)) {
            out_.copy(element.begin, element.tagEnd, elsewhere);
        } else {
            noteChange(element);
            out_.add(tag);
            if (&element != &source_.elements.front()) out_.add(elements_.clipPath(node, level.place));
        }
        open_.push_back(std::move(level));
    }

    void close() {
        Level& level = open_.back();
        if (level.element && !level.atEnd) copyTo(level, level.contentEnd);
        out_.add(level.layout.tail);
        if (level.closing.empty())
            out_.copy(level.contentEnd, level.element->end, level.elsewhere);
        else
            out_.add(level.closing);
        out_.add(level.behind);
        open_.pop_back();
    }

    void noteChange(const Element& element) {
        const auto at = std::lower_bound(source_.elements.begin(), source_.elements.end(), element.begin,
                                         [](const Element& e, std::uint32_t begin) { return e.begin < begin; });
        fates_[static_cast<std::size_t>(at - source_.elements.begin())] = Fate::Changed;
    }

    // The text between

    /// Copies up to `to`, without the elements that are no longer there, but with what others may need of these.
    void copyTo(Level& level, std::size_t to) {
        while (level.nextElement < level.element->after && source_.elements[level.nextElement].begin < to) {
            const Element& gone = source_.elements[level.nextElement];
            const std::vector<Undrawn> left = leftBy(level.nextElement);
            const auto [from, until] =
                left.empty() ? lineOf(gone) : std::pair<std::size_t, std::size_t>(gone.begin, gone.end);
            out_.copy(level.cursor, std::max(from, level.cursor), level.elsewhere);
            for (const Undrawn& each : left) {
                if (&each != &left.front()) out_.add(level.layout.childBreak);
                out_.copy(each.begin, each.end, true);
            }
            level.cursor = std::max(until, level.cursor);
            level.nextElement = std::max<std::size_t>(gone.after, level.nextElement + 1);
        }
        out_.copy(level.cursor, to, level.elsewhere);
        level.cursor = to;
    }

    /// What stays of an element when it goes: what draws nothing itself, unless something around it goes elsewhere.
    [[nodiscard]] std::vector<Undrawn> leftBy(std::size_t gone) const {
        std::vector<Undrawn> left;
        const auto [begin, end] = source_.undrawnIn(source_.elements[gone].begin, source_.elements[gone].end);
        std::copy_if(begin, end, std::back_inserter(left), [&](const Undrawn& each) {
            std::size_t around = each.element;
            while (around != gone && fates_[around] == Fate::Removed)
                around = source_.containers[source_.elements[around].container].element;
            return fates_[around] == Fate::Removed;
        });
        return left;
    }

    /// Copies the rest, but keeps back the white space before the end tag.
    void copyToEnd(Level& level) {
        if (level.atEnd) return;
        const std::size_t start = out_.size();
        copyTo(level, level.contentEnd);
        level.atEnd = true;
        level.layout.tail = out_.cutSpace(start);
        if (level.layout.tail.find('\n') == std::string::npos) level.layout.tail = level.layout.ownBreak;
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

    [[nodiscard]] Layout layoutOf(const Element& element, std::size_t firstInside) const {
        Layout layout;
        layout.ownBreak = breakBefore(element.begin);
        if (layout.ownBreak.empty() && element.begin == 0 && text_.find('\n') != std::string::npos)
            layout.ownBreak = "\n";
        if (!layout.ownBreak.empty()) layout.childBreak = layout.ownBreak + "  ";
        if (firstInside >= element.after) return layout;
        const std::string first = breakBefore(source_.elements[firstInside].begin);
        if (!first.empty()) layout.childBreak = first;
        return layout;
    }

    // What is in an element

    [[nodiscard]] const Element& copiedOf(const Node& node) const {
        return source_.elements[node.copied()->origin - 1];
    }

    [[nodiscard]] const Element* elementOf(const Node& node) const {
        return node.origin() == 0 ? nullptr : &source_.elements[node.origin() - 1];
    }

    /// Whether this is a layer of art that is in none, as it was read.
    [[nodiscard]] bool isImplicit(const Node& layer) const {
        const auto known = source_.implicitLayers.find(layer.id().slot);
        return known != source_.implicitLayers.end() && known->second.id == layer.id() &&
               known->second.title == layer.name() && !layer.hidden() && !layer.locked() &&
               layer.extras() == model::Extras();
    }

    void collect(const Node& node, Level& level) const {
        bool endsImplicit = false; // art of two layers in a row would be read as that of one
        for (const Node* child = node.lastChild(); child; child = child->previous()) {
            const bool implicit = child->type() == NodeType::Layer && !endsImplicit && isImplicit(*child);
            if (!implicit) level.items.push_back({child, elementOf(*child)});
            if (!implicit) endsImplicit = false;
            if (!implicit || !child->firstChild()) continue;
            for (const Node* art = child->lastChild(); art; art = art->previous())
                level.items.push_back({art, elementOf(*art)});
            endsImplicit = true;
        }
        if (!level.element) return;
        markInPlace(level.items, level.place.container);
        const auto first =
            std::find_if(level.items.begin(), level.items.end(), [](const Item& i) { return i.inPlace; });
        if (first != level.items.end()) level.firstInPlace = first->element;
    }

    Document& document_;
    const Source& source_;
    const MadeDefinitions& definitions_;
    const std::string& text_;
    ElementText elements_;
    std::size_t elementCount_;
    SplicedText out_;
    std::vector<Fate> fates_ = std::vector<Fate>(source_.elements.size(), Fate::Removed);
    std::vector<Level> open_;
};

} // namespace

void replaceContent(SplicedText& text, const Source& source, const Definition& definition, std::string content) {
    if (definition.tagEnd < definition.end)
        return text.replace(definition.tagEnd, source.text.rfind('<', definition.end - 1), std::move(content));
    Tag tag(std::string_view(source.text).substr(definition.begin, definition.end - definition.begin));
    tag.openUp();
    text.replace(definition.begin, definition.end, tag.text() + content + "</" + std::string(tag.name()) + '>');
}

SplicedText spliced(Document& document, const Source& source, const MadeDefinitions& definitions) {
    return Splicer(document, source, definitions).run();
}

} // namespace easel::svg
