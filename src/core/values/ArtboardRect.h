// The public rectangle of the artboard, by its edges: bounds of art, artboards and views.
#pragma once

#include "core/values/ArtboardPoint.h"
#include "utils/ValueImpl.h"

namespace kzo::plugin {
struct ArtboardRect;
}

namespace kzo::core {

/// Edges in points, y down: top is the smaller y, and the border belongs to the rectangle. Edges are taken as given and
/// never put in order. The members may be assigned at any time; every operation works on what they hold.
class ArtboardRect {
  public:
    double left;
    double top;
    double right;
    double bottom;

    ArtboardRect(); // empty, at the origin
    ArtboardRect(double leftEdge, double topEdge, double rightEdge, double bottomEdge);
    explicit ArtboardRect(const plugin::ArtboardRect& impl);

    // Reference points
    [[nodiscard]] ArtboardPoint topLeft() const;
    [[nodiscard]] ArtboardPoint topCenter() const;
    [[nodiscard]] ArtboardPoint topRight() const;
    [[nodiscard]] ArtboardPoint midLeft() const;
    [[nodiscard]] ArtboardPoint midCenter() const;
    [[nodiscard]] ArtboardPoint midRight() const;
    [[nodiscard]] ArtboardPoint bottomLeft() const;
    [[nodiscard]] ArtboardPoint bottomCenter() const;
    [[nodiscard]] ArtboardPoint bottomRight() const;

    // Measures
    [[nodiscard]] double width() const;
    [[nodiscard]] double height() const;
    [[nodiscard]] double area() const;
    [[nodiscard]] double perimeter() const;
    [[nodiscard]] bool overlaps(const ArtboardRect& other) const; // a shared border is enough
    [[nodiscard]] bool containsPoint(const ArtboardPoint& point) const;
    [[nodiscard]] bool operator==(const ArtboardRect& other) const; // exact

    // Changed rectangles; this one stays
    [[nodiscard]] ArtboardRect offset(double dx, double dy) const;
    [[nodiscard]] ArtboardRect resize(double width, double height) const; // the top left corner stays
    [[nodiscard]] ArtboardRect inset(double dx, double dy) const;         // each edge moves inwards

    // Union, and intersection, which is empty and at the origin when there is none
    ArtboardRect& operator+=(const ArtboardRect& other);
    ArtboardRect& operator-=(const ArtboardRect& other);
    friend ArtboardRect operator+(ArtboardRect a, const ArtboardRect& b) { return a += b; }
    friend ArtboardRect operator-(ArtboardRect a, const ArtboardRect& b) { return a -= b; }

    [[nodiscard]] const plugin::ArtboardRect& impl() const; // brought up to date with the members

  private:
    mutable utils::ValueImpl<plugin::ArtboardRect, 4 * sizeof(double)> impl_;
};

} // namespace kzo::core
