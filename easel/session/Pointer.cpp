// Gestures. The document's transaction opens with the press and closes with the release, so that messages in between
// join it.
#include "session/Pointer.h"

#include <cmath>

#include "session/Session.h"

namespace easel::session {

void Pointer::locate(model::Point location, Modifiers modifiers) {
    modifiers_ = modifiers;
    rawLocation_ = location_ = location;
    model::Document* const document = session_.document();
    const Tool* const tool = session_.toolbox.current();
    if (document) location_ = snapping.snapped(*document, location, tool->owner ? tool->owner->toolSnapping : 0);
}

void Pointer::hold(model::Point location) {
    if (std::isfinite(location.x) && std::isfinite(location.y)) location_ = location;
}

void Pointer::send(const char* selector, BuiltinTool::Handler handler, std::uint32_t flags) {
    Tool* const tool = session_.toolbox.find(tool_);
    if (!tool) return;
    if (tool->builtin)
        (*tool->builtin.*handler)(*session_.document(), location_, modifiers_);
    else
        session_.sendToTool(*tool, selector, flags);
}

void Pointer::requirePressed() const {
    if (!pressed_) throw Error("no mouse button is down");
}

void Pointer::requireReleased() const {
    if (pressed_) throw Error("the mouse button is down already");
}

void Pointer::move(model::Point location, Modifiers modifiers) {
    if (pressed_) throw Error("the mouse button is down; a move is a drag");
    locate(location, modifiers);
    Tool& tool = *session_.toolbox.current();
    if (tool.options & kToolWantsToTrackCursorOption) session_.sendToTool(tool, kSelectorAITrackToolCursor);
}

void Pointer::press(model::Point location, Modifiers modifiers) {
    requireReleased();
    model::Document& document = session_.needDocument();
    locate(location, modifiers);
    session_.notifyInput(kSelectorStageMousePressed, kStageLeftButton);
    // A plug-in that heard of it may have pressed the button itself, or clicked elsewhere.
    requireReleased();
    locate(location, modifiers);
    pressed_ = true;
    takenBack_ = false;
    const Tool& tool = *session_.toolbox.current();
    tool_ = tool.handle;
    buffered_ = (tool.options & kToolWantsBufferedDraggingOption) != 0;
    session_.messenger.batch([&] {
        document.journal().begin();
        send(kSelectorAIToolMouseDown, &BuiltinTool::press);
        if (buffered_) document.journal().mark();
    });
}

void Pointer::drag(model::Point location, Modifiers modifiers) {
    requirePressed();
    if (buffered_) session_.document()->journal().rollBackToMark();
    locate(location, modifiers);
    send(kSelectorAIToolMouseDrag, &BuiltinTool::drag);
}

void Pointer::release(model::Point location, Modifiers modifiers) {
    requirePressed();
    model::Journal& journal = session_.document()->journal();
    if (buffered_) journal.rollBackToMark();
    locate(location, modifiers);
    session_.messenger.batch([&] {
        pressed_ = false;
        send(kSelectorAIToolMouseUp, &BuiltinTool::release);
        if (buffered_) journal.dropMark();
        journal.end();
    });
}

void Pointer::rightClick(model::Point location, Modifiers modifiers) {
    if (!pressed_) locate(location, modifiers); // a gesture goes on where it was
    session_.notifyInput(kSelectorStageMousePressed, kStageRightButton);
}

void Pointer::cancel() {
    if (!pressed_) return;
    session_.messenger.batch([&] {
        pressed_ = false;
        takenBack_ = true;
        if (buffered_) session_.document()->journal().rollBackToMark();
        // The tool hears of the release, so that it comes to rest; what it does then is undone with the rest.
        send(kSelectorAIToolMouseUp, &BuiltinTool::release, kAIGestureTakenBack);
        session_.document()->journal().abandon();
    });
}

void Pointer::post(const char* name, Handler handler, model::Point place) {
    session_.messenger.defer([this, name, handler, place] {
        try {
            (this->*handler)(session_.needDocument().fromScreen(place), modifiers_);
        } catch (const Error& error) {
            session_.report(Blame::Plugin,
                            std::string("a posted ") + name + " of the mouse was dropped: " + error.what());
        }
    });
}

} // namespace easel::session
