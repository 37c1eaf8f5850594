// The line tool's handlers: press, drag, release. Each drag and the release find the document as the press left it (the
// tool asks the host for buffered dragging), so nothing here takes the feedback line away again.
#include "core/app/Illustrator.h"
#include "core/document/Draw.h"
#include "core/document/PathArt.h"
#include "core/frame/Keys.h"
#include "maker/Constrain.h"
#include "maker/Globals.h"
#include "maker/PathGeometry.h"
#include "tool/Plugin.h"

namespace ortho {

using kzo::core::Angle;
using kzo::core::Art;
using kzo::core::HitRequest;
using kzo::core::HitType;
using kzo::core::Illustrator;
using kzo::core::ModifierKeys;

namespace {

constexpr double pressTolerance = 3.0; // screen units
constexpr double dragTolerance = 2.0;
constexpr double shortestLine = 2.0; // points
constexpr double lengthRounding = 1e-9;

/// The group that new lines go into; null when nothing may be drawn: no document, or a locked or hidden current layer.
std::unique_ptr<Art> drawingGroup() {
    auto* const document = Illustrator::instance()->currentDocument();
    const auto layer = document ? document->currentLayer() : nullptr;
    return layer && layer->editable() && layer->visible() ? layer->group() : nullptr;
}

/// A thin black line with round ends, so that the corners of a drawing close.
kzo::core::PathStyle lineStyle() {
    kzo::core::PathStyle style;
    style.fill.painted = false;
    style.stroke = {.painted = true,
                    .color = {},
                    .width = 0.5,
                    .miterLimit = 1.0,
                    .cap = kzo::core::StrokeCap::Round,
                    .join = kzo::core::StrokeJoin::Round,
                    .dash = {}};
    return style;
}

/// Draws the line that stays, selected. False when there is none: nothing may be drawn, the host refused, or it is too
/// short, since a click without a real drag leaves nothing behind.
bool drawLine(const vlGlobals& globals) {
    const auto group = drawingGroup();
    const auto line =
        group ? kzo::core::draw::line(globals.startPoint, globals.endPoint, lineStyle(), group.get()) : nullptr;
    if (!line) return false;
    line->select();
    // Rounding must not remove a line of just the length.
    if (line->path()->length() >= shortestLine - lengthRounding) return true;
    line->dispose();
    return false;
}

/// Notes what the press continues: an open path that was pressed on at one of its ends. Pressed on its start the path
/// is turned round, so that it is always its last point that goes on.
void noteContinuedPath(vlGlobals& globals, const kzo::core::HitData& hit) {
    const auto art = hit.art(); // in a group it is the member that was hit, never the group
    globals.hitArt = art ? art->aiArtHandle() : nullptr;
    if (!art || hit.hitType() != HitType::Anchor || art->path()->closed()) return;
    kzo::core::PathArt* const path = art->path();
    const std::int16_t index = hit.segPointIndex();
    const bool atEnd = index == path->segPointCount() - 1;
    if (!atEnd && index != 0) return;
    globals.continuing = true;
    globals.turned = !atEnd;
    if (globals.turned) path->reverseSegs();
    globals.exitAngle = vl::geo::getExitAngle(path);
}

} // namespace

void Plugin::__toolSelectedCB() {
    lineCursor_.enable();
    // There is no companion to ask yet; without one its axes are the standard ones.
    vlGlobals& globals = *vlGlobals::instance();
    if (globals.usePlotwiseSettings) globals.applyIsoAxes();
}

void Plugin::__toolMouseMovedCB() { corePlugin_->currentTool().trackCursor(); }

void Plugin::__toolMouseDownCB() {
    vlGlobals& globals = *vlGlobals::instance();
    globals.resetGesture();
    lineCursor_.enable();
    const auto hit = corePlugin_->currentTool().mouseDownHitData(0, HitRequest::AnchorsAndSegments, pressTolerance);
    if (!hit) return;
    noteContinuedPath(globals, *hit);
    globals.startHitData = *hit;
    globals.startPoint = hit->point();
}

bool Plugin::aim() {
    vlGlobals& globals = *vlGlobals::instance();
    const ModifierKeys keys = kzo::core::modifierKeysPressed();
    globals.shiftDown = any(keys & ModifierKeys::Shift);
    globals.optionDown = any(keys & ModifierKeys::Option);
    globals.commandDown = any(keys & ModifierKeys::Command);
    const auto hit = corePlugin_->currentTool().cursorHitData(HitRequest::AnchorsAndSegments, dragTolerance);
    if (!hit) return false;

    const Angle free = globals.startPoint ^ hit->point();
    const Angle direction = globals.shiftDown    ? free.nearest45()
                            : globals.optionDown ? free
                                                 : vl::constrain::constrainToAxo(free);
    globals.endPoint = globals.startPoint.move(globals.startPoint | hit->point(), direction);
    return true;
}

void Plugin::__toolDragCB() {
    if (!aim()) return;
    const vlGlobals& globals = *vlGlobals::instance();
    if (const auto group = drawingGroup()) kzo::core::draw::line(globals.startPoint, globals.endPoint, group.get());
    vlGlobals::instance()->dragged = true;
}

void Plugin::__toolMouseUpCB() {
    vlGlobals& globals = *vlGlobals::instance();
    if (!globals.dragged) aim(); // a click has an end point too
    if (auto* const document = Illustrator::instance()->currentDocument()) document->deselectAllArt();
    if (!drawLine(globals) && globals.turned) Art(globals.hitArt).path()->reverseSegs();
    corePlugin_->currentTool().resetCursorLocs();
    globals.resetGesture();
}

} // namespace ortho
