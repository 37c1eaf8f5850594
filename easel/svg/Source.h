// What a drawing was read from: its bytes, and which of them each node came from. Saving copies whatever has not
// changed since. Reads and writes nothing itself.
#pragma once

#include <algorithm>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/Document.h"
#include "svg/Attributes.h"
#include "svg/KnownFiles.h"
#include "svg/Markup.h"
#include "svg/StyleSheet.h"
#include "svg/Units.h"

namespace easel::svg {

/// How the bytes of a file hold the text of the drawing.
enum class Encoding : std::uint8_t { Utf8, OtherAscii, Utf16Little, Utf16Big };

/// Why art is opaque.
enum class Reason : std::uint8_t {
    None,
    Kind,      ///< a text, an image, ...: the element's name tells
    Subpaths,  ///< more of them than objects in a drawing
    Anchors,   ///< more than plug-ins can count
    Singular,  ///< its transform is not invertible
    Transform, ///< has one that is no attribute, or is not understood
    Unit,      ///< has a length in units that are not known
    TooFar,    ///< some of it lies beyond the farthest coordinate
    Entity     ///< stands elsewhere in the file
};

/// An element that a node came from; what the node was like then, its document knows. Offsets are bytes of the source's
/// text.
struct Element {
    std::uint32_t begin = 0;     ///< of the start tag
    std::uint32_t tagEnd = 0;    ///< behind the start tag
    std::uint32_t end = 0;       ///< behind the end tag
    std::uint32_t after = 0;     ///< the first of the elements that follow and are not inside
    std::uint32_t container = 0; ///< index of what holds it
    std::uint32_t inner = 0;     ///< index of the container that it is, or of the compound path
    std::uint32_t toPage = 0;    ///< index of its transform
    std::uint16_t height = 0;    ///< how deeply elements nest in it, understood or not
    Reason reason = Reason::None;
    bool damaged = false;       ///< only the beginning of its outline could be read
    bool voidTransform = false; ///< its transform is "none", or cannot be read
    bool wrapped = false;       ///< takes no attribute itself: what changes goes to a group around it
};

/// Opaque art whose place is for the renderer to tell.
struct Unmeasured {
    std::uint32_t element = 0; ///< its index
    model::NodeId node;
    model::Shared<model::Box> bounds; ///< to be told
};

/// What text looks like, besides its paint.
struct TextLook {
    std::string font; ///< a family's name; empty for the renderer's default
    model::Justification justification = model::Justification::Left;
    model::Orientation orientation = model::Orientation::Horizontal;
    bool preservesSpace = false;
};

/// Something that is drawn where it is referred to by its id.
struct Definition {
    std::string id;
    std::string kind;         ///< the element's name
    std::uint32_t begin = 0;  ///< of the start tag
    std::uint32_t tagEnd = 0; ///< behind it
    std::uint32_t end = 0;    ///< behind the end tag
};

/// The bytes of elements that draw nothing themselves, and that others may need: gradients, clips, style sheets, ...
struct Undrawn {
    std::uint32_t element = 0; ///< index of the innermost around it
    std::uint32_t begin = 0;
    std::uint32_t end = 0;
};

/// What an element passes on to those inside it.
struct Container {
    model::Style style;        ///< inherited; lengths in the units of what is inside
    std::uint32_t element = 0; ///< index of its element
    std::uint32_t toPage = 0;
    std::uint16_t depth = 0; ///< 1 for the root
    Units units;             ///< what lengths inside are measured by
    TextLook text{};
    /// What is inherited besides, as it is written: gradients and patterns, opacity, markers.
    std::vector<std::pair<Name, std::string>> inherited;

    /// Empty when nothing is.
    [[nodiscard]] std::string_view inherits(Name name) const {
        for (const auto& [known, value] : inherited)
            if (known == name) return value;
        return {};
    }
    /// Whether art inside may be painted with what lies in its own units.
    [[nodiscard]] bool passesOnServers() const {
        return !inherits(Name::Fill).empty() || !inherits(Name::Stroke).empty();
    }
};

/// Whether art of any kind stands in it: a group, a layer or the root.
[[nodiscard]] inline bool isGroup(const model::Node& node) {
    return node.isContainer() && node.type() != model::NodeType::Compound;
}

class Source : public KnownFiles {
  public:
    std::string fileName;
    std::string raw;     ///< the file, where it is not the text itself
    bool packed = false; ///< the file was compressed
    Encoding encoding = Encoding::Utf8;
    std::string text;
    double sheetWidth = 0; ///< of the page on paper, in points of 1/72 inch; 0 where the file leaves that open
    double sheetHeight = 0;

    /// In the order of the text; the root comes first. A node's origin is the index of its element plus one.
    std::deque<Element> elements;
    std::deque<Container> containers;         ///< the root is the first
    std::deque<model::Affine> transforms;     ///< the first is the root's, for what is in it
    std::deque<model::OutlineList> compounds; ///< of compound paths, as they were read
    std::vector<Definition> definitions;      ///< in the order of the text
    std::vector<Undrawn> undrawn;             ///< the same, without those in others
    std::size_t elementCount = 0;             ///< those that no node came from included
    StyleSheet rules;                         ///< of its style sheets, as far as they are understood
    bool hasStyleSheet = false;
    bool sheetHasServers = false; ///< gradients, markers, clips, anything that lies in the units of what it is put on
    bool sheetInsists = false;    ///< with "!important"
    bool sheetHasUnread = false;  ///< at-rules, or what stands in another file
    bool sheetNamesGroups = false;
    bool fontsAreKnown = true; ///< no style sheet has to do with them
    std::map<std::string, Tag::Defaults>
        defaults; ///< attributes that elements have by the file's own grammar, by tag name

    /// A layer of art outside of all layers. It has no element.
    struct ImplicitLayer {
        model::NodeId id;
        std::string title; ///< that it was given
    };
    std::map<std::uint32_t, ImplicitLayer> implicitLayers;                      ///< by their slots
    std::vector<std::string> inkscapePrefixes, sodipodiPrefixes, easelPrefixes; ///< bound anywhere in the file
    bool prefixesAtRoot = true; ///< no element but the root binds any of them

    mutable std::vector<Unmeasured> unmeasured; ///< as long as nobody has asked where they are; no part of the drawing
    std::function<void(const std::string& line)> warn; ///< about the drawing, also later; may be empty

    void measure(model::Document& document) const override;

    /// What is undrawn in this part of the text, as the first and the one behind the last.
    [[nodiscard]] std::pair<std::vector<Undrawn>::const_iterator, std::vector<Undrawn>::const_iterator>
    undrawnIn(std::size_t begin, std::size_t end) const {
        const auto from = [&](std::size_t at) {
            return std::lower_bound(undrawn.begin(), undrawn.end(), at,
                                    [](const Undrawn& each, std::size_t place) { return each.begin < place; });
        };
        return {from(begin), from(end)};
    }

    /// For a part of another drawing, whose style sheets hold in it.
    void takeSheets(const Source& whole) {
        rules = whole.rules;
        hasStyleSheet = whole.hasStyleSheet;
        sheetHasServers = whole.sheetHasServers;
        sheetInsists = whole.sheetInsists;
        sheetHasUnread = whole.sheetHasUnread;
        fontsAreKnown = whole.fontsAreKnown;
    }

    [[nodiscard]] bool isWhatWasRead(std::string_view bytes) const override {
        return bytes == (raw.empty() ? text : raw);
    }

    [[nodiscard]] std::string_view startTag(const Element& element) const {
        return std::string_view(text).substr(element.begin, element.tagEnd - element.begin);
    }
    /// Of an element, with its prefix.
    [[nodiscard]] std::string_view tagName(const Element& element) const {
        const std::string_view tag = startTag(element).substr(1);
        return tag.substr(0, tag.find_first_of(" \t\r\n/>"));
    }
};

} // namespace easel::svg
