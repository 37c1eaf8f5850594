// Between artboard points and the cubic's formulas.
#include "plugin/Bezier.h"

namespace kzo::plugin {

namespace {

geo::Point plain(const ArtboardPoint& point) { return {point.x, point.y}; }
ArtboardPoint onArtboard(const geo::Point& point) { return {point.x, point.y}; }

} // namespace

Bezier::Bezier(const ArtboardPoint& p0, const ArtboardPoint& p1, const ArtboardPoint& p2, const ArtboardPoint& p3) {
    setPoints(p0, p1, p2, p3);
}

ArtboardPoint Bezier::startPoint() const { return onArtboard(curve_.p0); }
ArtboardPoint Bezier::startOutPoint() const { return onArtboard(curve_.p1); }
ArtboardPoint Bezier::endInPoint() const { return onArtboard(curve_.p2); }
ArtboardPoint Bezier::endPoint() const { return onArtboard(curve_.p3); }

ArtboardPoint Bezier::evaluate(double t) const { return onArtboard(curve_.evaluate(t)); }

void Bezier::setPoints(const ArtboardPoint& p0, const ArtboardPoint& p1, const ArtboardPoint& p2,
                       const ArtboardPoint& p3) {
    curve_ = {plain(p0), plain(p1), plain(p2), plain(p3)};
}

geo::Angle Bezier::tangentAngle(double t) const {
    const auto along = curve_.direction(t);
    return along ? ArtboardPoint().direction(onArtboard(*along)) : geo::Angle::Zero();
}

bool Bezier::curved() const { return curve_.curved(); }

} // namespace kzo::plugin
