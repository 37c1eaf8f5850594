// The public rectangle by origin and size, for screens and windows.
#pragma once

#include "core/values/Point.h"
#include "core/values/Size.h"
#include "utils/ValueImpl.h"

namespace kzo::geo {
struct Rect;
}

namespace kzo::core {

/// y down: the origin is the top left corner, and the border belongs to the rectangle. A negative size is taken as
/// given. The members may be assigned at any time; every operation works on what they hold.
class Rect {
  public:
    Point origin;
    Size size;

    Rect(); // empty, at the origin
    Rect(const Point& topLeft, const Size& extent);
    Rect(double x, double y, double width, double height);
    explicit Rect(const geo::Rect& impl);

    // Reference points
    [[nodiscard]] Point topLeft() const;
    [[nodiscard]] Point topCenter() const;
    [[nodiscard]] Point topRight() const;
    [[nodiscard]] Point midLeft() const;
    [[nodiscard]] Point midCenter() const;
    [[nodiscard]] Point midRight() const;
    [[nodiscard]] Point bottomLeft() const;
    [[nodiscard]] Point bottomCenter() const;
    [[nodiscard]] Point bottomRight() const;

    // Measures
    [[nodiscard]] double area() const;
    [[nodiscard]] double perimeter() const;
    [[nodiscard]] bool overlaps(const Rect& other) const; // a shared border is enough
    [[nodiscard]] bool containsPoint(const Point& point) const;
    [[nodiscard]] bool operator==(const Rect& other) const; // exact

    // Changed rectangles; this one stays
    [[nodiscard]] Rect offset(double dx, double dy) const;
    [[nodiscard]] Rect resize(double width, double height) const; // the origin stays
    [[nodiscard]] Rect inset(double dx, double dy) const;         // each edge moves inwards

    // Union, and intersection, which is empty and at the origin when there is none
    Rect& operator+=(const Rect& other);
    Rect& operator-=(const Rect& other);
    friend Rect operator+(Rect a, const Rect& b) { return a += b; }
    friend Rect operator-(Rect a, const Rect& b) { return a -= b; }

    [[nodiscard]] const geo::Rect& impl() const; // brought up to date with the members

  private:
    mutable utils::ValueImpl<geo::Rect, 4 * sizeof(double)> impl_;
};

} // namespace kzo::core
