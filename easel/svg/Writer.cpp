// A document that was made here is written as if it had been read from an empty drawing.
#include "svg/Writer.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

#include "svg/Files.h"
#include "svg/Limits.h"
#include "svg/Markup.h"
#include "svg/Names.h"
#include "svg/Packing.h"
#include "svg/Splicer.h"
#include "svg/Values.h"

namespace easel::svg {

namespace {

using model::Document;

/// What a document that was made here is written into.
std::shared_ptr<const Source> emptyDrawing(const Document& document) {
    auto source = std::make_shared<Source>();
    std::string& text = source->text;
    text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    Element root;
    root.begin = static_cast<std::uint32_t>(text.size());
    const std::pair<std::string_view, std::string_view> spaces[] = {{"xmlns", kSvgNamespace},
                                                                    {"xmlns:inkscape", kInkscapeNamespace},
                                                                    {"xmlns:sodipodi", kSodipodiNamespace},
                                                                    {"xmlns:easel", kEaselNamespace}};
    text += "<svg";
    for (const auto& [name, uri] : spaces) {
        text += ' ';
        text += name;
        text += "=\"";
        text += uri;
        text += '"';
    }
    text += " width=\"";
    appendNumber(text, document.width());
    text += "pt\" height=\"";
    appendNumber(text, document.height());
    text += "pt\" viewBox=\"0 0 ";
    appendNumber(text, document.width());
    text += ' ';
    appendNumber(text, document.height());
    text += "\">";
    root.tagEnd = static_cast<std::uint32_t>(text.size());
    text += "\n</svg>";
    root.end = static_cast<std::uint32_t>(text.size());
    text += '\n';
    root.after = 1;
    source->containers.push_back({.style = initialStyle(), .depth = 1, .units = {}});
    source->elements.push_back(root);
    source->transforms.emplace_back();
    source->elementCount = 1;
    source->inkscapePrefixes = {"inkscape"};
    source->sodipodiPrefixes = {"sodipodi"};
    source->easelPrefixes = {"easel"};
    return source;
}

void requireUsablePage(const Document& document) {
    for (const double size : {document.width(), document.height()}) {
        if (size > 0 && size <= kFarthestCoordinate) continue;
        throw FileError("a page of this size cannot be saved");
    }
}

const Source* sourceOf(const Document& document) { return dynamic_cast<const Source*>(document.origin.get()); }

/// The text; `source` is null for a document that was made here.
std::string textOf(Document& document, const Source* source) {
    requireUsablePage(document);
    const std::shared_ptr<const Source> made = source ? nullptr : emptyDrawing(document);
    return spliced(document, source ? *source : *made);
}

std::string encoded(std::string text, const Source* source) {
    if (!source || source->encoding == Encoding::Utf8 || source->encoding == Encoding::OtherAscii) return text;
    return toUtf16(text, source->encoding == Encoding::Utf16Big);
}

bool asksForPacking(std::string_view path) {
    std::string end(path.substr(path.size() - std::min<std::size_t>(path.size(), 5)));
    for (char& c : end) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c | 0x20);
    }
    return end == ".svgz";
}

} // namespace

std::string write(Document& document) {
    const Source* const source = sourceOf(document);
    return encoded(textOf(document, source), source);
}

void save(Document& document, const std::string& path) {
    const Source* const source = sourceOf(document);
    std::string text;
    try {
        text = textOf(document, source);
    } catch (const FileError& error) {
        throw FileError(path + ": " + error.what());
    }
    const bool sameFile = source && source->fileName == path;
    const bool packs = asksForPacking(path) || (sameFile && source->packed);
    // Packing again need not give the same bytes, so those that were read are kept.
    if (source && packs == source->packed && text == source->text) {
        replaceFile(path, source->raw.empty() ? source->text : source->raw);
        return;
    }
    text = encoded(std::move(text), source);
    replaceFile(path, packs ? pack(text) : text);
}

} // namespace easel::svg
