// Values as SVG writes them, numbers as short as they can be without changing; and start tags, changed in place.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/Types.h"

namespace easel::svg {

void appendNumber(std::string& out, double value);
void appendEscaped(std::string& out, std::string_view text);
/// Characters beyond ASCII become references, for files whose encoding may not have them.
void appendAsciiEscaped(std::string& out, std::string_view text);
/// Markup with such references, which is the same in the encodings of all files. Its names are ASCII.
[[nodiscard]] std::string inAscii(std::string_view markup);

/// The text of an attribute as it is written, with its references resolved but for those to what a document declares.
/// `offsets` takes where each byte of it comes from, and where the end does: a reference that is not resolved is one
/// ampersand then.
[[nodiscard]] std::string unescaped(std::string_view text, std::vector<std::size_t>* offsets = nullptr);

[[nodiscard]] std::string pathData(const std::vector<model::PathData>& subpaths);
/// Corner or smooth, a letter for each point; empty where the handles tell it.
[[nodiscard]] std::string nodeTypes(const std::vector<model::PathData>& subpaths);
/// The handles outside the ends of open paths; empty where there are none.
[[nodiscard]] std::string outerHandles(const std::vector<model::PathData>& subpaths);

using Property = std::pair<std::string_view, std::string>;
/// What must be said of a style where `assumed` holds otherwise; all of it where nothing can be assumed.
[[nodiscard]] std::vector<Property> properties(const model::Style& style, const model::Style* assumed);

/// Behind the start tag that the text begins with; values may contain brackets.
[[nodiscard]] std::size_t behindTag(std::string_view text);

/// A start tag as it stands in a file. What is not set, removed or renamed keeps its bytes.
class Tag {
  public:
    using Defaults = std::map<std::string, std::string, std::less<>>;

    /// `text` is well-formed. `defaults` hold for attributes that it does not have; they stay when these are removed.
    explicit Tag(std::string_view text, Defaults defaults = {});

    [[nodiscard]] std::string_view name() const { return name_; }
    /// A value as it is written, references unresolved.
    [[nodiscard]] std::optional<std::string_view> find(std::string_view attribute) const;
    /// The name of the attribute `local` with one of the prefixes; empty when there is none.
    [[nodiscard]] std::string find(const std::vector<std::string>& prefixes, std::string_view local) const;

    /// Replaces a value where it stands, or adds the attribute at the end. The value is already escaped.
    void set(std::string_view attribute, std::string value);
    void remove(std::string_view attribute);
    void rename(std::string name) { name_ = std::move(name); }
    void openUp(); ///< a tag that ends itself becomes one that has an end tag

    [[nodiscard]] std::string text() const;

  private:
    struct Attribute {
        std::string_view before; // white space
        std::string name;
        std::string_view between; // the equals sign and the space around it
        char quote;
        std::string value;
    };

    std::string name_;
    std::vector<Attribute> attributes_;
    Defaults defaults_;
    std::string tail_;
};

} // namespace easel::svg
