// Forwards every operation of the public curve segment to its implementation.
#include "core/Bezier.h"

#include "core/ArtboardSegPoint.h"
#include "plugin/Bezier.h"

namespace kzo::core {

Bezier::Bezier() : Bezier(plugin::Bezier()) {}

Bezier::Bezier(const ArtboardPoint& start, const ArtboardPoint& startOut, const ArtboardPoint& endIn,
               const ArtboardPoint& end)
    : Bezier(plugin::Bezier(start.impl(), startOut.impl(), endIn.impl(), end.impl())) {}

Bezier::Bezier(const ArtboardSegPoint& a, const ArtboardSegPoint& b) : Bezier(a.p, a.out, b.in, b.p) {}

Bezier::Bezier(const plugin::Bezier& impl)
    : p0(impl.startPoint()), p1(impl.startOutPoint()), p2(impl.endInPoint()), p3(impl.endPoint()), impl_(impl) {}

const plugin::Bezier& Bezier::impl() const {
    impl_->setPoints(p0.impl(), p1.impl(), p2.impl(), p3.impl());
    return impl_.get();
}

ArtboardPoint Bezier::startPoint() const { return ArtboardPoint(impl().startPoint()); }
ArtboardPoint Bezier::startOutPoint() const { return ArtboardPoint(impl().startOutPoint()); }
ArtboardPoint Bezier::endInPoint() const { return ArtboardPoint(impl().endInPoint()); }
ArtboardPoint Bezier::endPoint() const { return ArtboardPoint(impl().endPoint()); }
ArtboardPoint Bezier::evaluate(double t) const { return ArtboardPoint(impl().evaluate(t)); }

void Bezier::setPoints(const ArtboardPoint& start, const ArtboardPoint& startOut, const ArtboardPoint& endIn,
                       const ArtboardPoint& end) {
    *this = Bezier(start, startOut, endIn, end);
}

Angle Bezier::tangentAngle(double t) const { return Angle(impl().tangentAngle(t)); }
bool Bezier::curved() const { return impl().curved(); }
bool Bezier::operator==(const Bezier& other) const { return impl() == other.impl(); }

} // namespace kzo::core
