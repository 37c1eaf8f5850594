// The layer suite's calls.
#include "plugin/document/Layer.h"

#include "hostapi/AIArtSuite.h"
#include "hostapi/AILayerSuite.h"
#include "plugin/host/HostCall.h"

namespace kzo::plugin {

std::string Layer::title() const { return get<&AILayerSuite::GetLayerTitle>(); }
bool Layer::visible() const { return get<&AILayerSuite::GetLayerVisible>(); }
bool Layer::editable() const { return get<&AILayerSuite::GetLayerEditable>(); }
bool Layer::hasSelectedArt() const { return get<&AILayerSuite::LayerHasSelectedArt>(); }
void Layer::deselectArt() { call<&AILayerSuite::DeselectLayerArt>(); }

AILayer* Layer::next() const { return get<&AILayerSuite::GetNextLayer>(); }
ArtObject* Layer::group() const { return get<&AIArtSuite::GetFirstArtOfLayer>(); }

} // namespace kzo::plugin
