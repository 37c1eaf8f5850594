// What a drawing keeps under a name and draws where it is referred to: symbols and patterns. One can be read as a
// drawing of its own, changed as any other, and put back.
#pragma once

#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/Document.h"

namespace easel::svg {

/// What a document keeps of definitions that are new, or hold something else than was read.
using MadeDefinitions = std::vector<model::Shared<model::Definition>>;

/// The names of all of a kind ("symbol", "pattern", "linearGradient", "radialGradient").
[[nodiscard]] std::vector<std::string> definitionNames(model::Document& document, std::string_view kind);

/// Its start tag and what it holds, as they are written; none where there is none of this name.
struct DefinitionText {
    std::string startTag;
    std::string content;
};
[[nodiscard]] std::optional<DefinitionText> definitionText(model::Document& document, std::string_view kind,
                                                           std::string_view name);
/// What a definition says and, where it does not, those that it refers to.
struct DefinitionChain {
    std::string kind;              ///< of the first; empty where there is none of this name
    std::vector<std::string> tags; ///< from the first on
    std::string content;           ///< of the first that holds anything,
    std::string holder;            ///< and its name

    [[nodiscard]] std::string find(std::string_view attribute) const; ///< empty where nothing is said
};
[[nodiscard]] DefinitionChain definitionChain(model::Document& document, std::initializer_list<std::string_view> kinds,
                                              std::string_view name);

/// Keeps a new one in the document; its name. The attributes begin with a space, and bind the prefixes of the content.
[[nodiscard]] std::string keepDefinition(model::Document& document, std::string_view kind, std::string attributes,
                                         std::string content);

/// What it holds, as a document; null where there is none of this name, or none that can be read by itself.
[[nodiscard]] std::unique_ptr<model::Document> readDefinition(model::Document& document, std::string_view kind,
                                                              std::string_view name);
/// Makes it hold what such a document holds now. Throws UnsavableError.
void redefine(model::Document& document, std::string_view kind, std::string_view name, model::Document& edited);

struct EditedDefinition {
    std::string kind;
    std::string name;
    const model::Document* drawing; ///< such a document,
    std::string text;               ///< as it is written now
};
/// The document as SVG in which these hold what their documents do; changes none of them. Throws UnsavableError.
[[nodiscard]] std::string writeWith(model::Document& document, const std::vector<EditedDefinition>& edited);

/// Makes a symbol or a pattern of a copy of the art; its name, or none when there is something in the art of which no
/// copy can be made.
[[nodiscard]] std::optional<std::string> define(model::Document& document, std::string_view kind, model::Node& art);

/// Makes opaque art an instance of a symbol, in the bounds that go with it: where the symbol's own units say, as large
/// as it is, or where it was an instance of another.
void setSymbol(model::Document& document, model::Node& instance, const std::string& name);

/// Makes other art, which leaves the drawing, the mask of art that has none; false as above.
[[nodiscard]] bool makeMask(model::Document& document, model::Node& art, model::Node& by);

/// Copies art into a container of another document, after a transform. False when there is something in it of which no
/// copy can be made: what Easel knows nothing of.
[[nodiscard]] bool copyInto(model::Document& to, model::Node& container, const model::Node& art,
                            const model::Affine& by = {});

/// Whether all art in a drawing can be copied so.
[[nodiscard]] bool canBeCopied(model::Document& drawing);

/// Puts a group with a copy of what it shows in the place of a symbol's instance. False where there is something in it
/// of which no copy can be made, and where paint may come from the instance or from around it.
bool expandInstance(model::Document& document, model::Node& instance);

} // namespace easel::svg
