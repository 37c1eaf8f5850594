// The open documents with their numbers, and their way from and to files. Raises no events (see Session).
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "model/Document.h"
#include "model/Mark.h"
#include "model/PaintExpansion.h"
#include "session/base/Handles.h"
#include "session/base/Reports.h"

namespace easel::session {

/// The last one added is in front. Files that cannot be read or written throw Error.
class Documents {
  public:
    explicit Documents(Reports& reports) : reports_(reports) {}

    [[nodiscard]] model::Document* front() const;     ///< or null
    [[nodiscard]] model::Document& needFront() const; ///< throws Error when none is open

    // Numbers and handles; 0 and null stand for no document
    [[nodiscard]] model::Document* byNumber(std::uint32_t number) const;
    [[nodiscard]] std::uint32_t numberOf(const model::Document& document) const;
    [[nodiscard]] AIDocumentViewHandle viewOf(const model::Document& document) const;

    // Opening and closing
    /// How many bytes the undo steps of each document may take, from now on.
    void setHistoryLimit(std::size_t bytes);
    [[nodiscard]] std::size_t historyLimit() const { return historyLimit_; }
    void requireFreeNumber() const; ///< throws Error when all have been given out
    void add(std::unique_ptr<model::Document> document, const std::string& path = {});
    void bringToFront(const model::Document& document);
    void closeFront();
    std::function<void(const model::Document& document)> goes; ///< called before a document is closed, by whomever
    [[nodiscard]] std::size_t count() const { return open_.size(); }
    [[nodiscard]] model::Document* at(std::size_t index) const; ///< the one in front is 0; or null

    // What a document keeps under names, by its kind as files have it
    [[nodiscard]] static std::vector<std::string> definitions(model::Document& document, const std::string& kind);
    [[nodiscard]] static std::optional<std::string> define(model::Document& document, const std::string& kind,
                                                           model::Node& art);
    /// Makes opaque art an instance of a symbol that there is, in the bounds that go with it.
    static void setSymbol(model::Document& document, model::Node& instance, const std::string& name);

    /// Makes other art, which leaves the drawing, the mask of art that has none; false where no copy of it can be made.
    [[nodiscard]] static bool makeMask(model::Document& document, model::Node& art, model::Node& by);
    /// Take art apart; false where nothing was.
    static bool expandPaint(model::Document& document, model::Node& path, const model::PaintExpansion& what);
    static bool expandTexts(model::Document& document, const std::vector<model::Node*>& texts);
    /// Puts a group with a copy of what it shows in the place of a symbol's instance; false where that cannot be.
    static bool expandInstance(model::Document& document, model::Node& instance);

    // Symbols and patterns, each of which can be edited as a document of its own
    struct Edited {
        std::uint32_t owner = 0; ///< the document's number
        std::string kind;        ///< "symbol" or "pattern"
        std::string name;
    };
    /// Brings one to the front; throws Error where there is none that can be edited.
    void edit(model::Document& owner, const std::string& kind, const std::string& name);
    /// What the document is; null for one that stands for itself.
    [[nodiscard]] const Edited* editedAs(const model::Document& document) const;
    /// Puts what is in front back into its document, if that is still open, as one step, and brings that to the front.
    void endEditing();
    /// The document as SVG, with what of it is edited as that is now. Changes none. Throws Error.
    [[nodiscard]] std::string textOf(model::Document& document) const;
    /// The one that it is a part of; itself when it stands for itself, or that one is gone.
    [[nodiscard]] model::Document& wholeOf(model::Document& document) const;
    /// Those that stand for themselves and have unsaved changes in them, or in what of them is edited; in the order in
    /// which they were opened.
    [[nodiscard]] std::vector<model::Document*> unsaved() const;

    // What becomes of a document's file
    [[nodiscard]] const std::string& pathOf(const model::Document& document) const; ///< absolute; empty without a file
    void setPath(const model::Document& document, const std::string& path);         ///< and it is as in the file
    [[nodiscard]] bool isModified(const model::Document& document) const;
    void setModified(const model::Document& document, bool modified);

    // Files
    /// Reads a drawing, and reports what of it is not edited.
    [[nodiscard]] std::unique_ptr<model::Document> read(const std::string& path);
    /// Replaces the file; one that another program has changed only by `force`.
    static void write(model::Document& document, const std::string& path, bool force);
    /// A copy, which does not become the document's file; onto that of an open document it throws Error.
    void exportSvg(model::Document& document, const std::string& path) const;
    void exportPng(model::Document& document, const std::string& path, double scale,
                   const std::vector<model::Mark>& marks) const;
    void exportPdf(model::Document& document, const std::string& path, double scale) const;
    std::function<void(int seconds)> whileDrawing; ///< called as svg::Waiting while a picture is made

  private:
    struct Open {
        std::uint32_t number;
        std::unique_ptr<model::Document> document;
        std::string path{};
        std::uint64_t savedState = 0; ///< of the journal
        std::optional<Edited> edited{};
    };
    [[nodiscard]] std::size_t indexOf(const model::Document& document) const;

    Reports& reports_;
    std::vector<Open> open_;
    std::uint32_t lastNumber_ = 0;
    std::size_t historyLimit_ = model::Journal::kHistoryBytes;
};

} // namespace easel::session
