// A document that was made here is written as if it had been read from an empty drawing.
#include "svg/Writer.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

#include "svg/Files.h"
#include "svg/KnownFiles.h"
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
    source->containers.push_back({.style = initialStyle(), .depth = 1, .units = {}, .inherited = {}});
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
        throw UnsavableError("a page of this size cannot be saved");
    }
}

const Source* sourceOf(const Document& document) { return dynamic_cast<const Source*>(document.origin.get()); }

/// A document's text with the source that it is made of.
struct Text {
    std::shared_ptr<const Source> made; ///< for a document that was made here
    const Source& source;
    SplicedText spliced;
};

Text textOf(Document& document, const MadeDefinitions& definitions) {
    requireUsablePage(document);
    const Source* const read = sourceOf(document);
    std::shared_ptr<const Source> made = read ? nullptr : emptyDrawing(document);
    const Source& source = read ? *read : *made;
    return {std::move(made), source, spliced(document, source, definitions)};
}

Text textOf(Document& document) { return textOf(document, document.root().extras().definitions); }

bool isRecoded(const Source& source) {
    return source.encoding == Encoding::Utf16Little || source.encoding == Encoding::Utf16Big;
}

std::string encoded(const Text& text) {
    std::string joined = text.spliced.joined();
    return isRecoded(text.source) ? toUtf16(joined, text.source.encoding == Encoding::Utf16Big) : joined;
}

bool asksForPacking(std::string_view path) {
    std::string end(path.substr(path.size() - std::min<std::size_t>(path.size(), 5)));
    for (char& c : end) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c | 0x20);
    }
    return end == ".svgz";
}

} // namespace

std::string write(Document& document) { return encoded(textOf(document)); }

std::string write(Document& document, const MadeDefinitions& definitions) {
    return encoded(textOf(document, definitions));
}

bool isChangedByOthers(const Document& document, const std::string& path) {
    const auto* const known = dynamic_cast<const KnownFiles*>(document.origin.get());
    try {
        if (known) known->requireUnchanged(path);
    } catch (const FileError&) {
        return true;
    }
    return false;
}

std::string toldOfFile(const Document& document, const std::string& path) {
    const auto* const known = dynamic_cast<const KnownFiles*>(document.origin.get());
    return known ? known->toldOf(path) : std::string();
}

void noteToldOfFile(Document& document, const std::string& path, const std::string& told) {
    if (!document.origin) document.origin = std::make_shared<KnownFiles>();
    dynamic_cast<const KnownFiles&>(*document.origin).noteToldOf(path, told);
}

void save(Document& document, const std::string& path, Overwrite overwrite) {
    if (!document.origin) document.origin = std::make_shared<KnownFiles>();
    const auto& known = dynamic_cast<const KnownFiles&>(*document.origin);
    if (overwrite == Overwrite::IfUnchanged) known.requireUnchanged(path);
    try {
        const Text text = textOf(document);
        const Source& source = text.source;
        const bool sameFile = source.fileName == path;
        const bool packs = asksForPacking(path) || (sameFile && source.packed);
        std::string whole;
        std::vector<std::string_view> pieces;
        if (packs == source.packed && text.spliced.isSource()) {
            // Packing again need not give the same bytes, so those that were read are kept.
            pieces.push_back(source.raw.empty() ? source.text : source.raw);
        } else if (packs || isRecoded(source)) {
            whole = packs ? pack(encoded(text)) : encoded(text);
            pieces.push_back(whole);
        } else {
            for (const SplicedText::Piece& piece : text.spliced.pieces()) pieces.push_back(text.spliced.textOf(piece));
        }
        known.noteSaved(path, replaceFile(path, pieces), pieces);
    } catch (const UnsavableError& error) {
        throw FileError(path + ": " + error.what());
    }
}

} // namespace easel::svg
