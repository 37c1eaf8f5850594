// One art object of the host's document: the calls behind core::Art.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/values/ArtOptions.h"
#include "core/values/ArtboardRect.h"
#include "core/values/DocumentEnumerations.h"
#include "core/values/DocumentValues.h"
#include "geo/Angle.h"
#include "geo/TransformMatrix.h"
#include "plugin/document/PathArt.h"
#include "plugin/host/Object.h"

struct AIArtboard;
struct AILayer;
struct ArtObject;

namespace kzo::plugin {

class Art : public host::Object<ArtObject> {
  public:
    using Object::Object;
    virtual ~Art() = default;

    /// Makes an object in the document; null when the host refuses.
    [[nodiscard]] static ArtObject* create(core::ArtType type, core::PaintOrder order, ArtObject* prep);

    // Identity
    [[nodiscard]] bool valid() const;
    [[nodiscard]] core::ArtType artType() const;
    [[nodiscard]] bool isLayerGroup() const;
    [[nodiscard]] std::string uid() const;
    [[nodiscard]] std::optional<PathArt> path() const; ///< none when the art is of another type
    /// The same of other types, by the class of their view.
    template <class View> [[nodiscard]] std::optional<View> as() const {
        return artType() == View::kType ? std::optional(View(handle())) : std::nullopt;
    }

    // Attributes
    [[nodiscard]] bool attribute(core::ArtAttribute which) const;
    bool setAttribute(core::ArtAttribute which, bool on);
    [[nodiscard]] core::ArtAttribute allAttributes() const;
    bool setAllAttributes(core::ArtAttribute attributes);
    [[nodiscard]] bool anyAncestor(core::ArtAttribute has) const;
    [[nodiscard]] bool editable() const;

    // Tree
    [[nodiscard]] AILayer* layer() const;
    [[nodiscard]] ArtObject* parent() const;
    [[nodiscard]] ArtObject* firstChild() const;
    [[nodiscard]] ArtObject* lastChild() const;
    [[nodiscard]] ArtObject* sibling() const;
    [[nodiscard]] ArtObject* priorSibling() const;
    [[nodiscard]] std::int32_t childCount() const;
    [[nodiscard]] std::vector<ArtObject*> matchingChildren(const std::vector<core::MatchArtSpec>& kinds) const;
    [[nodiscard]] AIArtboard* artboard() const; ///< null where it lies on none
    [[nodiscard]] std::vector<AIArtboard*> allArtboards() const;

    // Copies and places
    [[nodiscard]] ArtObject* duplicate(core::PaintOrder order, ArtObject* prep) const; ///< null when the host refuses
    bool reorder(core::PaintOrder order, ArtObject* prep);

    // Isolation
    [[nodiscard]] bool canIsolate() const;
    [[nodiscard]] bool isIsolated() const;
    bool isolate();

    // Look
    [[nodiscard]] core::ArtStyle style() const;
    bool setStyle(const core::ArtStyle& style);
    [[nodiscard]] bool isStyled() const;
    [[nodiscard]] bool hasFill() const;
    [[nodiscard]] bool hasStroke() const;
    [[nodiscard]] bool isClipGroup() const;
    bool setIsClipGroup(bool clipped);
    [[nodiscard]] double opacity() const;
    bool setOpacity(double opacity);
    [[nodiscard]] core::BlendMode blendMode() const;
    bool setBlendMode(core::BlendMode mode);
    [[nodiscard]] core::BlendKnockout knockout() const;
    [[nodiscard]] core::BlendKnockout inheritedKnockout() const;
    bool setKnockout(core::BlendKnockout knockout);
    [[nodiscard]] bool centerPointVisible() const;
    bool setCenterPointVisible(bool visible);

    // Bounds
    [[nodiscard]] core::ArtboardRect bounds(core::BoundsOptions options) const;
    [[nodiscard]] double area() const;
    [[nodiscard]] double perimeter() const;
    [[nodiscard]] core::ArtboardRect transformBounds(const geo::TransformMatrix& matrix,
                                                     core::BoundsOptions options) const;

    // Transforms
    bool offset(double dx, double dy, bool patterns);
    bool move(core::BoundsPinPointType pin, const core::ArtboardPoint& to);
    bool rotate(geo::Angle angle, const core::ArtboardPoint& about);
    bool rotateAtPin(geo::Angle angle, core::BoundsPinPointType about);
    bool scale(double factorX, double factorY, const core::ArtboardPoint& about);
    bool scaleAtPin(double factorX, double factorY, core::BoundsPinPointType about);
    bool transform(const geo::TransformMatrix& matrix, bool patterns);
    bool transformWithOptions(const geo::TransformMatrix& matrix, double lineScale, core::TransformOptions options);
    bool transformStrokes(double lineScale);

    bool expand(core::ExpandOptions options, std::int32_t steps);

    // What it refers to
    [[nodiscard]] std::string symbol() const;
    bool setSymbol(const std::string& name);
    bool updateLinks();
    bool updateBounds();

    /// Removes the object from the document. All who share it find it empty from here on, whatever the host returns.
    bool dispose();
    bool disposeChildren();

  private:
    [[nodiscard]] std::optional<core::ArtboardRect> edges() const; ///< of what its paths enclose, if the host tells
    /// The place of a pin point, if the host tells the bounds.
    [[nodiscard]] std::optional<core::ArtboardPoint> pin(core::BoundsPinPointType which) const;

    mutable bool isPath_ = false; // a path stays one; other art may become another kind
};

/// Calls `enter` with `top` and all art in it, groups before what they hold, which is left out where it returns false.
template <class Enter> void forEachArt(ArtObject* top, Enter enter) {
    for (ArtObject* at = top; at;) {
        const Art art(at);
        ArtObject* next = enter(art) ? art.firstChild() : nullptr;
        for (ArtObject* up = at; !next && up && up != top; up = Art(up).parent()) next = Art(up).sibling();
        at = next;
    }
}

} // namespace kzo::plugin
