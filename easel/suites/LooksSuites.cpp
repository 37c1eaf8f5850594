// The blend style, mask and art style suites: how art looks besides its outlines.
#include <algorithm>
#include <cmath>

#include "hostapi/AIArtStyleSuite.h"
#include "hostapi/AIBlendStyleSuite.h"
#include "hostapi/AIMaskSuite.h"
#include "suites/Enter.h"
#include "suites/Shared.h"

namespace easel::suites {

namespace {

using model::Extras;
using model::Knockout;
using model::Node;
using model::NodeType;

/// Gives the art extras that differ in what `change` does to them.
template <class Change> void changeExtras(const Art& art, Change change) {
    Extras extras = art.node.extras();
    change(extras);
    art.document.setExtras(art.node, std::move(extras));
}

// Blending

model::BlendMode blendModeFromHost(std::int16_t mode) {
    require(mode >= kAINormalBlending && mode <= kAILuminosityBlending);
    return model::BlendMode(mode);
}

Knockout knockoutFromHost(std::int16_t knockout) {
    require(knockout >= kAIKnockoutOff && knockout <= kAIKnockoutInherit);
    return Knockout(knockout);
}

void requireOpacity(AIReal opacity) { require(opacity >= 0 && opacity <= 1); }

Knockout inheritedKnockout(const Node& node) {
    const Node* at = &node;
    while (at->extras().knockout == Knockout::Inherit && at->parent()) at = at->parent();
    return at->extras().knockout == Knockout::On ? Knockout::On : Knockout::Off;
}

void setOpacity(Art art, AIReal opacity) {
    requireOpacity(opacity);
    changeExtras(art, [&](Extras& extras) { extras.opacity = opacity; });
}

// Styles

/// The first path in paint order of what `accepts` takes, the art itself among them.
template <class Accepts> Node* findPath(const Art& art, Accepts accepts) {
    for (Node* at = &art.node; at; at = nextWithin(art.node, *at))
        if (at->type() == NodeType::Path && accepts(at->style())) return at;
    return nullptr;
}

AIArtStyle getStyle(Art art) {
    const Node* const painted = findPath(art, [](const model::Style&) { return true; });
    const Extras& extras = art.node.extras();
    return {.paint = styleToHost(painted ? painted->style() : art.document.settings.pathStyle),
            .opacity = extras.opacity,
            .blendingMode = static_cast<std::int16_t>(extras.blendMode),
            .knockout = static_cast<std::int16_t>(extras.knockout)};
}

void setStyle(Art art, const AIArtStyle& style) {
    const model::Style paint = styleFromHost(style.paint);
    requireOpacity(style.opacity);
    const model::BlendMode mode = blendModeFromHost(style.blendingMode);
    const Knockout knockout = knockoutFromHost(style.knockout);
    changeExtras(art, [&](Extras& extras) {
        extras.opacity = style.opacity;
        extras.blendMode = mode;
        extras.knockout = knockout;
    });
    for (Node* at = &art.node; at; at = nextWithin(art.node, *at))
        if (at->type() == NodeType::Path) paintPath({art.document, *at}, paint);
}

bool isStyled(Art art) {
    const Extras& extras = art.node.extras();
    const Extras ordinary;
    return extras.opacity != ordinary.opacity || extras.blendMode != ordinary.blendMode ||
           extras.knockout != ordinary.knockout;
}

// Masks

const Extras& masked(const Art& art) {
    require(!art.node.extras().mask.empty() && !art.node.isSubpath());
    return art.node.extras();
}

void setMaskDisabled(Art art, bool disabled) {
    static_cast<void>(masked(art));
    changeExtras(art, [&](Extras& extras) { extras.maskDisabled = disabled; });
}

void copyMask(Art from, Art art) {
    require(&from.document == &art.document && !art.node.isSubpath());
    const Extras& has = masked(from);
    changeExtras(art, [mask = has.mask, disabled = has.maskDisabled](Extras& extras) {
        extras.mask = mask;
        extras.maskDisabled = disabled;
    });
}

void disposeMask(Art art) {
    static_cast<void>(masked(art));
    changeExtras(art, [](Extras& extras) {
        extras.mask.clear();
        extras.maskDisabled = false;
    });
}

} // namespace

template <> void fill(AIMaskSuite& suite) {
    enter<&AIMaskSuite::HasMask>(suite, [](Art art) { return !art.node.extras().mask.empty(); });
    enter<&AIMaskSuite::GetMaskDisabled>(suite, [](Art art) { return masked(art).maskDisabled; });
    enter<&AIMaskSuite::SetMaskDisabled, setMaskDisabled>(suite);
    enter<&AIMaskSuite::CopyMask, copyMask>(suite);
    enter<&AIMaskSuite::DisposeMask, disposeMask>(suite);
}

template <> void fill(AIBlendStyleSuite& suite) {
    enter<&AIBlendStyleSuite::GetBlendingMode>(suite, [](Art art) { return art.node.extras().blendMode; });
    enter<&AIBlendStyleSuite::SetBlendingMode>(suite, [](Art art, std::int16_t mode) {
        changeExtras(art, [&](Extras& extras) { extras.blendMode = blendModeFromHost(mode); });
    });
    enter<&AIBlendStyleSuite::GetOpacity>(suite, [](Art art) { return art.node.extras().opacity; });
    enter<&AIBlendStyleSuite::SetOpacity, setOpacity>(suite);
    enter<&AIBlendStyleSuite::GetKnockout>(suite, [](Art art) { return art.node.extras().knockout; });
    enter<&AIBlendStyleSuite::GetInheritedKnockout>(suite, [](Art art) { return inheritedKnockout(art.node); });
    enter<&AIBlendStyleSuite::SetKnockout>(suite, [](Art art, std::int16_t knockout) {
        changeExtras(art, [&](Extras& extras) { extras.knockout = knockoutFromHost(knockout); });
    });
}

template <> void fill(AIArtStyleSuite& suite) {
    enter<&AIArtStyleSuite::GetArtStyle, getStyle>(suite);
    enter<&AIArtStyleSuite::SetArtStyle, setStyle>(suite);
    enter<&AIArtStyleSuite::IsArtStyled, isStyled>(suite);
    enter<&AIArtStyleSuite::ArtHasFill>(suite, [](Art art) {
        return findPath(art, [](const model::Style& style) { return style.isFilled(); }) != nullptr;
    });
    enter<&AIArtStyleSuite::ArtHasStroke>(suite, [](Art art) {
        return findPath(art, [](const model::Style& style) { return style.isStroked(); }) != nullptr;
    });
    enter<&AIArtStyleSuite::GetCenterPointVisible>(suite, [](Art art) { return art.node.extras().centerPoint; });
    enter<&AIArtStyleSuite::SetCenterPointVisible>(
        suite, [](Art art, bool visible) { changeExtras(art, [&](Extras& extras) { extras.centerPoint = visible; }); });
}

} // namespace easel::suites
