// The layer suite's calls.
#include "plugin/document/Layer.h"

#include "hostapi/AIArtSuite.h"
#include "hostapi/AILayerSuite.h"
#include "plugin/document/Convert.h"
#include "plugin/host/RefCountMap.h"

namespace kzo::plugin {

AILayer* Layer::create(core::PaintOrder order, AILayer* prep) {
    return host::get<&AILayerSuite::InsertLayer>(prep, order);
}

std::string Layer::title() const { return get<&AILayerSuite::GetLayerTitle>(); }
bool Layer::setTitle(const std::string& title) { return call<&AILayerSuite::SetLayerTitle>(title); }
bool Layer::visible() const { return get<&AILayerSuite::GetLayerVisible>(); }
bool Layer::setVisible(bool visible) { return call<&AILayerSuite::SetLayerVisible>(visible); }
bool Layer::editable() const { return get<&AILayerSuite::GetLayerEditable>(); }
bool Layer::setEditable(bool editable) { return call<&AILayerSuite::SetLayerEditable>(editable); }
bool Layer::reorder(core::PaintOrder order, AILayer* prep) { return call<&AILayerSuite::ReorderLayer>(order, prep); }

bool Layer::dispose() {
    AILayer* const layer = handle();
    if (!call<&AILayerSuite::DeleteLayer>()) return false;
    MapOf<Layer>::forget(layer);
    return true;
}

bool Layer::hasSelectedArt() const { return get<&AILayerSuite::LayerHasSelectedArt>(); }
bool Layer::selectArt() { return call<&AILayerSuite::SelectLayerArt>(); }
bool Layer::deselectArt() { return call<&AILayerSuite::DeselectLayerArt>(); }

AILayer* Layer::prior() const { return get<&AILayerSuite::GetPriorLayer>(); }
AILayer* Layer::next() const { return get<&AILayerSuite::GetNextLayer>(); }
ArtObject* Layer::group() const { return get<&AIArtSuite::GetFirstArtOfLayer>(); }

} // namespace kzo::plugin
