// The document that is in front in the host. Ask Illustrator for it each time; it may be another at the next message.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/document/Art.h"
#include "core/document/Artboard.h"
#include "core/document/Dictionary.h"
#include "core/document/Layer.h"
#include "core/document/View.h"
#include "core/values/DocumentValues.h"

struct AIDocument;

namespace kzo::core {

/// Without a document lists are empty, handles null and counts 0. Lists are never null. What changes something returns
/// whether the host did it; what is done "after the message" is done when the message at hand has been handled.
class CurrentDocument {
  public:
    using ArtList = std::unique_ptr<std::vector<Art>>;

    [[nodiscard]] AIDocument* aiDocumentHandle() const;
    [[nodiscard]] void* platformWindow() const; ///< as the platform knows it; null where there is no display

    // Layers; index 0 is the topmost
    [[nodiscard]] int layerCount() const;
    [[nodiscard]] std::unique_ptr<Layer> layerAtIndex(int index) const;
    [[nodiscard]] std::unique_ptr<Layer> layerByTitle(const std::string& title) const; ///< the topmost of that title
    [[nodiscard]] std::unique_ptr<Layer> firstLayer() const;
    [[nodiscard]] std::unique_ptr<Layer> lastLayer() const;
    [[nodiscard]] std::unique_ptr<Layer> currentLayer() const;
    bool setCurrentLayer(const Layer& layer);

    // Artboards, numbered from 0
    [[nodiscard]] int artboardCount() const;
    [[nodiscard]] std::unique_ptr<Artboard> artboardAtIndex(int index) const;
    [[nodiscard]] std::unique_ptr<Artboard> artboardByTitle(const std::string& title) const;
    [[nodiscard]] std::unique_ptr<Artboard> currentArtboard() const;
    bool setCurrentArtboard(const Artboard& artboard);
    [[nodiscard]] std::unique_ptr<Artboard> insertArtboard(const ArtboardRect& bounds); ///< the last one, or null

    // Selection
    [[nodiscard]] ArtList selectedArt() const;
    [[nodiscard]] bool anyArtSelected() const;
    void deselectAllArt();

    // Finding art, topmost first
    [[nodiscard]] ArtList artOfType(MatchArtType type) const;
    [[nodiscard]] ArtList matchingArt(const std::vector<MatchArtSpec>& kinds) const; ///< any of these
    /// All that is under the point. The order of the art is the same afterwards, and nothing to be undone.
    [[nodiscard]] ArtList artAtPoint(const ArtboardPoint& point, HitRequest request) const;

    // Styles
    [[nodiscard]] PathStyle selectedArtPathStyle() const; ///< of the topmost selected path
    bool setSelectedArtPathStyle(const PathStyle& style); ///< of all selected paths; false when there are none
    [[nodiscard]] PathStyle defaultPathStyle() const;     ///< of new paths
    bool setDefaultPathStyle(const PathStyle& style);
    [[nodiscard]] TextStyle defaultTextStyle() const;
    bool setDefaultTextStyle(const TextStyle& style);

    // Views
    [[nodiscard]] int viewCount() const;
    [[nodiscard]] std::unique_ptr<View> viewAtIndex(int index) const;
    [[nodiscard]] std::unique_ptr<View> currentView() const; ///< the first
    [[nodiscard]] double zoom() const;                       ///< of the current view, screen units a point

    // What it is like
    [[nodiscard]] std::string fileName() const;
    [[nodiscard]] std::string filePath() const; ///< empty when it has no file
    [[nodiscard]] bool modified() const;        ///< since it was opened or saved
    bool setModified(bool modified);
    [[nodiscard]] DocumentColorModel colorModel() const;
    [[nodiscard]] RulerUnits rulerUnits() const;
    [[nodiscard]] DocumentSetup setup() const;
    [[nodiscard]] ArtboardRect maxBounds() const; ///< art can lie nowhere else
    [[nodiscard]] Grid grid() const;
    bool setGrid(const Grid& grid);
    [[nodiscard]] Dictionary dictionary() const;

    // What is done with it
    bool undo(); ///< after the message; false when there is nothing to undo
    bool redo();
    bool sync();   ///< what the host derives from art is up to date
    bool redraw(); ///< after the message
    bool syncAndRedraw();
    bool save();  ///< to its file; false when it has none
    bool close(); ///< after the message, with what has not been saved

    // Isolation mode: the pointer reaches nothing but what a group holds, and new art goes into it
    bool enterIsolationMode(Art& group);
    bool exitIsolationMode();
    [[nodiscard]] bool inIsolationMode() const;
    [[nodiscard]] std::unique_ptr<Art> isolatedArt() const;

    // Symbols and patterns, by their names; new ones hold a copy of the art, and have no name when the host makes none
    [[nodiscard]] std::vector<std::string> symbols() const;
    std::string newSymbol(const Art& art);
    [[nodiscard]] std::unique_ptr<Art> newSymbolInstance(const std::string& symbol, PaintOrder order,
                                                         const Art* prep = nullptr);
    [[nodiscard]] std::vector<std::string> patterns() const;
    std::string newPattern(const Art& art);
    [[nodiscard]] std::vector<std::string> gradients() const;

    // Editing modes: after the message, the symbol or pattern is the current document; after the one that leaves the
    // mode, the document is again, and shows what has been made of it
    bool enterSymbolEditingMode(const std::string& symbol);
    bool exitSymbolEditingMode();
    [[nodiscard]] bool inSymbolEditingMode() const;
    [[nodiscard]] std::string editedSymbol() const; ///< its name, or empty
    bool enterPatternEditingMode(const std::string& pattern);
    bool exitPatternEditingMode();
    [[nodiscard]] bool inPatternEditingMode() const;
    [[nodiscard]] std::string editedPattern() const;

    // Text focus
    [[nodiscard]] bool hasTextFocus() const;
    [[nodiscard]] std::unique_ptr<Art> textFocus() const; ///< the text that is being edited, or null
    bool setTextFocus(const Art& text);                   ///< what is selected no longer is
    bool loseTextFocus();
};

} // namespace kzo::core
