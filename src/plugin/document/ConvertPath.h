// How points of a path stand in the host's calls.
#pragma once

#include "core/values/ArtboardSegPoint.h"
#include "geo/Path.h"
#include "hostapi/AIPathSuite.h"
#include "plugin/host/HostCall.h"
#include "plugin/values/PathSegPoint.h"

namespace kzo::plugin::host {

template <> struct HostForm<core::ArtboardSegPoint> {
    static AIPathSegment toHost(const core::ArtboardSegPoint& point) { return point.impl().toAIPathSegment(); }
    static core::ArtboardSegPoint fromHost(const AIPathSegment& record) {
        return core::ArtboardSegPoint(PathSegPoint(record));
    }
};

template <> struct HostForm<geo::Anchor> {
    static AIPathSegment toHost(const geo::Anchor& a) {
        return {{a.p.x, a.p.y}, {a.in.x, a.in.y}, {a.out.x, a.out.y}, static_cast<AIBoolean>(a.corner ? 1 : 0)};
    }
    static geo::Anchor fromHost(const AIPathSegment& r) {
        return {{r.p.h, r.p.v}, {r.in.h, r.in.v}, {r.out.h, r.out.v}, r.corner != 0};
    }
};

} // namespace kzo::plugin::host
