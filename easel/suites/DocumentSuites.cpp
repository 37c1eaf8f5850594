// The document, document list, view and undo suites.
#include <cmath>
#include <filesystem>

#include "hostapi/AIDocumentListSuite.h"
#include "hostapi/AIDocumentSuite.h"
#include "hostapi/AIDocumentViewSuite.h"
#include "hostapi/AITextFrameSuite.h"
#include "hostapi/AIUndoSuite.h"
#include "model/Journal.h"
#include "session/app/Session.h"
#include "suites/Enter.h"
#include "suites/Shared.h"

namespace easel::suites {

namespace {

using model::Document;
using session::Documents;

constexpr double kFarthest = 1e9; ///< what files can hold

AIDocumentHandle handleOf(const Document& document) {
    return session::makeHandle<AIDocumentHandle>(host<Documents>().numberOf(document), 1, 0);
}

AIDocumentHandle getNthDocument(std::int32_t index) {
    const Document* const document = index < 0 ? nullptr : host<Documents>().at(static_cast<std::size_t>(index));
    require(document);
    return handleOf(*document);
}

// What a document is like

const char* getFileName() {
    static std::string name;
    name = std::filesystem::path(host<Documents>().pathOf(currentDocument())).filename().string();
    return name.c_str();
}

std::int16_t getRulerUnits() {
    static constexpr std::int16_t kUnits[] = {kAIPoints,      kAIPicas,       kAIInches,
                                              kAIMillimeters, kAICentimeters, kAIPixels};
    return kUnits[static_cast<std::size_t>(currentDocument().settings.units)];
}

AIGrid getGrid() {
    const model::Grid& grid = currentDocument().settings.grid;
    return {grid.spacing, grid.subdivisions, grid.visible, grid.snaps};
}

void setGrid(const AIGrid& grid) {
    require(grid.spacing > 0 && std::isfinite(grid.spacing) && grid.subdivisions > 0);
    currentDocument().settings.grid = {grid.spacing, grid.subdivisions, grid.visible != 0, grid.snaps != 0};
}

AITextStyle getTextStyle() {
    const model::TextDefaults& text = currentDocument().settings.text;
    return {text.font.c_str(), text.size, justificationToHost(text.justification)};
}

void setTextStyle(const AITextStyle& style) {
    require(style.font && isPlainText(style.font) && style.size > 0 && std::isfinite(style.size));
    currentDocument().settings.text = {style.font, style.size, justificationFromHost(style.justification)};
}

/// What is the same for every document.
template <class Answer> Answer always(Answer answer) {
    static_cast<void>(currentDocument());
    return answer;
}

// What is done with it

/// Does it once the message is handled, if the document is in front then.
template <class Action> void afterMessage(Action action) {
    const std::uint32_t number = host<Documents>().numberOf(currentDocument());
    host<session::Messenger>().defer([number, action] {
        Document* const document = host<Documents>().front();
        if (document && host<Documents>().numberOf(*document) == number) action(*document);
    });
}

void undo() {
    require(currentDocument().journal().undoDepth() > 0, kRefusedErr);
    afterMessage([](Document& document) { document.journal().undo(); });
}

void redo() {
    require(currentDocument().journal().redoDepth() > 0, kRefusedErr);
    afterMessage([](Document& document) { document.journal().redo(); });
}

void redraw() {
    afterMessage([](Document&) { host<session::Annotations>().update(); });
}

/// Only after the message it can be told what the document contains, to know it again.
void setModified(bool modified) {
    Document& document = currentDocument();
    host<Documents>().setModified(document, modified);
    const std::uint64_t changes = document.journal().changeCount();
    if (modified) return;
    afterMessage([changes](Document& after) {
        if (after.journal().changeCount() == changes) host<Documents>().setModified(after, false);
    });
}

void save() {
    const std::string path = host<Documents>().pathOf(currentDocument());
    require(!path.empty(), kRefusedErr);
    try {
        host<session::Session>().save(path);
    } catch (const session::Error& error) {
        host<session::Reports>().add(session::Blame::UserData, error.what());
        throw HostError{kRefusedErr};
    }
    setModified(false);
}

void close() {
    afterMessage([](Document&) { host<session::Session>().close(); });
}

AIArtHandle getTextFocus() {
    Document& document = currentDocument();
    return artHandle(document, document.find(document.settings.textFocus));
}

void setTextFocus(Art art) {
    require(isText(art.node));
    art.document.deselectAll();
    art.document.settings.textFocus = art.node.id();
}

// Views; a document has one

std::int32_t countViews() {
    static_cast<void>(currentDocument());
    return 1;
}

AIDocumentViewHandle getNthView(std::int32_t index) {
    require(index == 0);
    return host<Documents>().viewOf(currentDocument());
}

AIRealRect getBounds(Document& document) {
    const model::Box box = document.visibleBox();
    return {box.left, box.top, box.right, box.bottom};
}

void setCenter(Document& document, const AIRealPoint& center) {
    require(std::isfinite(center.h) && std::isfinite(center.v));
    document.view.center = {center.h, center.v};
}

void setZoom(Document& document, AIReal zoom) {
    require(zoom > 0 && std::isfinite(zoom));
    document.view.zoom = zoom;
}

// Undo

void setKind(std::int32_t kind) {
    require(kind >= kAIStandardUndoContext && kind <= kAIAppendUndoContext);
    static constexpr model::UndoKind kKinds[] = {model::UndoKind::Standard, model::UndoKind::Silent,
                                                 model::UndoKind::Append};
    currentDocument().journal().setKind(kKinds[kind]);
}

} // namespace

template <> void fill(AIDocumentSuite& suite) {
    enter<&AIDocumentSuite::GetDocument>(suite, [] { return handleOf(currentDocument()); });
    enter<&AIDocumentSuite::GetDocumentFileName, getFileName>(suite);
    enter<&AIDocumentSuite::GetDocumentFilePath>(suite,
                                                 [] { return host<Documents>().pathOf(currentDocument()).c_str(); });
    enter<&AIDocumentSuite::GetDocumentModified>(suite, [] { return host<Documents>().isModified(currentDocument()); });
    enter<&AIDocumentSuite::SetDocumentModified, setModified>(suite);
    enter<&AIDocumentSuite::GetDocumentColorModel>(suite, [] { return always(kAIRGBColorModel); });
    enter<&AIDocumentSuite::GetDocumentRulerUnits, getRulerUnits>(suite);
    enter<&AIDocumentSuite::GetDocumentSetup>(suite, [] {
        return AIDocumentSetup{currentDocument().width(), currentDocument().height()};
    });
    enter<&AIDocumentSuite::GetDocumentMaxBounds>(suite, [] {
        return always(AIRealRect{-kFarthest, -kFarthest, kFarthest, kFarthest});
    });
    enter<&AIDocumentSuite::GetGrid, getGrid>(suite);
    enter<&AIDocumentSuite::SetGrid, setGrid>(suite);
    enter<&AIDocumentSuite::GetTextStyle, getTextStyle>(suite);
    enter<&AIDocumentSuite::SetTextStyle, setTextStyle>(suite);
    enter<&AIDocumentSuite::Undo, undo>(suite);
    enter<&AIDocumentSuite::Redo, redo>(suite);
    // Nothing that is told of a document here lags behind it.
    enter<&AIDocumentSuite::SyncDocument>(suite, [] { static_cast<void>(currentDocument()); });
    enter<&AIDocumentSuite::RedrawDocument, redraw>(suite);
    enter<&AIDocumentSuite::SaveDocument, save>(suite);
    enter<&AIDocumentSuite::CloseDocument, close>(suite);
    enter<&AIDocumentSuite::GetTextFocus, getTextFocus>(suite);
    enter<&AIDocumentSuite::SetTextFocus, setTextFocus>(suite);
    enter<&AIDocumentSuite::LoseTextFocus>(suite, [] { currentDocument().settings.textFocus = {}; });
    enter<&AIDocumentSuite::GetDocumentWindow>(suite, [] { return always(static_cast<void*>(nullptr)); });
}

template <> void fill(AIDocumentListSuite& suite) {
    enter<&AIDocumentListSuite::Count>(suite, [] { return host<Documents>().count(); });
    enter<&AIDocumentListSuite::GetNthDocument, getNthDocument>(suite);
}

template <> void fill(AIDocumentViewSuite& suite) {
    enter<&AIDocumentViewSuite::CountDocumentViews, countViews>(suite);
    enter<&AIDocumentViewSuite::GetNthDocumentView, getNthView>(suite);
    enter<&AIDocumentViewSuite::GetDocumentViewBounds, getBounds>(suite);
    enter<&AIDocumentViewSuite::GetDocumentViewCenter>(suite, [](Document& document) {
        return AIRealPoint{document.view.center.x, document.view.center.y};
    });
    enter<&AIDocumentViewSuite::SetDocumentViewCenter, setCenter>(suite);
    enter<&AIDocumentViewSuite::GetDocumentViewZoom>(suite, [](Document& document) { return document.view.zoom; });
    enter<&AIDocumentViewSuite::SetDocumentViewZoom, setZoom>(suite);
}

template <> void fill(AIUndoSuite& suite) {
    enter<&AIUndoSuite::SetKind, setKind>(suite);
    enter<&AIUndoSuite::UndoChanges>(suite, [] { currentDocument().journal().rollBackTransaction(); });
}

} // namespace easel::suites
