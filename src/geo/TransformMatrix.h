// The affine transform as a plain value.
#pragma once

#include "geo/Angle.h"

namespace kzo::geo {

/// Acts on a point as a row vector: x' = x·a + y·c + tx, y' = x·b + y·d + ty. The default is the identity.
struct TransformMatrix {
    double a = 1.0;
    double b = 0.0;
    double c = 0.0;
    double d = 1.0;
    double tx = 0.0;
    double ty = 0.0;

    // Queries
    constexpr bool operator==(const TransformMatrix&) const = default; // exact
    [[nodiscard]] constexpr bool isIdentity() const { return *this == TransformMatrix(); }
    [[nodiscard]] constexpr double determinant() const { return a * d - b * c; }
    [[nodiscard]] bool degenerate() const; // the determinant is within 1e-6 of 0
    /// Writes the inverse to `out`, which may be this matrix. A degenerate matrix returns false and writes the
    /// identity.
    bool invert(TransformMatrix& out) const;

    // Setting. Each writes its own elements and leaves the others as they are.
    constexpr void setIdentity() { *this = {}; }
    /// Takes `dy` upwards, against the axis: ty becomes −dy.
    constexpr void setTranslate(double dx, double dy) {
        tx = dx;
        ty = -dy;
    }
    constexpr void setScale(double sx, double sy) {
        a = sx;
        d = sy;
    }
    /// Turns x towards y: with y down, as on the artboard, a positive angle turns clockwise on screen.
    void setRotate(Angle angle);

    // Combination. What is added applies after what is there.
    constexpr void concat(const TransformMatrix& next) { *this *= next; }
    void concatTranslate(double dx, double dy);
    void concatScale(double sx, double sy);
    void concatRotate(Angle angle);
    constexpr TransformMatrix& operator*=(const TransformMatrix& next) { return *this = *this * next; }
    friend constexpr TransformMatrix operator*(const TransformMatrix& p, const TransformMatrix& n) {
        return {p.a * n.a + p.b * n.c, p.a * n.b + p.b * n.d,          p.c * n.a + p.d * n.c,
                p.c * n.b + p.d * n.d, p.tx * n.a + p.ty * n.c + n.tx, p.tx * n.b + p.ty * n.d + n.ty};
    }
};

} // namespace kzo::geo
