// Masks, and how they lie on the art. Made by whoever reads a drawing; nothing changes them later.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <vector>

#include "model/Shared.h"
#include "model/Types.h"

namespace easel::model {

/// What lies inside of any of some shapes, their outlines included. Nothing lies inside of a mask without shapes.
class Mask {
  public:
    struct Shape {
        std::vector<PathData> subpaths; ///< all closed
        bool evenOdd = false;           ///< the even-odd fill rule, else nonzero
    };

    explicit Mask(std::vector<Shape> shapes);

    [[nodiscard]] bool contains(Point point) const;
    [[nodiscard]] bool meets(const Box& box) const; ///< whether anything in the box lies inside
    [[nodiscard]] const std::vector<Shape>& shapes() const { return shapes_; }

  private:
    std::vector<Shape> shapes_;
    std::vector<Box> hulls_; // of each shape
};

/// A mask on some art. It goes along with what is done to the art as a whole.
struct Clip {
    std::shared_ptr<const Mask> mask;
    /// From the document's units to the mask's: x' = a x + c y + e, y' = b x + d y + f.
    std::array<double, 6> toMask{1, 0, 0, 1, 0, 0};
    /// Only of a path: the units are made such that its box goes from 0 to 1, wherever it lies and whatever its shape.
    bool fitsBox = false;

    bool operator==(const Clip&) const = default;
};

class Node;

/// What takes a box to the one from 0 to 1; none where it has no extent.
[[nodiscard]] std::optional<Affine> toUnitBox(const Box& box);

/// From the document, as it is now, to the units of the mask that the node has itself; none where that has no place.
[[nodiscard]] std::optional<Affine> wayToMask(const Node& node);
/// A clip for a group, of shapes in the document's units.
[[nodiscard]] Clip clipOnPage(const Node& group, std::vector<Mask::Shape> shapes);
/// The shapes of the mask that the node has itself, as they lie in the document now.
[[nodiscard]] std::vector<Mask::Shape> maskOnPage(const Node& node);
/// Whether the point lies inside of the masks of the node and of its ancestors.
[[nodiscard]] bool passesClip(const Node& node, Point point);
/// Whether each of them has some place of the box inside; their common inside may still miss the box.
[[nodiscard]] bool mayPassClip(const Node& node, const Box& box);

} // namespace easel::model
