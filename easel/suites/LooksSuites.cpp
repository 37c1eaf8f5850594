// The blend style, mask and art style suites: how art looks besides its outlines.
#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <utility>

#include "hostapi/AIArtStyleSuite.h"
#include "hostapi/AIBlendStyleSuite.h"
#include "hostapi/AIMaskSuite.h"
#include "session/documents/Documents.h"
#include "suites/Enter.h"
#include "suites/Shared.h"

namespace easel::suites {

namespace {

using model::Extras;
using model::Knockout;
using model::Node;
using model::NodeType;

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

/// A subpath looks like all of its compound path.
Art wholeOf(const Art& art) { return {art.document, art.node.isSubpath() ? *art.node.parent() : art.node}; }

AIArtStyle getStyle(Art art) {
    const Node* const painted = findPath(art, [](const model::Style&) { return true; });
    const Extras& extras = wholeOf(art).node.extras();
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
    const Art whole = wholeOf(art);
    changeExtras(whole, [&](Extras& extras) {
        extras.opacity = style.opacity;
        extras.blendMode = mode;
        extras.knockout = knockout;
    });
    for (Node* at = &whole.node; at; at = nextWithin(whole.node, *at))
        if (at->isOutlined()) paintPath({art.document, *at}, paint);
}

bool isStyled(Art art) {
    const Extras& extras = wholeOf(art).node.extras();
    const Extras ordinary;
    return extras.opacity != ordinary.opacity || extras.blendMode != ordinary.blendMode ||
           extras.knockout != ordinary.knockout;
}

// Masks

const Extras& masked(const Art& art) {
    require(art.node.extras().hasMask());
    return art.node.extras();
}

void setMaskDisabled(Art art, bool disabled) {
    static_cast<void>(masked(art));
    changeExtras(art, [&](Extras& extras) { extras.maskDisabled = disabled; });
}

void setMask(const Art& art, std::string mask, std::optional<model::MaskDrawing> own, bool disabled) {
    changeExtras(art, [&](Extras& extras) {
        extras.mask = std::move(mask);
        extras.ownMask = own ? model::Shared(*std::move(own)) : model::Shared<model::MaskDrawing>();
        extras.maskDisabled = disabled;
    });
    if (art.node.extras().ownMask) model::Document::setHasOwnUnits(art.node); // it goes along
}

void newMask(Art art, Art by) {
    require(&by.document == &art.document && !art.node.extras().hasMask() && !art.node.isSubpath(), kRefusedErr);
    require(by.node.type() != NodeType::Layer && !by.node.isSubpath() && !art.node.isWithin(by.node), kRefusedErr);
    require(session::Documents::makeMask(art.document, art.node, by.node), kRefusedErr);
}

void copyMask(Art from, Art art) {
    require(&from.document == &art.document);
    const Extras& has = masked(from);
    std::optional<model::MaskDrawing> drawing;
    if (has.ownMask) {
        drawing = *has.ownMask;
        drawing->toArt = drawing->toArt * from.node.placed() * inverse(art.node.placed());
    }
    setMask(art, has.mask, std::move(drawing), has.maskDisabled);
}

void disposeMask(Art art) {
    static_cast<void>(masked(art));
    setMask(art, {}, std::nullopt, false);
}

} // namespace

template <> void fill(AIMaskSuite& suite) {
    enter<&AIMaskSuite::HasMask>(suite, [](Art art) { return art.node.extras().hasMask(); });
    enter<&AIMaskSuite::GetMaskDisabled>(suite, [](Art art) { return masked(art).maskDisabled; });
    enter<&AIMaskSuite::SetMaskDisabled, setMaskDisabled>(suite);
    enter<&AIMaskSuite::NewMask, newMask>(suite);
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
