// Rotation, combination and inversion of transforms.
#include "geo/TransformMatrix.h"

#include "utils/Tolerance.h"

namespace kzo::geo {

bool TransformMatrix::degenerate() const { return utils::equalWithinTol(determinant(), 0.0, 1e-6); }

bool TransformMatrix::invert(TransformMatrix& out) const {
    const TransformMatrix m = *this;
    out.setIdentity();
    if (m.degenerate()) return false;
    const double det = m.determinant();
    out = {
        m.d / det, -m.b / det, -m.c / det, m.a / det, (m.c * m.ty - m.d * m.tx) / det, (m.b * m.tx - m.a * m.ty) / det};
    return true;
}

void TransformMatrix::setRotate(Angle angle) {
    constexpr double kSnap = 1e-10;
    a = d = angle.cos(kSnap);
    b = angle.sin(kSnap);
    c = -b;
}

void TransformMatrix::concatTranslate(double dx, double dy) {
    TransformMatrix step;
    step.setTranslate(dx, dy);
    concat(step);
}

void TransformMatrix::concatScale(double sx, double sy) {
    TransformMatrix step;
    step.setScale(sx, sy);
    concat(step);
}

void TransformMatrix::concatRotate(Angle angle) {
    TransformMatrix step;
    step.setRotate(angle);
    concat(step);
}

} // namespace kzo::geo
