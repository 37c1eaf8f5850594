// A handle on one object of the document's art tree.
#pragma once

#include <memory>

#include "core/Handle.h"
#include "core/document/PathArt.h"
#include "core/values/DocumentEnumerations.h"

struct ArtObject;

namespace kzo::plugin {
class Art;
}

namespace kzo::core {

class __IntArtData;

extern template class Handle<plugin::Art>;

/// Operations on an empty handle do nothing and return false, 0, an empty handle or null; relatives are new handles,
/// null where there is none. The first child is the topmost.
class Art : public Handle<plugin::Art> {
  public:
    class Iterator;

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

    // Views by type; each does nothing when the art is of another type
    [[nodiscard]] PathArt* path() const;

    // Attributes
    [[nodiscard]] bool attribute(ArtAttribute which) const;
    [[nodiscard]] bool selected() const;
    [[nodiscard]] bool locked() const;
    [[nodiscard]] bool hidden() const;
    void select(); ///< with all its points
    void deselect();

    // Tree
    [[nodiscard]] std::unique_ptr<Art> parent() const;
    [[nodiscard]] std::unique_ptr<Art> firstChild() const;
    [[nodiscard]] std::unique_ptr<Art> sibling() const;
    [[nodiscard]] std::unique_ptr<Art> priorSibling() const;
    [[nodiscard]] Iterator begin() const;

    // Whole objects moved
    bool offset(double dx, double dy, bool patterns = false); ///< with all it holds; points, y down

    // Removal
    bool dispose(); ///< takes the object out of the document

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
