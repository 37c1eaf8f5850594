// CurrentDocument: the implementation has no state, so one is made for each call.
#include "core/document/CurrentDocument.h"

#include "core/Forward.h"
#include "plugin/document/CurrentDocument.h"

namespace kzo::core {

namespace {

using Impl = plugin::CurrentDocument;

CurrentDocument::ArtList listOf(const std::vector<ArtObject*>& handles) {
    return std::make_unique<std::vector<Art>>(handles.begin(), handles.end());
}

} // namespace

AIDocument* CurrentDocument::aiDocumentHandle() const { return Impl().aiDocumentHandle(); }
void* CurrentDocument::platformWindow() const { return Impl().platformWindow(); }

// Layers

int CurrentDocument::layerCount() const { return Impl().layerCount(); }
std::unique_ptr<Layer> CurrentDocument::layerAtIndex(int index) const {
    return newHandle<Layer>(Impl().layerAtIndex(index));
}
std::unique_ptr<Layer> CurrentDocument::layerByTitle(const std::string& title) const {
    return newHandle<Layer>(Impl().layerByTitle(title));
}
std::unique_ptr<Layer> CurrentDocument::firstLayer() const { return newHandle<Layer>(Impl().firstLayer()); }
std::unique_ptr<Layer> CurrentDocument::lastLayer() const { return newHandle<Layer>(Impl().lastLayer()); }
std::unique_ptr<Layer> CurrentDocument::currentLayer() const { return newHandle<Layer>(Impl().currentLayer()); }
bool CurrentDocument::setCurrentLayer(const Layer& layer) {
    return !layer.isEmpty() && Impl().setCurrentLayer(layer.aiLayerHandle());
}

// Artboards

int CurrentDocument::artboardCount() const { return Impl().artboardCount(); }
std::unique_ptr<Artboard> CurrentDocument::artboardAtIndex(int index) const {
    return newHandle<Artboard>(Impl().artboardAtIndex(index));
}
std::unique_ptr<Artboard> CurrentDocument::artboardByTitle(const std::string& title) const {
    return newHandle<Artboard>(Impl().artboardByTitle(title));
}
std::unique_ptr<Artboard> CurrentDocument::currentArtboard() const {
    return newHandle<Artboard>(Impl().currentArtboard());
}
bool CurrentDocument::setCurrentArtboard(const Artboard& artboard) {
    return !artboard.isEmpty() && Impl().setCurrentArtboard(artboard.aiArtboardHandle());
}
std::unique_ptr<Artboard> CurrentDocument::insertArtboard(const ArtboardRect& bounds) {
    return newHandle<Artboard>(Impl().insertArtboard(bounds));
}

// Selection

CurrentDocument::ArtList CurrentDocument::selectedArt() const { return listOf(Impl().selectedArt()); }
bool CurrentDocument::anyArtSelected() const { return Impl().anyArtSelected(); }
void CurrentDocument::deselectAllArt() { Impl().deselectAllArt(); }

// Finding art

CurrentDocument::ArtList CurrentDocument::artOfType(MatchArtType type) const {
    return matchingArt({{.type = type, .which = {}, .attributes = {}}});
}
CurrentDocument::ArtList CurrentDocument::matchingArt(const std::vector<MatchArtSpec>& kinds) const {
    return listOf(Impl().matchingArt(kinds));
}
CurrentDocument::ArtList CurrentDocument::artAtPoint(const ArtboardPoint& point, HitRequest request) const {
    return listOf(Impl().artAtPoint(point, request));
}

// Styles

PathStyle CurrentDocument::selectedArtPathStyle() const { return Impl().selectedArtPathStyle(); }
bool CurrentDocument::setSelectedArtPathStyle(const PathStyle& style) { return Impl().setSelectedArtPathStyle(style); }
PathStyle CurrentDocument::defaultPathStyle() const { return Impl().defaultPathStyle(); }
bool CurrentDocument::setDefaultPathStyle(const PathStyle& style) { return Impl().setDefaultPathStyle(style); }
TextStyle CurrentDocument::defaultTextStyle() const { return Impl().defaultTextStyle(); }
bool CurrentDocument::setDefaultTextStyle(const TextStyle& style) { return Impl().setDefaultTextStyle(style); }

// Views

int CurrentDocument::viewCount() const { return Impl().viewCount(); }
std::unique_ptr<View> CurrentDocument::viewAtIndex(int index) const {
    return newHandle<View>(Impl().viewAtIndex(index));
}
std::unique_ptr<View> CurrentDocument::currentView() const { return viewAtIndex(0); }
double CurrentDocument::zoom() const { return Impl().zoom(); }

// What it is like

std::string CurrentDocument::fileName() const { return Impl().fileName(); }
std::string CurrentDocument::filePath() const { return Impl().filePath(); }
bool CurrentDocument::modified() const { return Impl().modified(); }
bool CurrentDocument::setModified(bool modified) { return Impl().setModified(modified); }
DocumentColorModel CurrentDocument::colorModel() const { return Impl().colorModel(); }
RulerUnits CurrentDocument::rulerUnits() const { return Impl().rulerUnits(); }
DocumentSetup CurrentDocument::setup() const { return Impl().setup(); }
ArtboardRect CurrentDocument::maxBounds() const { return Impl().maxBounds(); }
Grid CurrentDocument::grid() const { return Impl().grid(); }
bool CurrentDocument::setGrid(const Grid& grid) { return Impl().setGrid(grid); }
Dictionary CurrentDocument::dictionary() const { return {}; }

// What is done with it

bool CurrentDocument::undo() { return Impl().undo(); }
bool CurrentDocument::redo() { return Impl().redo(); }
bool CurrentDocument::sync() { return Impl().sync(); }
bool CurrentDocument::redraw() { return Impl().redraw(); }
bool CurrentDocument::syncAndRedraw() { return sync() && redraw(); }
bool CurrentDocument::save() { return Impl().save(); }
bool CurrentDocument::close() { return Impl().close(); }

// Isolation mode

bool CurrentDocument::enterIsolationMode(Art& group) { return group.isolate(); }
bool CurrentDocument::exitIsolationMode() { return Impl().exitIsolationMode(); }
bool CurrentDocument::inIsolationMode() const { return Impl().inIsolationMode(); }
std::unique_ptr<Art> CurrentDocument::isolatedArt() const { return newHandle<Art>(Impl().isolatedArt()); }

// Symbols and patterns

std::vector<std::string> CurrentDocument::symbols() const { return Impl().symbols(); }
std::string CurrentDocument::newSymbol(const Art& art) {
    return art.isEmpty() ? std::string() : Impl().newSymbol(art.aiArtHandle());
}
std::unique_ptr<Art> CurrentDocument::newSymbolInstance(const std::string& symbol, PaintOrder order, const Art* prep) {
    return newHandle<Art>(Impl().newSymbolInstance(symbol, order, prep ? prep->aiArtHandle() : nullptr));
}
std::vector<std::string> CurrentDocument::patterns() const { return Impl().patterns(); }
std::string CurrentDocument::newPattern(const Art& art) {
    return art.isEmpty() ? std::string() : Impl().newPattern(art.aiArtHandle());
}
std::vector<std::string> CurrentDocument::gradients() const { return Impl().gradients(); }

// Editing modes

bool CurrentDocument::enterSymbolEditingMode(const std::string& symbol) {
    return Impl().enterSymbolEditingMode(symbol);
}
bool CurrentDocument::exitSymbolEditingMode() { return Impl().exitSymbolEditingMode(); }
bool CurrentDocument::inSymbolEditingMode() const { return !editedSymbol().empty(); }
std::string CurrentDocument::editedSymbol() const { return Impl().editedSymbol(); }
bool CurrentDocument::enterPatternEditingMode(const std::string& pattern) {
    return Impl().enterPatternEditingMode(pattern);
}
bool CurrentDocument::exitPatternEditingMode() { return Impl().exitPatternEditingMode(); }
bool CurrentDocument::inPatternEditingMode() const { return !editedPattern().empty(); }
std::string CurrentDocument::editedPattern() const { return Impl().editedPattern(); }

// Text focus

bool CurrentDocument::hasTextFocus() const { return Impl().textFocus() != nullptr; }
std::unique_ptr<Art> CurrentDocument::textFocus() const { return newHandle<Art>(Impl().textFocus()); }
bool CurrentDocument::setTextFocus(const Art& text) {
    return !text.isEmpty() && Impl().setTextFocus(text.aiArtHandle());
}
bool CurrentDocument::loseTextFocus() { return Impl().loseTextFocus(); }

} // namespace kzo::core
