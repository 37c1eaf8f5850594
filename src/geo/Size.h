// Width and height as a plain value.
#pragma once

#include "geo/Angle.h"

namespace kzo::geo {

/// Lengths in points (1/72 inch).
struct Size {
    double width = 0.0;
    double height = 0.0;

    constexpr bool operator==(const Size&) const = default; // exact

    constexpr Size& operator+=(Size other) { return *this = {width + other.width, height + other.height}; }
    constexpr Size& operator-=(Size other) { return *this = {width - other.width, height - other.height}; }
    friend constexpr Size operator+(Size a, Size b) { return a += b; }
    friend constexpr Size operator-(Size a, Size b) { return a -= b; }

    [[nodiscard]] double diagonalLength() const;
    [[nodiscard]] Angle diagonalAngle() const; // of the vector (width, height)
};

} // namespace kzo::geo
