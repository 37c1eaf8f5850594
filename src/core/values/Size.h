// The public size: width and height.
#pragma once

#include "utils/ValueImpl.h"

namespace kzo::geo {
struct Size;
}

namespace kzo::core {

class Angle;

/// Lengths in points (1/72 inch).
class Size {
  public:
    Size(); // nothing by nothing
    Size(double width, double height);
    explicit Size(const geo::Size& impl);

    [[nodiscard]] double width() const;
    [[nodiscard]] double height() const;
    void setWidth(double width);
    void setHeight(double height);

    [[nodiscard]] bool operator==(const Size& other) const; // exact
    Size& operator+=(const Size& other);
    Size& operator-=(const Size& other);
    friend Size operator+(Size a, const Size& b) { return a += b; }
    friend Size operator-(Size a, const Size& b) { return a -= b; }

    [[nodiscard]] double diagonalLength() const;
    [[nodiscard]] Angle diagonalAngle() const; // of the vector (width, height)

    [[nodiscard]] const geo::Size& impl() const;

  private:
    utils::ValueImpl<geo::Size, 2 * sizeof(double)> impl_;
};

} // namespace kzo::core
