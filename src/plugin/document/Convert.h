// How the document's values, and the enumerations that have the host's numbers, stand in the host's calls. The host's y
// grows downward, as ours does, so nothing is flipped. What takes a suite's own records or constants stands in the
// other Convert headers or, where one source calls it, there, so that a suite's header rebuilds only who uses it.
#pragma once

#include "core/values/ArtboardPoint.h"
#include "core/values/ArtboardRect.h"
#include "core/values/DocumentEnumerations.h"
#include "core/values/DocumentValues.h"
#include "geo/TransformMatrix.h"
#include "hostapi/SPTypes.h"
#include "plugin/host/HostCall.h"
#include "plugin/values/ArtboardPoint.h"
#include "plugin/values/ArtboardRect.h"

namespace kzo::plugin::host {

template <> struct HostForm<core::ArtboardPoint> {
    static AIRealPoint toHost(const core::ArtboardPoint& point) { return point.impl().toAIRealPoint(); }
    static core::ArtboardPoint fromHost(const AIRealPoint& point) { return core::ArtboardPoint(ArtboardPoint(point)); }
};
template <> struct HostForm<core::ArtboardRect> {
    static AIRealRect toHost(const core::ArtboardRect& rect) { return rect.impl().toAIRealRect(); }
    static core::ArtboardRect fromHost(const AIRealRect& rect) { return core::ArtboardRect(ArtboardRect(rect)); }
};
template <> struct HostForm<geo::TransformMatrix> {
    static AIRealMatrix toHost(const geo::TransformMatrix& m) { return {m.a, m.b, m.c, m.d, m.tx, m.ty}; }
    static geo::TransformMatrix fromHost(const AIRealMatrix& m) { return {m.a, m.b, m.c, m.d, m.tx, m.ty}; }
};

template <> struct HostForm<core::PaintOrder> : SameNumbers<core::PaintOrder> {};
template <> struct HostForm<core::BlendMode> : SameNumbers<core::BlendMode> {};
template <> struct HostForm<core::BlendKnockout> : SameNumbers<core::BlendKnockout> {};
template <> struct HostForm<core::DocumentColorModel> : SameNumbers<core::DocumentColorModel> {};
template <> struct HostForm<core::RulerUnits> : SameNumbers<core::RulerUnits> {};

} // namespace kzo::plugin::host
