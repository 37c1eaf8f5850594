// The document, artboard, view, path style and isolation suites' calls. Layers and art are in CurrentDocumentArt.cpp.
#include "plugin/document/CurrentDocument.h"

#include "hostapi/AIArtboardSuite.h"
#include "hostapi/AIDocumentSuite.h"
#include "hostapi/AIDocumentViewSuite.h"
#include "hostapi/AIIsolationModeSuite.h"
#include "plugin/document/Convert.h"
#include "plugin/document/ConvertStyle.h"
#include "plugin/document/ConvertText.h"

namespace kzo::plugin {

namespace host {

template <> struct HostForm<core::DocumentSetup> {
    static core::DocumentSetup fromHost(const AIDocumentSetup& record) { return {record.width, record.height}; }
};
template <> struct HostForm<core::Grid> {
    static AIGrid toHost(const core::Grid& grid) { return {grid.spacing, grid.subdivisions, grid.visible, grid.snaps}; }
    static core::Grid fromHost(const AIGrid& record) {
        return {record.spacing, record.subdivisions, host::fromHost<bool>(record.visible),
                host::fromHost<bool>(record.snaps)};
    }
};
template <> struct HostForm<core::TextStyle> {
    /// Its font's name must live as long as the record.
    static AITextStyle toHost(const core::TextStyle& style) {
        return {style.font.name.c_str(), style.font.size, host::toHost(style.justification)};
    }
    static core::TextStyle fromHost(const AITextStyle& record) {
        return {{record.font ? record.font : "", record.size},
                host::fromHost<core::ParagraphJustification>(record.justification)};
    }
};

} // namespace host

using Suite = AIDocumentSuite;

AIDocument* CurrentDocument::aiDocumentHandle() const { return host::get<&Suite::GetDocument>(); }
void* CurrentDocument::platformWindow() const { return host::get<&Suite::GetDocumentWindow>(); }

// Artboards

int CurrentDocument::artboardCount() const { return host::get<&AIArtboardSuite::CountArtboards>(); }
AIArtboard* CurrentDocument::artboardAtIndex(int index) const {
    return host::get<&AIArtboardSuite::GetNthArtboard>(index);
}
AIArtboard* CurrentDocument::artboardByTitle(const std::string& title) const {
    return host::get<&AIArtboardSuite::GetArtboardByTitle>(title);
}
AIArtboard* CurrentDocument::currentArtboard() const { return host::get<&AIArtboardSuite::GetCurrentArtboard>(); }
bool CurrentDocument::setCurrentArtboard(AIArtboard* artboard) {
    return host::call<&AIArtboardSuite::SetCurrentArtboard>(artboard);
}
AIArtboard* CurrentDocument::insertArtboard(const core::ArtboardRect& bounds) {
    return host::get<&AIArtboardSuite::InsertArtboard>(bounds);
}

// Styles

core::PathStyle CurrentDocument::selectedArtPathStyle() const {
    return host::get<&AIPathStyleSuite::GetCurrentPathStyle, core::PathStyle>();
}
bool CurrentDocument::setSelectedArtPathStyle(const core::PathStyle& style) {
    return host::call<&AIPathStyleSuite::SetCurrentPathStyle>(style);
}
core::PathStyle CurrentDocument::defaultPathStyle() const {
    return host::get<&AIPathStyleSuite::GetInitialPathStyle, core::PathStyle>();
}
bool CurrentDocument::setDefaultPathStyle(const core::PathStyle& style) {
    return host::call<&AIPathStyleSuite::SetInitialPathStyle>(style);
}
core::TextStyle CurrentDocument::defaultTextStyle() const { return host::get<&Suite::GetTextStyle, core::TextStyle>(); }
bool CurrentDocument::setDefaultTextStyle(const core::TextStyle& style) {
    return host::isWhole(style.font.name) && host::call<&Suite::SetTextStyle>(style);
}

// Views

int CurrentDocument::viewCount() const { return host::get<&AIDocumentViewSuite::CountDocumentViews>(); }
AIDocumentView* CurrentDocument::viewAtIndex(int index) const {
    return host::get<&AIDocumentViewSuite::GetNthDocumentView>(index);
}
double CurrentDocument::zoom() const {
    return host::getOr<&AIDocumentViewSuite::GetDocumentViewZoom>(1.0, AIDocumentViewHandle());
}

// What it is like

std::string CurrentDocument::fileName() const { return host::get<&Suite::GetDocumentFileName>(); }
std::string CurrentDocument::filePath() const { return host::get<&Suite::GetDocumentFilePath>(); }
bool CurrentDocument::modified() const { return host::get<&Suite::GetDocumentModified>(); }
bool CurrentDocument::setModified(bool modified) { return host::call<&Suite::SetDocumentModified>(modified); }
core::DocumentColorModel CurrentDocument::colorModel() const {
    return host::get<&Suite::GetDocumentColorModel, core::DocumentColorModel>();
}
core::RulerUnits CurrentDocument::rulerUnits() const {
    return host::getOr<&Suite::GetDocumentRulerUnits>(core::RulerUnits::Points);
}
core::DocumentSetup CurrentDocument::setup() const {
    return host::get<&Suite::GetDocumentSetup, core::DocumentSetup>();
}
core::ArtboardRect CurrentDocument::maxBounds() const {
    return host::get<&Suite::GetDocumentMaxBounds, core::ArtboardRect>();
}
core::Grid CurrentDocument::grid() const { return host::get<&Suite::GetGrid, core::Grid>(); }
bool CurrentDocument::setGrid(const core::Grid& grid) { return host::call<&Suite::SetGrid>(grid); }

// What is done with it

bool CurrentDocument::undo() { return host::call<&Suite::Undo>(); }
bool CurrentDocument::redo() { return host::call<&Suite::Redo>(); }
bool CurrentDocument::sync() { return host::call<&Suite::SyncDocument>(); }
bool CurrentDocument::redraw() { return host::call<&Suite::RedrawDocument>(); }
bool CurrentDocument::save() { return host::call<&Suite::SaveDocument>(); }
bool CurrentDocument::close() { return host::call<&Suite::CloseDocument>(); }

// Modes

bool CurrentDocument::exitIsolationMode() { return host::call<&AIIsolationModeSuite::ExitIsolationMode>(); }
bool CurrentDocument::inIsolationMode() const { return host::get<&AIIsolationModeSuite::IsInIsolationMode>(); }
ArtObject* CurrentDocument::isolatedArt() const { return host::get<&AIIsolationModeSuite::GetIsolatedArt>(); }
ArtObject* CurrentDocument::textFocus() const { return host::get<&Suite::GetTextFocus>(); }
bool CurrentDocument::setTextFocus(ArtObject* text) { return host::call<&Suite::SetTextFocus>(text); }
bool CurrentDocument::loseTextFocus() { return host::call<&Suite::LoseTextFocus>(); }

} // namespace kzo::plugin
