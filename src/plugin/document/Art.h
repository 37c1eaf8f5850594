// One art object of the host's document: the calls behind core::Art.
#pragma once

#include <optional>

#include "core/values/DocumentEnumerations.h"
#include "plugin/document/PathArt.h"
#include "plugin/host/Object.h"

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
    [[nodiscard]] std::optional<PathArt> path() const; ///< none when the art is of another type

    // Attributes
    [[nodiscard]] bool attribute(core::ArtAttribute which) const;
    bool setAttribute(core::ArtAttribute which, bool on);
    [[nodiscard]] bool selected() const { return attribute(core::ArtAttribute::Selected); }
    [[nodiscard]] bool locked() const { return attribute(core::ArtAttribute::Locked); }
    [[nodiscard]] bool hidden() const { return attribute(core::ArtAttribute::Hidden); }
    bool select();
    bool deselect();

    // Tree
    [[nodiscard]] ArtObject* parent() const;
    [[nodiscard]] ArtObject* firstChild() const;
    [[nodiscard]] ArtObject* sibling() const;
    [[nodiscard]] ArtObject* priorSibling() const;

    // Whole objects moved
    bool offset(double dx, double dy, bool patterns);

    /// Removes the object from the document. All who share it find it empty from here on, whatever the host returns.
    bool dispose();

  private:
    mutable core::ArtType type_ = core::ArtType::Unknown; // once known it never changes
};

} // namespace kzo::plugin
