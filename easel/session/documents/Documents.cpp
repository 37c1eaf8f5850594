// Numbering, and the errors of files as the session's own.
#include "session/documents/Documents.h"

#include <boost/algorithm/string/predicate.hpp>

#include <algorithm>
#include <filesystem>
#include <map>
#include <utility>

#include "session/base/Error.h"
#include "svg/Definitions.h"
#include "svg/Expanding.h"
#include "svg/Files.h"
#include "svg/KnownFiles.h"
#include "svg/Picture.h"
#include "svg/Reader.h"
#include "svg/Writer.h"

namespace easel::session {

namespace {

/// Files speak of their own errors; the session's faces know one kind.
template <class Work> auto withFile(Work work) {
    try {
        return work();
    } catch (const svg::FileError& error) {
        throw Error(error.what());
    }
}

/// As the system goes there: what `..` means behind a link cannot be told from the letters. The file itself may be a
/// link, which keeps its name.
std::string absolute(const std::string& path) {
    if (path.empty()) return path;
    const std::filesystem::path whole = std::filesystem::absolute(path);
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::weakly_canonical(whole.parent_path(), error);
    return (error ? whole : folder / whole.filename()).string();
}

} // namespace

model::Document* Documents::front() const { return open_.empty() ? nullptr : open_.back().document.get(); }

model::Document& Documents::needFront() const {
    if (open_.empty()) throw Error("no document is open");
    return *open_.back().document;
}

model::Document* Documents::byNumber(std::uint32_t number) const {
    for (const Open& open : open_)
        if (open.number == number) return open.document.get();
    return nullptr;
}

std::uint32_t Documents::numberOf(const model::Document& document) const {
    for (const Open& open : open_)
        if (open.document.get() == &document) return open.number;
    return 0;
}

AIDocumentViewHandle Documents::viewOf(const model::Document& document) const {
    return makeHandle<AIDocumentViewHandle>(numberOf(document), 1, 0);
}

void Documents::requireFreeNumber() const {
    if (lastNumber_ + 1 >= 1U << HandleParts::kDocumentBits)
        throw Error("too many documents have been opened; start Easel anew");
}

void Documents::setHistoryLimit(std::size_t bytes) {
    historyLimit_ = bytes;
    for (const Open& open : open_) open.document->journal().setHistoryLimit(bytes);
}

void Documents::add(std::unique_ptr<model::Document> document, const std::string& path) {
    document->journal().setHistoryLimit(historyLimit_);
    if (!document->origin) document->origin = std::make_shared<svg::KnownFiles>();
    const std::uint64_t state = document->journal().state();
    open_.push_back({++lastNumber_, std::move(document), absolute(path), state});
}

void Documents::closeFront() {
    if (goes) goes(*open_.back().document);
    open_.pop_back();
}

model::Document* Documents::at(std::size_t index) const {
    return index < open_.size() ? open_[open_.size() - 1 - index].document.get() : nullptr;
}

std::size_t Documents::indexOf(const model::Document& document) const {
    std::size_t index = 0;
    while (open_[index].document.get() != &document) ++index;
    return index;
}

// What is kept under names

std::vector<std::string> Documents::definitions(model::Document& document, const std::string& kind) {
    return svg::definitionNames(document, kind);
}

std::optional<std::string> Documents::define(model::Document& document, const std::string& kind, model::Node& art) {
    return withFile([&] { return svg::define(document, kind, art); });
}

void Documents::setSymbol(model::Document& document, model::Node& instance, const std::string& name) {
    svg::setSymbol(document, instance, name);
}

bool Documents::makeMask(model::Document& document, model::Node& art, model::Node& by) {
    return svg::makeMask(document, art, by);
}

bool Documents::expandPaint(model::Document& document, model::Node& path, const model::PaintExpansion& what) {
    return svg::expandPaint(document, path, what);
}

bool Documents::expandTexts(model::Document& document, const std::vector<model::Node*>& texts) {
    return svg::expandTexts(document, texts);
}

bool Documents::expandInstance(model::Document& document, model::Node& instance) {
    return svg::expandInstance(document, instance);
}

// Symbols and patterns

void Documents::edit(model::Document& owner, const std::string& kind, const std::string& name) {
    for (const Open& open : open_) // two would take each other's changes back
        if (open.edited && byNumber(open.edited->owner) == &owner && open.edited->kind == kind &&
            open.edited->name == name)
            return bringToFront(*open.document);
    requireFreeNumber();
    auto document = svg::readDefinition(owner, kind, name);
    if (!document) throw Error("there is no " + kind + " \"" + name + "\" that can be edited");
    add(std::move(document));
    open_.back().edited = Edited{numberOf(owner), kind, name};
}

const Documents::Edited* Documents::editedAs(const model::Document& document) const {
    const Open& open = open_[indexOf(document)];
    return open.edited ? &*open.edited : nullptr;
}

void Documents::endEditing() {
    const Edited edited = *open_.back().edited;
    model::Document* const owner = byNumber(edited.owner);
    if (owner) withFile([&] { svg::redefine(*owner, edited.kind, edited.name, *open_.back().document); });
    closeFront();
    if (owner) bringToFront(*owner);
}

std::string Documents::textOf(model::Document& document) const {
    std::vector<svg::EditedDefinition> edited;
    for (const Open& open : open_)
        if (open.edited && open.edited->owner == numberOf(document))
            edited.push_back({open.edited->kind, open.edited->name, open.document.get(), textOf(*open.document)});
    return withFile([&] { return svg::writeWith(document, edited); });
}

model::Document& Documents::wholeOf(model::Document& document) const {
    const Edited* const part = editedAs(document);
    model::Document* const owner = part ? byNumber(part->owner) : nullptr;
    return owner ? wholeOf(*owner) : document;
}

std::vector<model::Document*> Documents::unsaved() const {
    std::map<std::uint32_t, model::Document*> found; // by number
    for (const Open& open : open_)
        if (isModified(*open.document)) found[numberOf(wholeOf(*open.document))] = &wholeOf(*open.document);
    std::vector<model::Document*> documents;
    documents.reserve(found.size());
    for (const auto& [number, document] : found) documents.push_back(document);
    return documents;
}

// What becomes of a document's file

const std::string& Documents::pathOf(const model::Document& document) const { return open_[indexOf(document)].path; }

void Documents::setPath(const model::Document& document, const std::string& path) {
    open_[indexOf(document)].path = absolute(path);
    setModified(document, false);
}

bool Documents::isModified(const model::Document& document) const {
    const Open& open = open_[indexOf(document)];
    return open.document->journal().state() != open.savedState;
}

void Documents::setModified(const model::Document& document, bool modified) {
    constexpr std::uint64_t kNever = UINT64_MAX - 1;
    Open& open = open_[indexOf(document)];
    open.savedState = modified ? kNever : open.document->journal().state();
}

void Documents::bringToFront(const model::Document& document) {
    const auto found =
        std::find_if(open_.begin(), open_.end(), [&](const Open& open) { return open.document.get() == &document; });
    std::rotate(found, found + 1, open_.end());
}

// Files

std::unique_ptr<model::Document> Documents::read(const std::string& path) {
    const auto warn = [this](const std::string& line) { reports_.add(Blame::UserData, line); };
    return withFile([&] { return svg::open(path, warn); });
}

void Documents::write(model::Document& document, const std::string& path, bool force) {
    const svg::Overwrite overwrite = force ? svg::Overwrite::Always : svg::Overwrite::IfUnchanged;
    withFile([&] { svg::save(document, path, overwrite); });
}

void Documents::exportSvg(model::Document& document, const std::string& path) const {
    if (!boost::algorithm::iends_with(path, ".svg")) throw Error(path + ": the name of an SVG file must end in .svg");
    std::error_code differs;
    for (const Open& open : open_)
        if (std::filesystem::equivalent(path, open.path, differs))
            throw Error(path + ": is the file of an open drawing; it is saved, not exported");
    withFile([&] { svg::replaceFile(path, svg::write(document)); });
}

void Documents::exportPng(model::Document& document, const std::string& path, double scale,
                          const std::vector<model::Mark>& marks) const {
    const svg::PictureOptions options{.scale = scale, .marks = marks, .waiting = whileDrawing};
    withFile([&] { svg::exportPicture(document, svg::PictureFormat::Png, options, path); });
}

void Documents::exportPdf(model::Document& document, const std::string& path, double scale) const {
    const svg::PictureOptions options{.scale = scale, .waiting = whileDrawing};
    withFile([&] { svg::exportPicture(document, svg::PictureFormat::Pdf, options, path); });
}

} // namespace easel::session
