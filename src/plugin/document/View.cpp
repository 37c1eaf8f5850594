// The document view suite's calls.
#include "plugin/document/View.h"

#include "hostapi/AIDocumentViewSuite.h"
#include "plugin/document/Convert.h"

namespace kzo::plugin {

using Suite = AIDocumentViewSuite;

core::ArtboardRect View::bounds() const { return get<&Suite::GetDocumentViewBounds, core::ArtboardRect>(); }
core::ArtboardPoint View::center() const { return get<&Suite::GetDocumentViewCenter, core::ArtboardPoint>(); }
bool View::setCenter(const core::ArtboardPoint& center) { return call<&Suite::SetDocumentViewCenter>(center); }
double View::zoom() const { return get<&Suite::GetDocumentViewZoom>(); }
bool View::setZoom(double zoom) { return call<&Suite::SetDocumentViewZoom>(zoom); }

} // namespace kzo::plugin
