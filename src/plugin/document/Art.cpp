// The art suite's calls, one body each.
#include "plugin/document/Art.h"

#include <utility>

#include "hostapi/AIArtSuite.h"
#include "plugin/document/Convert.h"
#include "plugin/host/HostCall.h"

namespace kzo::plugin {

ArtObject* Art::create(core::ArtType type, core::PaintOrder order, ArtObject* prep) {
    return host::ask<&AIArtSuite::NewArt>(AIArtHandle{}, toHost(type), toHost(order), prep);
}

// Identity

bool Art::valid() const { return host::ask<&AIArtSuite::ValidArt>(AIBoolean{0}, handle_) != 0; }

core::ArtType Art::artType() const {
    const std::int16_t type = host::ask<&AIArtSuite::GetArtType>(std::int16_t{kUnknownArt}, handle_);
    return fromHost(artTypes, type, core::ArtType::Unknown);
}

std::optional<PathArt> Art::path() const {
    if (type_ == core::ArtType::Unknown) type_ = artType();
    return type_ == core::ArtType::Path && handle_ ? std::optional(PathArt(handle_)) : std::nullopt;
}

// Attributes

bool Art::attribute(core::ArtAttribute which) const {
    return host::ask<&AIArtSuite::GetArtUserAttr>(std::int32_t{0}, handle_, bits(which)) == bits(which);
}

bool Art::setAttributes(core::ArtAttribute which, bool on) {
    return host::call<&AIArtSuite::SetArtUserAttr>(handle_, bits(which), on ? bits(which) : 0);
}

bool Art::select() { return setAttributes(core::ArtAttribute::Selected | core::ArtAttribute::FullySelected, true); }
bool Art::deselect() { return setAttributes(core::ArtAttribute::Selected | core::ArtAttribute::FullySelected, false); }

// Tree

ArtObject* Art::parent() const { return host::ask<&AIArtSuite::GetArtParent>(AIArtHandle{}, handle_); }
ArtObject* Art::firstChild() const { return host::ask<&AIArtSuite::GetArtFirstChild>(AIArtHandle{}, handle_); }
ArtObject* Art::sibling() const { return host::ask<&AIArtSuite::GetArtSibling>(AIArtHandle{}, handle_); }
ArtObject* Art::priorSibling() const { return host::ask<&AIArtSuite::GetArtPriorSibling>(AIArtHandle{}, handle_); }

bool Art::dispose() {
    ArtObject* const handle = std::exchange(handle_, nullptr);
    return handle && host::call<&AIArtSuite::DisposeArt>(handle);
}

} // namespace kzo::plugin
