// The text of single elements: those made anew, and those that were read and have changed. Knows nothing of what stands
// around them.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>

#include "model/Document.h"
#include "svg/Markup.h"
#include "svg/Source.h"
#include "svg/Surroundings.h"

namespace easel::svg {

/// Where an element is written.
struct Place {
    std::uint32_t container = 0; ///< whose style and transform hold
    std::string prefix;          ///< of SVG's names, with its colon
    model::Affine placed;        ///< what has been done as a whole to what holds it, on the page
};

/// Every operation that writes throws FileError for what could not be read again.
class ElementText {
  public:
    ElementText(const model::Document& document, const Source& source)
        : document_(document), source_(source), surroundings_(source) {}

    /// The start tag of a node that was made here, without its end.
    [[nodiscard]] std::string newTag(const model::Node& node, const Place& place);

    /// The whole element of a text, a picture or a use of a symbol that was made here.
    [[nodiscard]] std::string newSpecial(const model::Node& node, const Place& place);
    /// What fades art that got its mask here, to stand before it; empty for others. `element`: as for what is read or
    /// copied, else null.
    [[nodiscard]] std::string maskBefore(const model::Node& node, const Element* element, const Place& place);
    /// What clips a group that got its clip here, to stand in it; empty for others.
    [[nodiscard]] std::string clipPath(const model::Node& group, const Place& inside);
    /// Whether the contents of a text are others than they were, and the whole element with them.
    [[nodiscard]] bool isRefilled(const model::Node& node) const;
    [[nodiscard]] std::string refilled(const model::Node& node, const std::string& startTag) const;

    /// The whole element of a duplicate that holds nothing, and the start tag, without its end, of one that does.
    [[nodiscard]] std::string copiedElement(const model::Node& node, const Element& element, const Place& place);
    [[nodiscard]] std::string copiedTag(const model::Node& node, const Element& element, const Place& place);

    [[nodiscard]] bool isChanged(const model::Node& node, const Element& element, const Place& place) const;
    /// The start tag of an element that was read.
    [[nodiscard]] std::string startTag(const model::Node& node, const Element& element, const Place& place);
    /// What is done as a whole to what a group holds, which is what its own element says.
    [[nodiscard]] model::Affine placedInside(const model::Node& group, const Element& element,
                                             const Place& place) const;
    [[nodiscard]] model::Affine placedInside(const model::Node& made, const Place& place) const; ///< of one made here
    /// The start tag of a group around an element that takes no attributes itself, without its end.
    [[nodiscard]] std::string wrapper(const model::Node& node, const Element& element, const Place& place);
    /// The start tag of such an element. No group around it can take back that it is not shown, or locked. Throws
    /// UnsavableError where that is said in an entity.
    [[nodiscard]] std::string wrappedTag(const model::Node& node, const Element& element);

  private:
    /// What it was like when it was read, or when what it copies was.
    [[nodiscard]] const model::Content& wasOf(const model::Node& node) const;

    // What goes along with what
    /// What has been done to art as a whole since it was read, and whether its outline has been changed besides.
    struct Done {
        model::Affine by;
        bool outlineChanged = false;
    };
    [[nodiscard]] Done doneTo(const model::Node& node, const model::Affine& around) const;
    [[nodiscard]] bool outlineTells(const model::Node& node, const Element& element, const Place& place) const;
    [[nodiscard]] model::Affine doneToUnits(const model::Node& node, const Element& element, const Place& place) const;
    [[nodiscard]] model::OutlineList original(const model::Node& node) const;
    [[nodiscard]] bool hasServers(const Element& element) const;
    [[nodiscard]] bool needsTransform(const Element& element) const;
    [[nodiscard]] model::Affine displacement(const model::Affine& by, const Element& element, const Place& place) const;
    [[nodiscard]] model::Affine toPageIn(const Place& place) const;
    [[nodiscard]] model::Affine unitsOf(const model::Node& made, const Place& place) const;
    [[nodiscard]] model::Affine unitsOf(const model::Node& node, const Element& element, const Place& place) const;
    struct Styles {
        model::Style before;
        model::Style now;
    };
    [[nodiscard]] Styles stylesOf(const model::Node& node, const Element& element, const model::Affine& by) const;

    // Attributes
    [[nodiscard]] Tag newTag(const model::Node& node, const Place& place, std::string_view name);
    std::string newText(const model::Node& node, model::Point anchor, const Place& place, Tag& tag);
    void newImage(const model::ImageData& image, const model::Affine& place, Tag& tag) const;
    void changeSpecial(Tag& tag, const model::Node& node, const Element& element) const;
    void changeText(Tag& tag, const model::TextData& is, const model::TextData& was, double scale) const;
    void changeLink(Tag& tag, const std::string& link) const;
    void change(Tag& tag, const model::Node& node, const Element& element, const Place& place);
    void changeOutline(Tag& tag, const model::Node& node, const model::Affine& toPage) const;
    void prefixTransform(Tag& tag, const Element& element, const model::Affine& transform) const;
    void setPaint(Tag& tag, const model::Node& node, const model::Style& style, const Container& container) const;
    [[nodiscard]] bool mayBeStyled(const Tag& group) const;
    [[nodiscard]] std::string groupStyle(bool hidden) const;
    void bringInherited(Tag& tag, const model::Node& node, const Element& element, const Place& place);
    void setLocked(Tag& tag, bool locked) const;
    void setExtras(Tag& tag, const model::Node& node, const model::Extras& was);
    void setExtras(Tag& tag, const model::Extras& is, const model::Extras& was) const; ///< but for a mask made here
    void setOwnMask(Tag& tag, const model::Node& node);
    void setOverprint(Tag& tag, const model::Style& style) const;
    void setOwn(Tag& tag, std::string_view local, std::string_view value) const; ///< an attribute of Easel's own
    void setProperty(Tag& tag, std::string_view name, const std::string& value) const;
    void setForeign(Tag& tag, const std::vector<std::string>& prefixes, std::string_view usualPrefix,
                    std::string_view uri, std::string_view local, std::string_view value) const;
    void setName(Tag& tag, const model::Node& node);
    void setOutline(Tag& tag, const model::Node& node, const model::Affine& toPage) const;
    [[nodiscard]] const std::string& newId(const model::Node& node, const char* kind);
    void setClip(Tag& tag, const model::Node& node);
    void takeOver(Tag& tag, const model::Node& made);
    [[nodiscard]] bool hasId(const std::string& name);
    [[nodiscard]] bool takeId(const std::string& name); ///< whether nothing in the file was called so
    [[nodiscard]] Tag tagOf(std::string_view text) const;
    [[nodiscard]] std::string escaped(std::string_view text) const;

    const model::Document& document_;
    const Source& source_;
    Surroundings surroundings_;
    std::optional<std::unordered_set<std::string_view>> ids_;
    std::map<std::pair<const model::Node*, std::string_view>, std::string> newIds_;
};

} // namespace easel::svg
