// A handle on one object of the document's art tree.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "core/Handle.h"
#include "core/document/CustomArt.h"
#include "core/document/MaskArt.h"
#include "core/document/MeshArt.h"
#include "core/document/PathArt.h"
#include "core/document/PlacedArt.h"
#include "core/document/RasterArt.h"
#include "core/document/TextArt.h"
#include "core/values/ArtOptions.h"
#include "core/values/ArtboardRect.h"
#include "core/values/DocumentEnumerations.h"
#include "core/values/DocumentValues.h"

struct ArtObject;

namespace kzo::plugin {
class Art;
}

namespace kzo::core {

class __IntArtData;
class Angle;
class Artboard;
class Dictionary;
class Layer;
class TransformMatrix;

extern template class Handle<plugin::Art>;

/// Operations on an empty handle do nothing and return false, 0, an empty handle or null; relatives are new handles,
/// null where there is none. The first child is the topmost. Operations that change something return whether the host
/// did it. Lengths are points, y down.
class Art : public Handle<plugin::Art> {
  public:
    class Iterator;

    using BoundsOptions = core::BoundsOptions;
    using TransformOptions = core::TransformOptions;
    using ExpandOptions = core::ExpandOptions;

    // Construction
    Art(); ///< empty
    explicit Art(ArtObject* handle);
    /// Makes a new object in the document. Empty when the host refuses.
    Art(ArtType type, PaintOrder order, const Art* prep = nullptr);
    Art(const Art& other);
    Art& operator=(const Art& other);
    ~Art();

    // Identity
    [[nodiscard]] ArtObject* aiArtHandle() const;
    [[nodiscard]] bool valid() const; ///< whether the host still knows the object
    [[nodiscard]] ArtType artType() const;
    [[nodiscard]] std::string uid() const;   ///< no other object has had it, and undo brings it back
    [[nodiscard]] bool isLayerGroup() const; ///< holds all art of a layer

    // Views by type; each does nothing when the art is of another type
    [[nodiscard]] PathArt* path() const;
    [[nodiscard]] CustomArt* customArt() const;
    [[nodiscard]] MaskArt* mask() const; ///< of art of any type
    [[nodiscard]] MeshArt* mesh() const;
    [[nodiscard]] PlacedArt* placed() const;
    [[nodiscard]] RasterArt* raster() const;
    [[nodiscard]] TextArt* text() const;

    // Attributes
    [[nodiscard]] bool attribute(ArtAttribute which) const; ///< all of them
    bool setAttribute(ArtAttribute which, bool on);
    [[nodiscard]] ArtAttribute allAttributes() const;
    bool setAllAttributes(ArtAttribute attributes); ///< those not named are taken away
    [[nodiscard]] bool selected() const;
    [[nodiscard]] bool fullySelected() const; ///< with all its points
    [[nodiscard]] bool anyAncestorSelected() const;
    bool setSelected(bool selected); ///< with all its points
    void select();
    void deselect();
    [[nodiscard]] bool locked() const;
    [[nodiscard]] bool anyAncestorLocked() const;
    bool setLocked(bool locked);
    [[nodiscard]] bool hidden() const;
    [[nodiscard]] bool anyAncestorHidden() const;
    bool setHidden(bool hidden);
    [[nodiscard]] bool editable() const; ///< neither it nor anything around it is locked or hidden
    bool setEditable(bool editable);     ///< locks or unlocks it; what is around it stays as it is

    // Tree
    [[nodiscard]] std::unique_ptr<Layer> layer() const;
    [[nodiscard]] std::unique_ptr<Art> parent() const;
    [[nodiscard]] std::unique_ptr<Art> firstChild() const;
    [[nodiscard]] std::unique_ptr<Art> lastChild() const;
    [[nodiscard]] std::unique_ptr<Art> sibling() const;
    [[nodiscard]] std::unique_ptr<Art> priorSibling() const;
    [[nodiscard]] std::int32_t childCount() const;
    /// All that matches any of these, also deeper down, topmost first; never null.
    [[nodiscard]] std::unique_ptr<std::vector<Art>> matchingChildren(const std::vector<MatchArtSpec>& kinds) const;
    [[nodiscard]] std::unique_ptr<Artboard> artboard() const; ///< that it has most of its bounds on; null for none
    [[nodiscard]] std::vector<Artboard> allArtboards() const; ///< that its bounds reach
    [[nodiscard]] Iterator begin() const;

    // Copies and places. Nothing can be put into itself, and the group of a layer stays.
    [[nodiscard]] std::unique_ptr<Art> duplicate(PaintOrder order,
                                                 const Art* prep = nullptr) const; ///< null if refused
    bool reorder(PaintOrder order, const Art* prep = nullptr);

    // Isolation, see CurrentDocument
    [[nodiscard]] bool canIsolate() const;
    [[nodiscard]] bool isIsolated() const; ///< or something around it is
    bool isolate();

    // Look. The paint of a group is that of its topmost path, and setting it paints every path in it.
    [[nodiscard]] ArtStyle style() const;
    bool setStyle(const ArtStyle& style);
    [[nodiscard]] bool isStyled() const;    ///< is blended in another way than art is at first
    [[nodiscard]] bool hasFill() const;     ///< or anything in it
    [[nodiscard]] bool hasStroke() const;   ///< or anything in it
    [[nodiscard]] bool isClipGroup() const; ///< only what lies inside a mask shows
    bool setIsClipGroup(bool clipped);      ///< the topmost path in it becomes the mask, or is that again
    [[nodiscard]] double opacity() const;   ///< 0 to 1
    bool setOpacity(double opacity);
    [[nodiscard]] BlendMode blendMode() const;
    bool setBlendMode(BlendMode mode);
    [[nodiscard]] BlendKnockout knockout() const;
    [[nodiscard]] BlendKnockout inheritedKnockout() const; ///< on or off, as what is around it says
    bool setKnockout(BlendKnockout knockout);
    [[nodiscard]] bool centerPointVisible() const; ///< the middle of its bounds shows as a point
    bool setCenterPointVisible(bool visible);

    // What plug-ins keep with it
    [[nodiscard]] Dictionary dictionary() const;

    // Bounds; empty and at the origin for what takes no place
    [[nodiscard]] ArtboardRect bounds(BoundsOptions options) const;
    [[nodiscard]] ArtboardRect strokeBounds() const;
    [[nodiscard]] ArtboardRect noStrokeBounds() const;
    [[nodiscard]] ArtboardRect transformBounds(const TransformMatrix& matrix,
                                               BoundsOptions options) const; ///< after it
    [[nodiscard]] double x() const; ///< of these four, without strokes: the left edge
    [[nodiscard]] double y() const; ///< the top edge
    [[nodiscard]] double width() const;
    [[nodiscard]] double height() const;
    [[nodiscard]] double area() const;      ///< of what the paths in it enclose, each for itself
    [[nodiscard]] double perimeter() const; ///< the lengths of the paths in it

    // Transforms. A matrix acts on points of the artboard, and one without an inverse is refused. Patterns stay behind,
    // where the host can, unless they are asked along. Strokes keep their widths.
    bool offset(double dx, double dy, bool patterns = false);
    bool move(const ArtboardPoint& to); ///< the top left of its bounds
    bool move(BoundsPinPointType pin, const ArtboardPoint& to);
    bool rotate(const Angle& angle); ///< counter-clockwise on screen, about the middle of its bounds
    bool rotate(const Angle& angle, const ArtboardPoint& about);
    bool rotate(const Angle& angle, BoundsPinPointType about);
    bool scale(double factor); ///< about the middle of its bounds
    bool scale(double factor, const ArtboardPoint& about);
    bool scale(double factor, BoundsPinPointType about);
    bool scale(double factorX, double factorY);
    bool scale(double factorX, double factorY, const ArtboardPoint& about);
    bool scale(double factorX, double factorY, BoundsPinPointType about);
    bool transform(const TransformMatrix& matrix, bool patterns = false);
    bool transformWithOptions(const TransformMatrix& matrix, double lineScale, TransformOptions options);
    bool transformStrokes(double lineScale); ///< stroke widths and dashes alone

    /// Takes it and all in it apart, gradients into so many steps; false when there was nothing to do. What was taken
    /// apart is gone, and something else has its place.
    bool expand(ExpandOptions options, std::int32_t steps = 256);

    // What it refers to
    [[nodiscard]] std::string symbol() const; ///< the name of the symbol that it is an instance of; empty for other art
    bool setSymbol(const std::string& name);
    bool updateLinks();  ///< looks at the files of all placed art in it; false when one is missing
    bool updateBounds(); ///< finds out where it lies, as far as that is still to be done

    // Removal
    bool dispose(); ///< takes the object out of the document
    bool disposeChildren();

  private:
    std::unique_ptr<__IntArtData> data_;
};

/// Walks the children of a group, topmost first.
class Art::Iterator {
  public:
    explicit Iterator(std::unique_ptr<Art> child) : child_(std::move(child)) {}

    [[nodiscard]] bool atEnd() const { return !child_; }
    [[nodiscard]] std::unique_ptr<Art> art() const;
    Iterator& operator++();
    Iterator& operator--();

  private:
    std::unique_ptr<Art> child_;
};

} // namespace kzo::core
