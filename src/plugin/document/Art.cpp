// The art suite's calls.
#include "plugin/document/Art.h"

#include "hostapi/AIArtSuite.h"
#include "hostapi/AIExpandSuite.h"
#include "hostapi/AIIsolationModeSuite.h"
#include "hostapi/AILayerSuite.h"
#include "hostapi/AIMatchingArtSuite.h"
#include "hostapi/AIPlacedSuite.h"
#include "hostapi/AIPluginGroupSuite.h"
#include "hostapi/AISymbolSuite.h"
#include "plugin/document/ArtList.h"
#include "plugin/document/Convert.h"
#include "plugin/document/ConvertArt.h"
#include "plugin/host/RefCountMap.h"

namespace kzo::plugin {

ArtObject* Art::create(core::ArtType type, core::PaintOrder order, ArtObject* prep) {
    if (type == core::ArtType::PluginGroup)
        return host::get<&AIPluginGroupSuite::NewPluginArt>(host::self, order, prep);
    return host::get<&AIArtSuite::NewArt>(type, order, prep);
}

// Identity

bool Art::valid() const { return get<&AIArtSuite::ValidArt>(); }
core::ArtType Art::artType() const { return get<&AIArtSuite::GetArtType, core::ArtType>(); }

std::string Art::uid() const { return get<&AIArtSuite::GetArtUID>(); }
bool Art::isLayerGroup() const { return get<&AIArtSuite::IsArtLayerGroup>(); }

std::optional<PathArt> Art::path() const {
    isPath_ = isPath_ || artType() == core::ArtType::Path;
    return isPath_ && handle() ? std::optional(PathArt(handle())) : std::nullopt;
}

// Attributes

bool Art::attribute(core::ArtAttribute which) const {
    return get<&AIArtSuite::GetArtUserAttr, core::ArtAttribute>(which) == which;
}

bool Art::setAttribute(core::ArtAttribute which, bool on) {
    return call<&AIArtSuite::SetArtUserAttr>(which, on ? which : core::ArtAttribute());
}

core::ArtAttribute Art::allAttributes() const {
    return get<&AIArtSuite::GetArtUserAttr, core::ArtAttribute>(core::ArtAttribute::All);
}

bool Art::setAllAttributes(core::ArtAttribute attributes) {
    return call<&AIArtSuite::SetArtUserAttr>(core::ArtAttribute::All, attributes);
}

bool Art::anyAncestor(core::ArtAttribute has) const {
    for (ArtObject* around = parent(); around; around = Art(around).parent())
        if (Art(around).attribute(has)) return true;
    return false;
}

bool Art::editable() const { return get<&AIArtSuite::IsArtEditable>(); }

// Tree

AILayer* Art::layer() const { return get<&AILayerSuite::GetLayerOfArt>(); }
ArtObject* Art::parent() const { return get<&AIArtSuite::GetArtParent>(); }
ArtObject* Art::firstChild() const { return get<&AIArtSuite::GetArtFirstChild>(); }
ArtObject* Art::lastChild() const { return get<&AIArtSuite::GetArtLastChild>(); }
ArtObject* Art::sibling() const { return get<&AIArtSuite::GetArtSibling>(); }
ArtObject* Art::priorSibling() const { return get<&AIArtSuite::GetArtPriorSibling>(); }
std::int32_t Art::childCount() const { return get<&AIArtSuite::CountArtChildren>(); }

std::vector<ArtObject*> Art::matchingChildren(const std::vector<core::MatchArtSpec>& kinds) const {
    const std::vector<AIMatchingArtSpec> records = host::toHost(kinds);
    const auto count = static_cast<std::int32_t>(records.size());
    return artList([&](auto* list, auto* found) {
        return count > 0 && call<&AIMatchingArtSuite::GetMatchingArtWithin>(records.data(), count, list, found);
    });
}

// Copies and places

ArtObject* Art::duplicate(core::PaintOrder order, ArtObject* prep) const {
    return get<&AIArtSuite::DuplicateArt>(order, prep);
}
bool Art::reorder(core::PaintOrder order, ArtObject* prep) { return call<&AIArtSuite::ReorderArt>(order, prep); }

// Isolation

bool Art::canIsolate() const { return get<&AIIsolationModeSuite::CanIsolateArt>(); }
bool Art::isIsolated() const { return get<&AIIsolationModeSuite::IsArtIsolated>(); }
bool Art::isolate() { return call<&AIIsolationModeSuite::EnterIsolationMode>(); }

bool Art::expand(core::ExpandOptions options, std::int32_t steps) {
    return call<&AIExpandSuite::Expand>(options, steps);
}

// What it refers to

std::string Art::symbol() const { return get<&AISymbolSuite::GetSymbolOfArt>(); }
bool Art::setSymbol(const std::string& name) { return call<&AISymbolSuite::SetSymbolOfArt>(name); }
bool Art::updateLinks() { return call<&AIPlacedSuite::UpdateLinks>(); }
bool Art::updateBounds() { return call<&AIArtSuite::UpdateArtBounds>(); }

// Removal

bool Art::disposeChildren() { return call<&AIArtSuite::DisposeArtChildren>(); }

bool Art::dispose() {
    ArtObject* const handle = release();
    MapOf<Art>::forget(handle);
    return handle && host::call<&AIArtSuite::DisposeArt>(handle);
}

} // namespace kzo::plugin
