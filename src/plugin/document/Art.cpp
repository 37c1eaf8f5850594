// The art suite's calls.
#include "plugin/document/Art.h"

#include "hostapi/AIArtSuite.h"
#include "hostapi/AITransformArtSuite.h"
#include "plugin/document/Convert.h"
#include "plugin/host/RefCountMap.h"

namespace kzo::plugin {

namespace {

constexpr auto kWholeSelection = core::ArtAttribute::Selected | core::ArtAttribute::FullySelected;

} // namespace

ArtObject* Art::create(core::ArtType type, core::PaintOrder order, ArtObject* prep) {
    return host::get<&AIArtSuite::NewArt>(type, order, prep);
}

// Identity

bool Art::valid() const { return get<&AIArtSuite::ValidArt>(); }
core::ArtType Art::artType() const { return get<&AIArtSuite::GetArtType, core::ArtType>(); }

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

bool Art::select() { return setAttribute(kWholeSelection, true); }
bool Art::deselect() { return setAttribute(kWholeSelection, false); }

// Tree

ArtObject* Art::parent() const { return get<&AIArtSuite::GetArtParent>(); }
ArtObject* Art::firstChild() const { return get<&AIArtSuite::GetArtFirstChild>(); }
ArtObject* Art::sibling() const { return get<&AIArtSuite::GetArtSibling>(); }
ArtObject* Art::priorSibling() const { return get<&AIArtSuite::GetArtPriorSibling>(); }

// Whole objects moved

bool Art::offset(double dx, double dy, bool patterns) { return call<&AITransformArtSuite::MoveArt>(dx, dy, patterns); }

bool Art::dispose() {
    ArtObject* const handle = release();
    MapOf<Art>::forget(handle);
    return handle && host::call<&AIArtSuite::DisposeArt>(handle);
}

} // namespace kzo::plugin
