// The line tool's handlers: press, drag, release. Each drag and the release find the document as the press left it (the
// tool asks the host for buffered dragging), so nothing here takes the feedback line away again.
#include "core/app/Illustrator.h"
#include "core/document/Draw.h"
#include "core/document/PathArt.h"
#include "core/frame/Keys.h"
#include "maker/Concatenate.h"
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

constexpr double kPressTolerance = 3.0; // screen units
constexpr double kDragTolerance = 2.0;
constexpr double kShortestLine = 2.0; // points
constexpr double kLengthRounding = 1e-9;

kzo::core::PathStyle lineStyle() {
    kzo::core::PathStyle style;
    style.fill.painted = false;
    style.stroke = {.painted = true,
                    .color = {},
                    .width = 0.5,
                    .miterLimit = 1.0,
                    .cap = kzo::core::StrokeCap::Butt,
                    .join = kzo::core::StrokeJoin::Miter,
                    .dash = {}};
    return style;
}

/// Rounding must not make a line of just the length too short.
bool isTooShort(double length) { return length < kShortestLine - kLengthRounding; }

/// The line from the press to here. Null when nothing may be drawn, the host refused, or it is too short: a click
/// without a real drag leaves nothing behind, also beside an end that the line starts on.
std::unique_ptr<Art> newLine(const vlGlobals& globals, const Art* group) {
    if (isTooShort(globals.startHitData.point() | globals.rawLocation)) return nullptr;
    auto line = group ? kzo::core::draw::line(globals.startPoint, globals.endPoint, lineStyle(), group) : nullptr;
    if (!line || !isTooShort(line->path()->length())) return line;
    line->dispose();
    return nullptr;
}

/// A path that may be changed, also by what is around it.
bool isWithinReach(ArtObject* art) { return vl::geo::isEditablePath(art) && Art(art).editable(); }

/// Joins the line to the end that was pressed on, which is the last point of `hitArt`. False, with both as they were,
/// when the path has gone or been locked since, or when the line turns back on it.
bool join(vlGlobals& globals, const Art& line) {
    using namespace vl::conc;
    if (!isWithinReach(globals.hitArt)) return false;
    kzo::core::ArtboardPoint first, last;
    const Art path(globals.hitArt);
    path.path()->endPoints(first, last);
    if (path.path()->closed() || !last.closeTo(globals.startPoint, kJoinDistance)) return false;
    // Of the four ways to meet, two starts are the one that joins just there; joining turns the path back.
    vl::geo::reverseAIPath(globals.hitArt);
    ArtObject* newPath = line.aiArtHandle();
    constexpr int kStartsMeet = 1;
    if (getConnectionRoute(globals.hitArt, newPath, kJoinDistance, kMostVariance, kStraightOn) != kStartsMeet) {
        vl::geo::reverseAIPath(globals.hitArt);
        return false;
    }
    return concat_path(globals.hitArt, newPath, kJoinDistance, kMostVariance, kHandleTolerance, kStraightOn);
}

/// Notes what the press continues: an open path that was pressed on at one of its ends. Pressed on its start the path
/// is turned round, so that it is always its last point that goes on.
void noteContinuedPath(vlGlobals& globals, const kzo::core::HitData& hit) {
    const auto art = hit.art(); // in a group it is the member that was hit, never the group
    globals.hitArt = art ? art->aiArtHandle() : nullptr;
    if (!isWithinReach(globals.hitArt)) return;
    if (hit.hitType() != HitType::Anchor || art->path()->closed()) return;
    kzo::core::PathArt* const path = art->path();
    const std::int16_t index = hit.segPointIndex();
    const bool atEnd = index == path->segPointCount() - 1;
    if (!atEnd && index != 0) return;
    globals.continuing = true;
    globals.turned = !atEnd;
    if (globals.turned) path->reverseSegs();
    globals.exitAngle = vl::geo::getExitAngle(path);
}

/// Whether the path is as the press turned it: the host may have taken that back, or its user changed the path.
bool isStillTurned(const vlGlobals& globals) {
    if (!globals.turned) return false;
    kzo::core::ArtboardPoint first, last;
    const Art path(globals.hitArt);
    path.path()->endPoints(first, last);
    return last == globals.startPoint && vl::geo::getExitAngle(path.path()) == globals.exitAngle;
}

/// Whether keys and settings ask for a join: Command is for the other of the two.
bool wantsToJoin(const vlGlobals& globals) { return globals.continuing && globals.autoConcat != globals.commandDown; }

} // namespace

void Plugin::__toolSelectedCB() {
    penCursor_.enable();
    // What a gesture left that was broken off is no part of the next.
    corePlugin_->currentTool().resetCursorLocs();
    dropGesture();
    if (!vlGlobals::instance()->usePlotwiseSettings) return;
    if (getPWdata())
        applyPWdata();
    else
        applyIsoAxes();
    vlGlobals::instance()->tellAxes();
}

void Plugin::__toolDeselectedCB() {
    lineTool_.resetCursorLocs();
    moverTool_.resetCursorLocs();
    dropGesture();
}

void Plugin::__toolMouseMovedCB() { corePlugin_->currentTool().trackCursor(); }

void Plugin::dropGesture() {
    vlGlobals& globals = *vlGlobals::instance();
    if (isStillTurned(globals)) vl::geo::reverseAIPath(globals.hitArt);
    globals.resetGesture();
}

void Plugin::__toolMouseDownCB() {
    dropGesture();
    vlGlobals& globals = *vlGlobals::instance();
    lineCursor_.enable();
    const kzo::core::Tool tool = corePlugin_->currentTool();
    // Of a gesture that nobody ended an older press may be left.
    const std::size_t presses = tool.mouseDownLocs().size();
    if (presses == 0) return;
    const auto hit = tool.mouseDownHitData(presses - 1, HitRequest::AnchorsAndSegments, kPressTolerance);
    if (!hit || hit->isEmpty()) return;
    globals.pressed = true;
    noteContinuedPath(globals, *hit);
    globals.startHitData = *hit;
    globals.startPoint = globals.rawLocation = hit->point();
    // A press beside the end is one on it, so that the two meet exactly.
    if (globals.continuing) hit->snapForHit(globals.startPoint);
    globals.endPoint = globals.startPoint;
}

void Plugin::readKeys() {
    vlGlobals& globals = *vlGlobals::instance();
    const ModifierKeys keys = kzo::core::modifierKeysPressed();
    globals.shiftDown = any(keys & ModifierKeys::Shift);
    globals.optionDown = any(keys & ModifierKeys::Option);
    globals.commandDown = any(keys & ModifierKeys::Command);
}

Angle Plugin::heldDirection(const Angle& free) {
    const vlGlobals& globals = *vlGlobals::instance();
    if (globals.shiftDown) return free.nearest45();
    return globals.optionDown ? free : vl::constrain::constrainToAxo(free);
}

std::unique_ptr<Art> Plugin::drawingGroup() {
    auto* const document = Illustrator::instance()->currentDocument();
    const auto layer = document ? document->currentLayer() : nullptr;
    return layer && layer->editable() && layer->visible() ? layer->group() : nullptr;
}

bool Plugin::aim() {
    vlGlobals& globals = *vlGlobals::instance();
    if (!globals.pressed) return false;
    readKeys();
    const auto hit = corePlugin_->currentTool().cursorHitData(HitRequest::AnchorsAndSegments, kDragTolerance);
    if (!hit || hit->isEmpty()) return false;

    globals.rawLocation = hit->point();
    globals.endPoint = globals.startPoint;
    // Beside the end that was pressed on there is a way from that end even where the mouse has not moved.
    if (globals.rawLocation == globals.startHitData.point()) return true;
    const Angle direction = heldDirection(globals.startPoint ^ globals.rawLocation);
    globals.endPoint = globals.startPoint.move(globals.startPoint | globals.rawLocation, direction);
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
    // What is taken back needs no end, nor an alert that it cannot be joined.
    if (globals.pressed && !corePlugin_->currentTool().gestureTakenBack()) {
        if (!globals.dragged) aim(); // a click has an end point too
        readKeys();                  // Command counts as it is now
        finishLine(globals);
    }
    corePlugin_->currentTool().resetCursorLocs();
    globals.resetGesture();
}

void Plugin::finishLine(vlGlobals& globals) {
    if (auto* const document = Illustrator::instance()->currentDocument()) document->deselectAllArt();
    const auto line = newLine(globals, drawingGroup().get());
    globals.joined = line && wantsToJoin(globals) && join(globals, *line);
    if (globals.joined)
        Art(globals.hitArt).select();
    else if (line)
        line->select();
    // Nobody is to see that a press turned the path round when nothing came of it, be it out of reach by now.
    if (globals.turned && !globals.joined) vl::geo::reverseAIPath(globals.hitArt);
}

} // namespace ortho
