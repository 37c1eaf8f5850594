// SVG in. One user unit of the root is one point; its viewBox, where it has one, is the page. Groups marked as layers
// right below the root become layers, other art there goes to a layer of its own. What a document cannot hold becomes
// opaque art. The document keeps the file's bytes as its origin. Nothing is left to undo.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "model/Document.h"
#include "svg/FileError.h"

namespace easel::svg {

class Source;

/// Takes one line, `FILE:LINE:COLUMN: what was not read`, while reading goes on.
using Warn = std::function<void(const std::string& line)>;
/// Told now and then which share of the file has been read. What it throws ends the reading.
using Progress = std::function<void(double share)>;

/// Throws FileError.
[[nodiscard]] std::unique_ptr<model::Document> open(const std::string& path, const Warn& warn = {},
                                                    const Progress& progress = {});

/// Reads a whole file; `fileName` is what errors and warnings call it. Throws FileError.
[[nodiscard]] std::unique_ptr<model::Document> read(std::string bytes, const std::string& fileName,
                                                    const Warn& warn = {}, const Progress& progress = {});

/// The same for something in a drawing that was read, where the style sheets of the whole hold as well.
[[nodiscard]] std::unique_ptr<model::Document> readPart(std::string bytes, const std::string& fileName,
                                                        const Source& whole);

} // namespace easel::svg
