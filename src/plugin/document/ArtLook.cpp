// How art looks: the art style and blend style suites' calls.
#include "hostapi/AIArtStyleSuite.h"
#include "hostapi/AIBlendStyleSuite.h"
#include "hostapi/AIGroupSuite.h"
#include "plugin/document/Art.h"
#include "plugin/document/Convert.h"
#include "plugin/document/ConvertStyle.h"

namespace kzo::plugin {

namespace host {

template <> struct HostForm<core::ArtStyle> {
    static AIArtStyle toHost(const core::ArtStyle& style) {
        return {host::toHost(style.paint), style.opacity, host::toHost(style.blendMode), host::toHost(style.knockout)};
    }
    static core::ArtStyle fromHost(const AIArtStyle& record) {
        return {host::fromHost<core::PathStyle>(record.paint), record.opacity,
                host::fromHost<core::BlendMode>(record.blendingMode),
                host::fromHost<core::BlendKnockout>(record.knockout)};
    }
};

} // namespace host

core::ArtStyle Art::style() const { return get<&AIArtStyleSuite::GetArtStyle, core::ArtStyle>(); }
bool Art::setStyle(const core::ArtStyle& style) { return call<&AIArtStyleSuite::SetArtStyle>(style); }
bool Art::isStyled() const { return get<&AIArtStyleSuite::IsArtStyled>(); }
bool Art::hasFill() const { return get<&AIArtStyleSuite::ArtHasFill>(); }
bool Art::hasStroke() const { return get<&AIArtStyleSuite::ArtHasStroke>(); }

bool Art::isClipGroup() const { return get<&AIGroupSuite::GetGroupClipped>(); }
bool Art::setIsClipGroup(bool clipped) { return call<&AIGroupSuite::SetGroupClipped>(clipped); }

double Art::opacity() const { return get<&AIBlendStyleSuite::GetOpacity>(); }
bool Art::setOpacity(double opacity) { return call<&AIBlendStyleSuite::SetOpacity>(opacity); }
core::BlendMode Art::blendMode() const { return get<&AIBlendStyleSuite::GetBlendingMode, core::BlendMode>(); }
bool Art::setBlendMode(core::BlendMode mode) { return call<&AIBlendStyleSuite::SetBlendingMode>(mode); }
core::BlendKnockout Art::knockout() const { return get<&AIBlendStyleSuite::GetKnockout, core::BlendKnockout>(); }
core::BlendKnockout Art::inheritedKnockout() const {
    return get<&AIBlendStyleSuite::GetInheritedKnockout, core::BlendKnockout>();
}
bool Art::setKnockout(core::BlendKnockout knockout) { return call<&AIBlendStyleSuite::SetKnockout>(knockout); }

bool Art::centerPointVisible() const { return get<&AIArtStyleSuite::GetCenterPointVisible>(); }
bool Art::setCenterPointVisible(bool visible) { return call<&AIArtStyleSuite::SetCenterPointVisible>(visible); }

} // namespace kzo::plugin
