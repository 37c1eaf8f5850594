// Forwards every operation of the public transform to its implementation.
#include "core/values/TransformMatrix.h"

#include "core/values/Angle.h"
#include "geo/TransformMatrix.h"

namespace kzo::core {

TransformMatrix::TransformMatrix() : TransformMatrix(geo::TransformMatrix()) {}

TransformMatrix::TransformMatrix(double ma, double mb, double mc, double md, double mtx, double mty)
    : TransformMatrix(geo::TransformMatrix{ma, mb, mc, md, mtx, mty}) {}

TransformMatrix::TransformMatrix(const geo::TransformMatrix& impl)
    : a(impl.a), b(impl.b), c(impl.c), d(impl.d), tx(impl.tx), ty(impl.ty), impl_(impl) {}

const geo::TransformMatrix& TransformMatrix::impl() const {
    impl_.get() = {a, b, c, d, tx, ty};
    return impl_.get();
}

template <typename Change> void TransformMatrix::apply(const Change& change) {
    geo::TransformMatrix changed = impl();
    change(changed);
    *this = TransformMatrix(changed);
}

// Queries

bool TransformMatrix::operator==(const TransformMatrix& other) const { return impl() == other.impl(); }
bool TransformMatrix::isIdentity() const { return impl().isIdentity(); }
double TransformMatrix::determinant() const { return impl().determinant(); }
bool TransformMatrix::degenerate() const { return impl().degenerate(); }

bool TransformMatrix::invert(TransformMatrix& out) const {
    geo::TransformMatrix inverse;
    const bool done = impl().invert(inverse);
    out = TransformMatrix(inverse);
    return done;
}

// Setting

void TransformMatrix::setIdentity() { *this = {}; }

void TransformMatrix::setTranslate(double dx, double dy) {
    apply([=](geo::TransformMatrix& m) { m.setTranslate(dx, dy); });
}

void TransformMatrix::setScale(double sx, double sy) {
    apply([=](geo::TransformMatrix& m) { m.setScale(sx, sy); });
}

void TransformMatrix::setRotate(const Angle& angle) {
    apply([&](geo::TransformMatrix& m) { m.setRotate(angle.impl()); });
}

// Combination

void TransformMatrix::concat(const TransformMatrix& next) {
    apply([&](geo::TransformMatrix& m) { m.concat(next.impl()); });
}

void TransformMatrix::concatTranslate(double dx, double dy) {
    apply([=](geo::TransformMatrix& m) { m.concatTranslate(dx, dy); });
}

void TransformMatrix::concatScale(double sx, double sy) {
    apply([=](geo::TransformMatrix& m) { m.concatScale(sx, sy); });
}

void TransformMatrix::concatRotate(const Angle& angle) {
    apply([&](geo::TransformMatrix& m) { m.concatRotate(angle.impl()); });
}

TransformMatrix& TransformMatrix::operator*=(const TransformMatrix& next) {
    concat(next);
    return *this;
}

} // namespace kzo::core
