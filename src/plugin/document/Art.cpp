// The art suite's calls.
#include "plugin/document/Art.h"

#include "hostapi/AIArtSuite.h"
#include "hostapi/AILayerSuite.h"
#include "plugin/document/Convert.h"
#include "plugin/host/RefCountMap.h"

namespace kzo::plugin {

ArtObject* Art::create(core::ArtType type, core::PaintOrder order, ArtObject* prep) {
    return host::get<&AIArtSuite::NewArt>(type, order, prep);
}

// Identity

bool Art::valid() const { return get<&AIArtSuite::ValidArt>(); }
core::ArtType Art::artType() const { return get<&AIArtSuite::GetArtType, core::ArtType>(); }

bool Art::isLayerGroup() const { return get<&AIArtSuite::IsArtLayerGroup>(); }

std::optional<PathArt> Art::path() const {
    if (type_ == core::ArtType::Unknown) type_ = artType();
    return type_ == core::ArtType::Path && handle() ? std::optional(PathArt(handle())) : std::nullopt;
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

bool Art::dispose() {
    ArtObject* const handle = release();
    MapOf<Art>::forget(handle);
    return handle && host::call<&AIArtSuite::DisposeArt>(handle);
}

} // namespace kzo::plugin
