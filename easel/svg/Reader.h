// SVG in: what a document can hold is read, the rest is passed over. One user unit of the root is one point; its
// viewBox, where it has one, is the page. Groups marked as layers right below the root become layers, other art there
// goes to a layer of its own. Subpaths become paths in a group. Nothing is left to undo.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "model/Document.h"
#include "svg/FileError.h"

namespace easel::svg {

/// Throws FileError.
[[nodiscard]] std::unique_ptr<model::Document> open(const std::string& path);

/// Reads a whole drawing; `fileName` is what errors call it. Throws FileError.
[[nodiscard]] std::unique_ptr<model::Document> read(std::string_view bytes, const std::string& fileName);

} // namespace easel::svg
