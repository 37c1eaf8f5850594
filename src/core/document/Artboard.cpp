// Forwards to plugin::Artboard.
#include "core/document/Artboard.h"

#include "core/Forward.h"
#include "plugin/document/Artboard.h"
#include "plugin/host/RefCountMap.h"

namespace kzo::core {

using Impl = plugin::Artboard;
template class Handle<Impl>;

Artboard::Artboard(AIArtboard* handle) : Handle(plugin::share<Impl>(handle)) {}

AIArtboard* Artboard::aiArtboardHandle() const { return ask(impl(), &Impl::handle); }
int Artboard::index() const { return impl() ? impl()->index() : -1; }
std::string Artboard::title() const { return ask(impl(), &Impl::title); }
bool Artboard::setTitle(const std::string& title) { return ask(impl(), &Impl::setTitle, title); }
ArtboardRect Artboard::bounds() const { return ask(impl(), &Impl::bounds); }
bool Artboard::setBounds(const ArtboardRect& bounds) { return ask(impl(), &Impl::setBounds, bounds); }
bool Artboard::dispose() { return ask(impl(), &Impl::dispose); }

} // namespace kzo::core
