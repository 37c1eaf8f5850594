// Pictures of drawings, made by the renderer's process from what would be saved. Files that a drawing links to are not
// opened.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/Document.h"
#include "svg/FileError.h"
#include "svg/RenderProcess.h"

namespace easel::svg {

using render::PictureFormat;

/// By the end of the name, ".png" or ".pdf" in capitals or not.
[[nodiscard]] std::optional<PictureFormat> formatOf(std::string_view path);

struct PictureOptions {
    double scale = 1;                 ///< pixels a point (PNG), or enlargement of the sheet (PDF)
    double dpi = 0;                   ///< of a PNG, instead of the scale: pixels an inch of the sheet
    std::vector<model::Mark> marks{}; ///< lie over a PNG that is made by scale; a screen unit is a pixel
    Waiting waiting{};
};

/// What a drawing is printed on, in points of 1/72 inch. A file that does not tell its size has a point for each unit.
struct Sheet {
    double width = 0;
    double height = 0;
    bool told = true; ///< by the file
};
[[nodiscard]] Sheet sheetOf(const model::Document& document);

/// The bytes of a picture on white: a PNG of the page, or a PDF of one page, the sheet. Throws FileError, which names
/// the drawing's file, or `path` where it has none.
[[nodiscard]] std::string picture(model::Document& document, PictureFormat format, const PictureOptions& options,
                                  const std::string& path);

/// Puts the picture in the place of the file at `path`, whose name must end as the format does. Throws FileError and
/// leaves the file as it was.
void exportPicture(model::Document& document, PictureFormat format, const PictureOptions& options,
                   const std::string& path);

} // namespace easel::svg
