// Builds a document element by element. Knows no parser: its caller reports tags, their attributes and where they
// stand.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/Document.h"
#include "svg/Attributes.h"
#include "svg/ClipPaths.h"
#include "svg/Source.h"

namespace easel::svg {

/// Where a tag stands in the text, or the reference to the entity that it stands in.
struct TagBytes {
    std::uint32_t begin;
    std::uint32_t end;
    bool inEntity;
};

class Builder {
  public:
    using Warn = std::function<void(const std::string& what)>;

    /// `sheets`: the texts of the drawing's style sheets, as far as they are known.
    Builder(std::shared_ptr<Source> source, Warn warn, const std::vector<std::string>& sheets);

    void bindPrefix(std::string_view prefix, std::string_view uri); ///< on the element that starts next
    void startElement(std::string_view name, Attributes attributes, TagBytes tag);
    void endElement(TagBytes tag);
    void linkSheet(); ///< a style sheet that is a file of its own
    [[nodiscard]] bool isInSheet() const { return sheet_.depth > 0; }
    [[nodiscard]] bool isInText() const { return text_.node; } ///< of art
    /// To be called while in one of these.
    void addCharacters(std::string_view text) { (isInSheet() ? sheet_.text : text_.contents) += text; }
    /// The texts of the style sheets met so far; where these are more than were known, what was read may look
    /// otherwise.
    [[nodiscard]] const std::vector<std::string>& sheets() const { return sheets_; }
    [[nodiscard]] bool hasRead() const { return source_->elements.size() > 1; } ///< anything but the root
    /// What elements of this name have where they do not say otherwise. Names as they are written.
    void addDefault(std::string_view tagName, std::string_view attribute, std::string_view value);
    /// The document, complete and with its origin.
    std::unique_ptr<model::Document> finish();

  private:
    /// A root, layer or group whose end has not been met.
    struct Open {
        std::uint32_t element;
        std::uint32_t container;
        model::Node* node; ///< null at the root, where art may be in no layer
        std::size_t deepest;
    };

    // Elements
    void startRoot(std::string_view element, const Attributes& attributes);
    void startGroup(const Attributes& attributes);
    void addShape(std::string_view element, const Attributes& attributes);
    void addForeign(std::string_view element, const Attributes& attributes);
    void addReference(const Attributes& attributes);
    void measureInside(std::string_view element, const Attributes& attributes);
    void endSkipped();
    void noteUnmeasured(std::string_view element, const model::Node& node);
    void startSheet();
    void endSheet();
    void startDefinition(std::string_view element, const Attributes& attributes, TagBytes tag);
    void noteUndrawn(std::string_view element, TagBytes tag);
    void addSpecial(std::string_view element, model::Node& node, const Attributes& attributes);
    void endText();
    void nameSymbols();

    // Parts of them
    model::Node& newLayer(const Attributes& attributes);
    model::Node& add(model::NodeType type, const Attributes& attributes);
    model::Node& addOutlined(const Attributes& attributes, std::vector<model::PathData> subpaths,
                             const model::Style& style);
    model::Node& addOpaque(const Attributes& attributes, Reason reason, const model::Box& bounds);
    model::Node& nextLayer(std::string_view title);
    model::Node& newImplicitLayer();
    void setFlags(model::Node& node, const Attributes& attributes);
    void keep(model::Node* node);
    void noteTransform(const Attributes& attributes);
    [[nodiscard]] Container insideOf(const Attributes& attributes) const; ///< what an element passes on
    void openContainer(Container inner, model::Node* node);
    [[nodiscard]] Units units(const Attributes& attributes) const; ///< of an element in the innermost container
    [[nodiscard]] const Container& container() const;              ///< the innermost that is open
    [[nodiscard]] const model::Affine& around() const;
    [[nodiscard]] Element& latest() { return source_->elements.back(); }

    std::shared_ptr<Source> source_;
    Warn warn_;
    std::unique_ptr<model::Document> document_;
    std::vector<Open> open_;
    ClipPaths clipPaths_;
    TagBytes tag_{};
    model::Affine toPage_; // of the element that has just started
    std::size_t depth_ = 0;
    std::size_t anchors_ = 0;
    std::size_t subpaths_ = 0; // of compound paths
    /// Elements that are not read, nor anything in them.
    struct Skipped {
        std::size_t open = 0;
        bool isLatest = false; ///< the outermost is the latest element
        std::size_t deepest = 0;
    } skipped_;
    /// Opaque art that is as large as what is in it.
    struct Measuring {
        model::Node* node = nullptr;
        model::Box box;
        std::vector<std::optional<model::Affine>> transforms; ///< of open elements; none where nothing is shown
    } measuring_;
    /// A text of the drawing that is open.
    struct OpenText {
        model::Node* node = nullptr;
        model::TextData data;
        std::string contents;
        bool preservesSpace = false;
    } text_;
    std::vector<std::pair<std::size_t, std::size_t>> openDefinitions_; // depths and indices
    std::size_t undrawnDepth_ = 0;                                     // of the outermost that is open; 0: none is
    std::vector<std::pair<model::Node*, model::SymbolData>> uses_;     // of what has an id
    /// A style element that is open.
    struct Sheet {
        std::size_t depth = 0; ///< 0: none is
        std::string text;
    } sheet_;
    std::vector<std::string> sheets_;
    std::vector<Styled> styled_;      // the open elements, where there are rules
    std::uint32_t lastReference_ = 0; // where the latest art from an entity is referred to
    bool firstLayerTaken_ = false;
    model::Node* implicitLayer_ = nullptr; // takes the art at the root, until a layer begins
};

} // namespace easel::svg
