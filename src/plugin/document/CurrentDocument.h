// The host's current document: the calls behind core::CurrentDocument. Keeps nothing between calls, since the document
// may be another one at the next message.
#pragma once

#include <string>
#include <vector>

#include "core/values/ArtboardPoint.h"
#include "core/values/ArtboardRect.h"
#include "core/values/DocumentValues.h"

struct AIArtboard;
struct AIDocument;
struct AIDocumentView;
struct AILayer;
struct ArtObject;

namespace kzo::plugin {

class CurrentDocument {
  public:
    [[nodiscard]] bool exists() const { return aiDocumentHandle() != nullptr; }
    [[nodiscard]] AIDocument* aiDocumentHandle() const;
    [[nodiscard]] void* platformWindow() const;

    // Layers; index 0 is the topmost
    [[nodiscard]] int layerCount() const;
    [[nodiscard]] AILayer* layerAtIndex(int index) const;
    [[nodiscard]] AILayer* layerByTitle(const std::string& title) const;
    [[nodiscard]] AILayer* firstLayer() const { return layerAtIndex(0); }
    [[nodiscard]] AILayer* lastLayer() const { return layerAtIndex(layerCount() - 1); }
    [[nodiscard]] AILayer* currentLayer() const;
    bool setCurrentLayer(AILayer* layer);

    // Artboards
    [[nodiscard]] int artboardCount() const;
    [[nodiscard]] AIArtboard* artboardAtIndex(int index) const;
    [[nodiscard]] AIArtboard* artboardByTitle(const std::string& title) const;
    [[nodiscard]] AIArtboard* currentArtboard() const;
    bool setCurrentArtboard(AIArtboard* artboard);
    [[nodiscard]] AIArtboard* insertArtboard(const core::ArtboardRect& bounds);

    // Selection
    [[nodiscard]] std::vector<ArtObject*> selectedArt() const;
    [[nodiscard]] bool anyArtSelected() const;
    void deselectAllArt();

    // Finding art
    [[nodiscard]] std::vector<ArtObject*> matchingArt(const std::vector<core::MatchArtSpec>& kinds) const;
    /// All art under the point, topmost first. The order of art is as before when this returns.
    [[nodiscard]] std::vector<ArtObject*> artAtPoint(const core::ArtboardPoint& point, core::HitRequest request);

    // Styles
    [[nodiscard]] core::PathStyle selectedArtPathStyle() const;
    bool setSelectedArtPathStyle(const core::PathStyle& style);
    [[nodiscard]] core::PathStyle defaultPathStyle() const;
    bool setDefaultPathStyle(const core::PathStyle& style);
    [[nodiscard]] core::TextStyle defaultTextStyle() const;
    bool setDefaultTextStyle(const core::TextStyle& style);

    // Views
    [[nodiscard]] int viewCount() const;
    [[nodiscard]] AIDocumentView* viewAtIndex(int index) const;
    [[nodiscard]] double zoom() const; ///< of the view at index 0, screen units a point; 1 without a document

    // What it is like
    [[nodiscard]] std::string fileName() const;
    [[nodiscard]] std::string filePath() const;
    [[nodiscard]] bool modified() const;
    bool setModified(bool modified);
    [[nodiscard]] core::DocumentColorModel colorModel() const;
    [[nodiscard]] core::RulerUnits rulerUnits() const;
    [[nodiscard]] core::DocumentSetup setup() const;
    [[nodiscard]] core::ArtboardRect maxBounds() const;
    [[nodiscard]] core::Grid grid() const;
    bool setGrid(const core::Grid& grid);

    // What is done with it
    bool undo();
    bool redo();
    bool sync();
    bool redraw();
    bool save();
    bool close();

    // Symbols, patterns, gradients
    [[nodiscard]] std::vector<std::string> symbols() const;
    std::string newSymbol(ArtObject* art);
    [[nodiscard]] ArtObject* newSymbolInstance(const std::string& symbol, core::PaintOrder order, ArtObject* prep);
    [[nodiscard]] std::vector<std::string> patterns() const;
    std::string newPattern(ArtObject* art);
    [[nodiscard]] std::vector<std::string> gradients() const;
    bool enterSymbolEditingMode(const std::string& symbol);
    bool exitSymbolEditingMode();
    [[nodiscard]] std::string editedSymbol() const;
    bool enterPatternEditingMode(const std::string& pattern);
    bool exitPatternEditingMode();
    [[nodiscard]] std::string editedPattern() const;

    // Modes
    bool exitIsolationMode();
    [[nodiscard]] bool inIsolationMode() const;
    [[nodiscard]] ArtObject* isolatedArt() const;
    [[nodiscard]] ArtObject* textFocus() const;
    bool setTextFocus(ArtObject* text);
    bool loseTextFocus();
};

} // namespace kzo::plugin
