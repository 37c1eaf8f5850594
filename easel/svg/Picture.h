// Pictures of drawings.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "model/Mark.h"
#include "svg/FileError.h"

namespace easel::svg {

/// Renders a drawing on white, `scale` pixels a point, and replaces the PNG file at `path`. Throws FileError and leaves
/// the file as it was. Files that the drawing links to are not opened. `marks` lie over it; a screen unit is a pixel.
void exportPng(std::string_view svg, const std::string& path, double scale, const std::vector<model::Mark>& marks = {});
/// Likewise a PDF file of one page, `scale` points of it a point of the drawing.
void exportPdf(std::string_view svg, const std::string& path, double scale);

} // namespace easel::svg
