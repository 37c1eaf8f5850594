// SVG out. What was read and has not changed is copied byte for byte; a changed node changes its own element; a node
// made here gets an element beside its neighbours. Works on the bytes that the document keeps as its origin, and
// changes nothing in the document.
#pragma once

#include <cstdint>
#include <string>

#include "model/Document.h"
#include "svg/Definitions.h"
#include "svg/FileError.h"

namespace easel::svg {

/// The document as SVG, in the encoding that it was read from. Reading it again gives a document with the same content.
/// Throws UnsavableError when it could not be read again: too large, nested too deeply, or with
/// coordinates out of reach.
[[nodiscard]] std::string write(model::Document& document);
/// The same with these definitions instead of those that the document keeps.
[[nodiscard]] std::string write(model::Document& document, const MadeDefinitions& definitions);

/// Whether another program has changed the file since this document was opened from it or saved to it.
[[nodiscard]] bool isChangedByOthers(const model::Document& document, const std::string& path);

/// What the document knows of the file, for a document of another run that is saved there; empty for nothing.
[[nodiscard]] std::string toldOfFile(const model::Document& document, const std::string& path);
void noteToldOfFile(model::Document& document, const std::string& path, const std::string& told);

enum class Overwrite : std::uint8_t { IfUnchanged, Always };

/// Replaces the file at `path`, or leaves it as it was and throws FileError: also when another program has changed it
/// since this document was opened from it or saved to it, unless told to overwrite it always. Compresses when the name
/// ends in ".svgz", or when the drawing was read from this very file and that was compressed.
void save(model::Document& document, const std::string& path, Overwrite overwrite = Overwrite::IfUnchanged);

} // namespace easel::svg
