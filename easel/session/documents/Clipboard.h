// Art that was cut or copied.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "model/Document.h"
#include "session/documents/Documents.h"

namespace easel::session {

/// Goes on as a drawing that other programs can read, and to the document that it comes from as it was there, with all
/// that only its file knows of it.
class Clipboard {
  public:
    explicit Clipboard(const Documents& documents) : documents_(documents) {}

    /// Takes art of the document in front, the topmost first; none leaves it as it is.
    void take(const std::vector<model::Node*>& art);
    /// Makes it art again, on top of the current layer of the document in front, and selects that alone. A second time
    /// it goes a little farther aside; the first time too, while what was copied is still there. Returns how many
    /// objects it could not make, which need what stands in the file that they come from. Throws Error for a text that
    /// is no drawing.
    std::size_t paste(bool inPlace);

    // The drawing, as SVG
    [[nodiscard]] const std::string& text() const { return text_; } ///< what can be said of it alone
    void setText(std::string text);                                 ///< from another program
    [[nodiscard]] unsigned changes() const { return changes_; }     ///< how often something was taken
    [[nodiscard]] bool isEmpty() const { return snapshots_.empty() && text_.empty(); }

  private:
    [[nodiscard]] std::vector<model::Node*> makeAgain(model::Document& document) const;
    [[nodiscard]] std::vector<model::Node*> makeFromText(model::Document& document, std::size_t& left) const;

    const Documents& documents_;
    std::string text_;
    std::vector<model::Snapshot> snapshots_;
    std::uint32_t from_ = 0;  ///< the number of their document
    std::size_t missing_ = 0; ///< of these, that the text cannot say
    std::vector<model::NodeId> taken_;
    int pasted_ = 0;
    unsigned changes_ = 0;
};

} // namespace easel::session
