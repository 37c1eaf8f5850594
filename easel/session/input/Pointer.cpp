// Gestures. The document's transaction opens with the press and closes with the release, so that messages in between
// join it.
#include "session/input/Pointer.h"

#include <cmath>
#include <utility>

#include "hostapi/AITool.h"
#include "hostapi/Stage.h"
#include "session/base/Error.h"

namespace easel::session {

void Pointer::locate(model::Point location, Modifiers modifiers) {
    held_.modifiers = modifiers;
    rawLocation_ = location_ = location;
    if (documents_.front() && !heldLength_) location_ = snapped(location);
}

model::Point Pointer::snapped(model::Point location) const {
    const Tool& tool = *toolbox_.current();
    const AxisGrid grid = snapping.axisGrid ? axisGrid() : AxisGrid({}, 1);
    const std::int32_t kinds = tool.owner ? tool.owner->toolSnapping : 0;
    if (const auto near = snapping.snapped(*documents_.front(), location, kinds, grid)) return *near;
    if (grid.isEmpty() || !snapping.toAxisGrid) return location;
    const model::Point way{location.x - pressLocation_.x, location.y - pressLocation_.y};
    const auto at = [this](model::Point step) {
        return model::Point{pressLocation_.x + step.x, pressLocation_.y + step.y};
    };
    if (tool.builtin) { // picks what the mouse is on, and moves it by whole steps
        const bool moves = held_.button && !tool.builtin->marquee();
        return moves ? at(grid.nearest(way)) : location;
    }
    const bool drawsAlongAxes = !tool.owner->axes.empty() && !(held_.modifiers & (kAIShiftKey | kAIOptionKey));
    return held_.button && drawsAlongAxes ? at(grid.alongAxis(way)) : grid.nearest(location);
}

/// In the direction that one of the host's tools takes; as far as a length says that is held.
void Pointer::locateGesture(model::Point location, Modifiers modifiers) {
    locate(heldTo(location), modifiers);
    const Tool* const tool = toolbox_.find(tool_);
    if (!tool || !tool->builtin) return;
    const model::Point way{location_.x - pressLocation_.x, location_.y - pressLocation_.y};
    const model::Point taken = tool->builtin->taken(way, modifiers);
    if (taken != way) location_ = heldTo({pressLocation_.x + taken.x, pressLocation_.y + taken.y});
}

model::Point Pointer::heldTo(model::Point location) const {
    const model::Point way{location.x - pressLocation_.x, location.y - pressLocation_.y};
    const double distance = std::hypot(way.x, way.y);
    if (!heldLength_ || distance == 0) return location;
    const double scale = *heldLength_ / distance;
    return {pressLocation_.x + scale * way.x, pressLocation_.y + scale * way.y};
}

SPErr Pointer::sendTo(Tool& tool, const char* selector, std::uint32_t flags) {
    if (!tool.owner) return kNoErr;
    AIToolMessage message{.d = {},
                          .tool = tool.handle,
                          .cursor = {location_.x, location_.y},
                          .modifiers = held_.modifiers,
                          .flags = flags};
    const SPErr result = messenger_.send(*tool.owner, kCallerAITool, selector, message.d);
    if (std::isfinite(message.cursor.h) && std::isfinite(message.cursor.v))
        location_ = {message.cursor.h, message.cursor.v};
    return result;
}

void Pointer::send(const char* selector, BuiltinTool::Handler handler, std::uint32_t flags) {
    Tool* const tool = toolbox_.find(tool_);
    if (!tool) return;
    if (tool->builtin) return (*tool->builtin.*handler)(*documents_.front(), location_, held_.modifiers);
    const SPErr result = sendTo(*tool, selector, flags);
    if (result == kAILayerNotEditableRemark) remark_ = Remark::LayerLocked;
    if (result == kAILayerNotVisibleRemark) remark_ = Remark::LayerHidden;
}

void Pointer::reportRemark() {
    const Tool* const tool = toolbox_.find(tool_);
    const model::Document* const document = documents_.front();
    if (remark_ == Remark::None || !tool || !document) return;
    reports_.add(Blame::UserData, '"' + tool->title + "\" cannot draw: the current layer is " +
                                      (remark_ == Remark::LayerLocked ? "locked" : "hidden"));
}

void Pointer::requirePressed() const {
    if (!held_.button) throw Error("no mouse button is down");
}

void Pointer::requireReleased() const {
    if (held_.button) throw Error("the mouse button is down already");
}

void Pointer::move(model::Point location, Modifiers modifiers) {
    if (held_.button) throw Error("the mouse button is down; a move is a drag");
    locate(location, modifiers);
    Tool& tool = *toolbox_.current();
    if (tool.options & kToolWantsToTrackCursorOption) sendTo(tool, kSelectorAITrackToolCursor);
}

void Pointer::press(model::Point location, Modifiers modifiers) {
    requireReleased();
    model::Document& document = documents_.needFront();
    locate(location, modifiers);
    monitors_.notify(kSelectorStageMousePressed, kStageLeftButton);
    // A plug-in that heard of it may have pressed the button itself, or clicked elsewhere.
    requireReleased();
    locate(location, modifiers);
    pressLocation_ = location_;
    heldLength_.reset();
    held_.button = true;
    takenBack_ = false;
    awaitsRelease_ = false;
    remark_ = Remark::None;
    const Tool& tool = *toolbox_.current();
    tool_ = tool.handle;
    buffered_ = (tool.options & kToolWantsBufferedDraggingOption) != 0;
    messenger_.batch([&] {
        document.journal().begin();
        send(kSelectorAIToolMouseDown, &BuiltinTool::press);
        if (buffered_) document.journal().mark();
    });
}

void Pointer::drag(model::Point location, Modifiers modifiers) {
    if (awaitsRelease_) return;
    requirePressed();
    if (buffered_) documents_.front()->journal().rollBackToMark();
    locateGesture(location, modifiers);
    send(kSelectorAIToolMouseDrag, &BuiltinTool::drag);
}

void Pointer::release(model::Point location, Modifiers modifiers) {
    if (std::exchange(awaitsRelease_, false)) return;
    requirePressed();
    model::Journal& journal = documents_.front()->journal();
    if (buffered_) journal.rollBackToMark();
    locateGesture(location, modifiers);
    heldLength_.reset();
    messenger_.batch([&] {
        held_.button = false;
        const std::size_t steps = journal.undoDepth();
        send(kSelectorAIToolMouseUp, &BuiltinTool::release);
        if (buffered_) journal.dropMark();
        journal.end();
        // A tool that did something had no need of the current layer.
        if (journal.undoDepth() > steps) remark_ = Remark::None;
        reportRemark();
    });
}

void Pointer::rightClick(model::Point location, Modifiers modifiers) {
    if (!held_.button) locate(location, modifiers); // a gesture goes on where it was
    monitors_.notify(kSelectorStageMousePressed, kStageRightButton);
}

void Pointer::cancel() {
    if (!held_.button) return;
    messenger_.batch([&] {
        held_.button = false;
        heldLength_.reset();
        takenBack_ = true;
        awaitsRelease_ = true;
        if (buffered_) documents_.front()->journal().rollBackToMark();
        // The tool hears of the release, so that it comes to rest; what it does then is undone with the rest.
        send(kSelectorAIToolMouseUp, &BuiltinTool::release, kAIGestureTakenBack);
        documents_.front()->journal().abandon();
    });
}

void Pointer::post(const char* name, Handler handler, model::Point place) {
    messenger_.defer([this, name, handler, place] {
        try {
            (this->*handler)(documents_.needFront().fromScreen(place), held_.modifiers);
        } catch (const Error& error) {
            reports_.add(Blame::Plugin, std::string("a posted ") + name + " of the mouse was dropped: " + error.what());
        }
    });
}

} // namespace easel::session
