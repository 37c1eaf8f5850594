// The public affine transform.
#pragma once

#include "utils/ValueImpl.h"

namespace kzo::geo {
struct TransformMatrix;
}

namespace kzo::core {

class Angle;

/// Acts on a point as a row vector: x' = x·a + y·c + tx, y' = x·b + y·d + ty. The members may be assigned at any time;
/// every operation works on what they hold.
class TransformMatrix {
  public:
    double a;
    double b;
    double c;
    double d;
    double tx;
    double ty;

    TransformMatrix(); // the identity
    TransformMatrix(double ma, double mb, double mc, double md, double mtx, double mty);
    explicit TransformMatrix(const geo::TransformMatrix& impl);

    // Queries
    [[nodiscard]] bool operator==(const TransformMatrix& other) const; // exact; a NaN equals nothing
    [[nodiscard]] bool isIdentity() const;
    [[nodiscard]] double determinant() const;
    [[nodiscard]] bool degenerate() const; // the determinant is within 1e-6 of 0
    /// Writes the inverse to `out`, which may be this matrix. A degenerate matrix returns false and writes the
    /// identity.
    bool invert(TransformMatrix& out) const;

    // Setting. Each writes its own elements and leaves the others as they are.
    void setIdentity();
    void setTranslate(double dx, double dy); // takes `dy` upwards, against the axis: ty becomes −dy
    void setScale(double sx, double sy);
    void setRotate(const Angle& angle); // with y down, a positive angle turns clockwise on screen

    // Combination. What is added applies after what is there.
    void concat(const TransformMatrix& next);
    void concatTranslate(double dx, double dy);
    void concatScale(double sx, double sy);
    void concatRotate(const Angle& angle);
    TransformMatrix& operator*=(const TransformMatrix& next);
    friend TransformMatrix operator*(TransformMatrix first, const TransformMatrix& next) { return first *= next; }

    [[nodiscard]] const geo::TransformMatrix& impl() const; // brought up to date with the members

  private:
    /// Runs `change` on the implementation object and takes over the result.
    template <typename Change> void apply(const Change& change);

    mutable utils::ValueImpl<geo::TransformMatrix, 6 * sizeof(double)> impl_;
};

} // namespace kzo::core
