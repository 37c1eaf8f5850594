// SVG out: a document as readable text.
#pragma once

#include <string>

#include "model/Document.h"
#include "svg/FileError.h"

namespace easel::svg {

/// The document as SVG. Reading it again gives a document with the same content.
[[nodiscard]] std::string write(model::Document& document);

/// Replaces the file at `path`, or leaves it as it was and throws FileError: also when the document is so large or
/// nests so deeply that it could not be read again.
void save(model::Document& document, const std::string& path);

} // namespace easel::svg
