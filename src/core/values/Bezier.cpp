// Forwards every operation of the public curve segment to its implementation.
#include "core/values/Bezier.h"

#include "core/values/ArtboardRect.h"
#include "core/values/ArtboardSegPoint.h"
#include "plugin/values/ArtboardRect.h"
#include "plugin/values/Bezier.h"

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

// Points and pieces

ArtboardPoint Bezier::startPoint() const { return ArtboardPoint(impl().startPoint()); }
ArtboardPoint Bezier::startOutPoint() const { return ArtboardPoint(impl().startOutPoint()); }
ArtboardPoint Bezier::endInPoint() const { return ArtboardPoint(impl().endInPoint()); }
ArtboardPoint Bezier::endPoint() const { return ArtboardPoint(impl().endPoint()); }

bool Bezier::adjustThruPoint(const ArtboardPoint& point, double t) {
    plugin::Bezier adjusted = impl();
    const bool done = adjusted.adjustThruPoint(point.impl(), t);
    *this = Bezier(adjusted);
    return done;
}

void Bezier::divide(double t, Bezier& first, Bezier& second) const {
    plugin::Bezier head;
    plugin::Bezier tail;
    impl().divide(t, head, tail);
    first = Bezier(head);
    second = Bezier(tail);
}

Bezier Bezier::section(double t1, double t2) const { return Bezier(impl().section(t1, t2)); }
ArtboardPoint Bezier::evaluate(double t) const { return ArtboardPoint(impl().evaluate(t)); }

// Length

double Bezier::length() const { return impl().length(); }
double Bezier::sublength(double t1, double t2) const { return impl().sublength(t1, t2); }
double Bezier::tAtLength(double length) const { return impl().tAtLength(length); }

void Bezier::setPoints(const ArtboardPoint& start, const ArtboardPoint& startOut, const ArtboardPoint& endIn,
                       const ArtboardPoint& end) {
    *this = Bezier(start, startOut, endIn, end);
}

// Direction and shape

Angle Bezier::tangentAngle(double t) const { return Angle(impl().tangentAngle(t)); }
Angle Bezier::normalAngle(double t) const { return Angle(impl().normalAngle(t)); }
bool Bezier::curved() const { return impl().curved(); }

bool Bezier::radius(double t, double& radius) const {
    ArtboardPoint unused;
    return radiusAndCenter(t, radius, unused);
}

bool Bezier::center(double t, ArtboardPoint& center) const {
    double unused = 0.0;
    return radiusAndCenter(t, unused, center);
}

bool Bezier::radiusAndCenter(double t, double& radius, ArtboardPoint& center) const {
    plugin::ArtboardPoint at;
    if (!impl().radiusAndCenter(t, radius, at)) return false;
    center = ArtboardPoint(at);
    return true;
}

bool Bezier::isCircularArc() const { return impl().isCircularArc(); }
ArtboardRect Bezier::bounds() const { return ArtboardRect(impl().bounds()); }
bool Bezier::operator==(const Bezier& other) const { return impl() == other.impl(); }

} // namespace kzo::core
