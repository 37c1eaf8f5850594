// Asks the renderer for a picture, once what is asked was checked.
#include "svg/Picture.h"

#include <sstream>

#include "svg/Files.h"
#include "svg/Limits.h"
#include "svg/Source.h"
#include "svg/Writer.h"

namespace easel::svg {

namespace {

using render::PictureRequest;
using render::Request;

constexpr double kPointsAnInch = 72;
constexpr const char* kEndings[] = {".png", ".pdf"}; ///< by PictureFormat

const Source* sourceOf(const model::Document& document) { return dynamic_cast<const Source*>(document.origin.get()); }

bool endsIn(std::string_view path, std::string_view ending) {
    if (path.size() <= ending.size()) return false;
    path.remove_prefix(path.size() - ending.size());
    return std::equal(path.begin(), path.end(), ending.begin(),
                      [](char a, char b) { return (a >= 'A' && a <= 'Z' ? a | 0x20 : a) == b; });
}

/// The page to draw on and how large.
PictureRequest requestFor(const model::Document& document, PictureFormat format, const PictureOptions& options) {
    PictureRequest request{.format = format, .scale = options.scale, .marks = options.marks};
    if (format == PictureFormat::Png && options.dpi == 0) {
        request.width = document.width();
        request.height = document.height();
        return request;
    }
    const Sheet sheet = sheetOf(document);
    request.width = sheet.width;
    request.height = sheet.height;
    if (format == PictureFormat::Png) request.scale = options.dpi / kPointsAnInch;
    return request;
}

void requireUsable(const PictureRequest& request, const std::string& path) {
    const bool isPng = request.format == PictureFormat::Png;
    const double most = isPng ? kMostPixels : kMostPdfPoints;
    const double width = request.width * request.scale;
    const double height = request.height * request.scale;
    if (width > 0 && height > 0 && width <= most && height <= most) return;
    std::ostringstream why;
    why << path << ": a " << (isPng ? "picture has 1 to " : "PDF page has up to ") << most
        << (isPng ? " pixels" : " points") << " along each side, not " << width << " x " << height;
    throw FileError(why.str());
}

} // namespace

std::optional<PictureFormat> formatOf(std::string_view path) {
    for (const PictureFormat format : {PictureFormat::Png, PictureFormat::Pdf})
        if (endsIn(path, kEndings[static_cast<std::size_t>(format)])) return format;
    return std::nullopt;
}

Sheet sheetOf(const model::Document& document) {
    const Source* const source = sourceOf(document);
    if (source && source->sheetWidth > 0) return {source->sheetWidth, source->sheetHeight};
    return {document.width(), document.height(), !source};
}

std::string picture(model::Document& document, PictureFormat format, const PictureOptions& options,
                    const std::string& path) {
    const PictureRequest request = requestFor(document, format, options);
    requireUsable(request, path);
    const Source* const source = sourceOf(document);
    const std::string svg = write(document);
    try {
        RenderProcess renderer(options.waiting);
        renderer.ask(Request::Load, svg);
        render::Packer packed;
        packed << request;
        return renderer.ask(Request::Picture, packed.bytes);
    } catch (const RenderError& error) {
        throw FileError((source ? source->fileName : path) + ": cannot be drawn: " + error.what());
    }
}

void exportPicture(model::Document& document, PictureFormat format, const PictureOptions& options,
                   const std::string& path) {
    const char* const ending = kEndings[static_cast<std::size_t>(format)];
    if (!endsIn(path, ending)) throw FileError(path + ": the name of such a picture ends in " + ending);
    replaceFile(path, picture(document, format, options, path));
}

} // namespace easel::svg
