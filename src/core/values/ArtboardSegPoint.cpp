// Forwards every operation of the public path point to its implementation.
#include "core/values/ArtboardSegPoint.h"

#include "plugin/values/PathSegPoint.h"

namespace kzo::core {

ArtboardSegPoint::ArtboardSegPoint() : ArtboardSegPoint(plugin::PathSegPoint()) {}

ArtboardSegPoint::ArtboardSegPoint(const ArtboardPoint& point, bool isCorner)
    : ArtboardSegPoint(plugin::PathSegPoint(point.impl(), isCorner)) {}

ArtboardSegPoint::ArtboardSegPoint(const ArtboardPoint& anchor, const ArtboardPoint& inPoint,
                                   const ArtboardPoint& outPoint, bool isCorner)
    : ArtboardSegPoint(plugin::PathSegPoint(anchor.impl(), inPoint.impl(), outPoint.impl(), isCorner)) {}

ArtboardSegPoint::ArtboardSegPoint(const plugin::PathSegPoint& impl)
    : p(impl.p), in(impl.in), out(impl.out), corner(impl.corner), impl_(impl) {}

bool ArtboardSegPoint::operator==(const ArtboardSegPoint& other) const { return impl() == other.impl(); }
bool ArtboardSegPoint::curved(const ArtboardSegPoint& other) const { return impl().curved(other.impl()); }

const plugin::PathSegPoint& ArtboardSegPoint::impl() const {
    impl_.get() = plugin::PathSegPoint(p.impl(), in.impl(), out.impl(), corner);
    return impl_.get();
}

} // namespace kzo::core
