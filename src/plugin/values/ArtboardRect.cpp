// The host's record of a rectangle, edge by edge.
#include "plugin/values/ArtboardRect.h"

#include "hostapi/SPTypes.h"

namespace kzo::plugin {

ArtboardRect::ArtboardRect(const AIRealRect& rect) : ArtboardRect(rect.left, rect.top, rect.right, rect.bottom) {}

AIRealRect ArtboardRect::toAIRealRect() const { return {left(), top(), right(), bottom()}; }

} // namespace kzo::plugin
