// Between artboard points and the cubic's formulas.
#include "plugin/values/Bezier.h"

namespace kzo::plugin {

Bezier::Bezier(const ArtboardPoint& p0, const ArtboardPoint& p1, const ArtboardPoint& p2, const ArtboardPoint& p3) {
    setPoints(p0, p1, p2, p3);
}

ArtboardPoint Bezier::startPoint() const { return ArtboardPoint(curve_.p0); }
ArtboardPoint Bezier::startOutPoint() const { return ArtboardPoint(curve_.p1); }
ArtboardPoint Bezier::endInPoint() const { return ArtboardPoint(curve_.p2); }
ArtboardPoint Bezier::endPoint() const { return ArtboardPoint(curve_.p3); }

bool Bezier::adjustThruPoint(const ArtboardPoint& point, double t) { return curve_.adjustThruPoint(point.plain(), t); }

void Bezier::divide(double t, Bezier& first, Bezier& second) const {
    const Bezier whole = *this;
    first = whole.section(0.0, t);
    second = whole.section(t, 1.0);
}

Bezier Bezier::section(double t1, double t2) const { return Bezier(curve_.section(t1, t2)); }
ArtboardPoint Bezier::evaluate(double t) const { return ArtboardPoint(curve_.evaluate(t)); }

void Bezier::setPoints(const ArtboardPoint& p0, const ArtboardPoint& p1, const ArtboardPoint& p2,
                       const ArtboardPoint& p3) {
    curve_ = {p0.plain(), p1.plain(), p2.plain(), p3.plain()};
}

geo::Angle Bezier::tangentAngle(double t) const {
    const auto along = curve_.direction(t);
    return along ? ArtboardPoint().direction(ArtboardPoint(*along)) : geo::Angle::Zero();
}

geo::Angle Bezier::normalAngle(double t) const { return (tangentAngle(t) + geo::Angle::Pi() / 2.0).rangeNegPiToPi(); }

bool Bezier::radiusAndCenter(double t, double& radius, ArtboardPoint& center) const {
    const auto circle = curve_.osculatingCircle(t);
    if (!circle) return false;
    radius = circle->radius;
    center = ArtboardPoint(circle->center);
    return true;
}

ArtboardRect Bezier::bounds() const { return ArtboardRect(curve_.bounds()); }

} // namespace kzo::plugin
