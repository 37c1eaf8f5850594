// The layer suite's calls.
#include "plugin/document/Layer.h"

#include "hostapi/AIArtSuite.h"
#include "hostapi/AILayerSuite.h"
#include "plugin/host/HostCall.h"

namespace kzo::plugin {

std::string Layer::title() const { return host::ask<&AILayerSuite::GetLayerTitle>("", handle_); }
bool Layer::visible() const { return host::ask<&AILayerSuite::GetLayerVisible>(AIBoolean{0}, handle_) != 0; }
bool Layer::editable() const { return host::ask<&AILayerSuite::GetLayerEditable>(AIBoolean{0}, handle_) != 0; }
bool Layer::hasSelectedArt() const { return host::ask<&AILayerSuite::LayerHasSelectedArt>(AIBoolean{0}, handle_) != 0; }
void Layer::deselectArt() { host::call<&AILayerSuite::DeselectLayerArt>(handle_); }

AILayer* Layer::next() const { return host::ask<&AILayerSuite::GetNextLayer>(AILayerHandle{}, handle_); }

ArtObject* Layer::group() const { return host::ask<&AIArtSuite::GetFirstArtOfLayer>(AIArtHandle{}, handle_); }

} // namespace kzo::plugin
