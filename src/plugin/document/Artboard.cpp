// The artboard suite's calls.
#include "plugin/document/Artboard.h"

#include "hostapi/AIArtboardSuite.h"
#include "plugin/document/Convert.h"
#include "plugin/host/RefCountMap.h"

namespace kzo::plugin {

std::vector<AIArtboard*> Artboard::all() {
    return host::all<&AIArtboardSuite::CountArtboards, &AIArtboardSuite::GetNthArtboard>();
}

int Artboard::index() const { return getOr<&AIArtboardSuite::GetArtboardIndex>(-1); }
std::string Artboard::title() const { return get<&AIArtboardSuite::GetArtboardTitle>(); }
bool Artboard::setTitle(const std::string& title) { return call<&AIArtboardSuite::SetArtboardTitle>(title); }
core::ArtboardRect Artboard::bounds() const { return get<&AIArtboardSuite::GetArtboardBounds, core::ArtboardRect>(); }
bool Artboard::setBounds(const core::ArtboardRect& bounds) { return call<&AIArtboardSuite::SetArtboardBounds>(bounds); }

bool Artboard::dispose() {
    AIArtboard* const board = handle();
    if (!call<&AIArtboardSuite::DeleteArtboard>()) return false;
    MapOf<Artboard>::forget(board);
    return true;
}

} // namespace kzo::plugin
