// Forwards to plugin::View.
#include "core/document/View.h"

#include "core/Forward.h"
#include "plugin/document/View.h"
#include "plugin/host/RefCountMap.h"

namespace kzo::core {

using Impl = plugin::View;
template class Handle<Impl>;

View::View(AIDocumentView* handle) : Handle(plugin::share<Impl>(handle)) {}

AIDocumentView* View::aiDocumentViewHandle() const { return ask(impl(), &Impl::handle); }
ArtboardRect View::bounds() const { return ask(impl(), &Impl::bounds); }
ArtboardPoint View::center() const { return ask(impl(), &Impl::center); }
bool View::setCenter(const ArtboardPoint& center) { return ask(impl(), &Impl::setCenter, center); }
double View::zoom() const { return ask(impl(), &Impl::zoom); }
bool View::setZoom(double zoom) { return ask(impl(), &Impl::setZoom, zoom); }

} // namespace kzo::core
