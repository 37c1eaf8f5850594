// The host's record of a path point, field by field.
#include "plugin/values/PathSegPoint.h"

#include "hostapi/AIPathSuite.h"
#include "plugin/values/Bezier.h"

namespace kzo::plugin {

PathSegPoint::PathSegPoint(const AIPathSegment& segment)
    : p(segment.p), in(segment.in), out(segment.out), corner(segment.corner != 0) {}

AIPathSegment PathSegPoint::toAIPathSegment() const {
    return {p.toAIRealPoint(), in.toAIRealPoint(), out.toAIRealPoint(), static_cast<AIBoolean>(corner ? 1 : 0)};
}

bool PathSegPoint::curved(const PathSegPoint& other) const { return Bezier(*this, other).curved(); }

} // namespace kzo::plugin
