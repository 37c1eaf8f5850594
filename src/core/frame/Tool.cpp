// Tool: the callbacks by event, and forwarding to the implementation.
#include "core/frame/Tool.h"

#include <array>

#include "core/Forward.h"
#include "core/frame/Keys.h"
#include "plugin/dialogs/ModalDialog.h"
#include "plugin/frame/BasePlugin.h"
#include "plugin/frame/BaseTool.h"

namespace kzo::core {

using plugin::BaseTool;
using plugin::ToolEvent;

/// The tool implementation with the client's callbacks.
class __IntToolSubclass : public BaseTool {
  public:
    using BaseTool::BaseTool;

    [[nodiscard]] CallbackSlot& slot(ToolEvent event) { return slots_[static_cast<std::size_t>(event)]; }

  protected:
    void runCallback(ToolEvent event) override { slot(event).run(); }

  private:
    std::array<CallbackSlot, plugin::kToolEventCount> slots_;
};

template class Handle<__IntToolSubclass>;

namespace {

/// The tool set to join beside a group that may be missing.
std::int16_t besideGroup(std::int16_t group, std::int16_t toolset) {
    return group == BaseTool::kNoNumber ? BaseTool::kNoNumber : toolset;
}

std::shared_ptr<__IntToolSubclass> newTool(const BaseTool::Description& description) {
    if (!plugin::frame()) return nullptr;
    return plugin::makeRegistered<BaseTool, __IntToolSubclass>(plugin::frame()->name(), description);
}

std::unique_ptr<HitData> facade(std::unique_ptr<plugin::HitData> found) {
    return found ? std::make_unique<HitData>(std::move(found)) : nullptr;
}

} // namespace

// Construction

Tool::Tool(std::int16_t group, std::int16_t toolset, const std::string& title, const std::string& tip,
           std::int16_t lightIconID, std::int16_t darkIconID, ToolOptions options)
    : Handle(newTool({.group = group,
                      .toolset = toolset,
                      .title = title,
                      .tip = tip,
                      .lightIconID = lightIconID,
                      .darkIconID = darkIconID,
                      .options = options})) {}

Tool::Tool(const Tool& group, const Tool* toolset, const std::string& title, const std::string& tip,
           std::int16_t lightIconID, std::int16_t darkIconID, ToolOptions options)
    : Tool(group.number(), besideGroup(group.number(), toolset ? toolset->number() : BaseTool::kNoNumber), title, tip,
           lightIconID, darkIconID, options) {}

Tool::Tool(BuiltinTool group, std::optional<BuiltinTool> toolset, const std::string& title, const std::string& tip,
           std::int16_t lightIconID, std::int16_t darkIconID, ToolOptions options)
    : Tool(plugin::builtinToolNumber(group),
           besideGroup(plugin::builtinToolNumber(group),
                       toolset ? plugin::builtinToolNumber(*toolset) : BaseTool::kNoNumber),
           title, tip, lightIconID, darkIconID, options) {}

Tool::Tool(const std::shared_ptr<BaseTool>& impl) : Handle(std::static_pointer_cast<__IntToolSubclass>(impl)) {}

// Identity

AITool* Tool::aiToolHandle() const { return ask(impl(), &BaseTool::handle); }
std::int16_t Tool::number() const { return impl() ? impl()->number() : BaseTool::kNoNumber; }
std::string Tool::title() const { return ask(impl(), &BaseTool::title); }
void Tool::setTitle(const std::string& title) { ask(impl(), &BaseTool::setTitle, title); }
std::string Tool::tip() const { return ask(impl(), &BaseTool::tip); }
void Tool::setTip(const std::string& tip) { ask(impl(), &BaseTool::setTip, tip); }
std::int16_t Tool::lightIconID() const { return ask(impl(), &BaseTool::lightIconID); }
void Tool::setLightIconID(std::int16_t id) { ask(impl(), &BaseTool::setLightIconID, id); }
std::int16_t Tool::darkIconID() const { return ask(impl(), &BaseTool::darkIconID); }
void Tool::setDarkIconID(std::int16_t id) { ask(impl(), &BaseTool::setDarkIconID, id); }
ToolOptions Tool::options() const { return ask(impl(), &BaseTool::options); }
void Tool::setOptions(ToolOptions options) { ask(impl(), &BaseTool::setOptions, options); }
bool Tool::selected() const { return ask(impl(), &BaseTool::selected); }
void Tool::setSelected() { ask(impl(), &BaseTool::setSelected); }

void Tool::destroy() { plugin::destroyRegistered<BaseTool>(impl()); }

// Callbacks

Callback* Tool::callback(ToolEvent event) const { return impl() ? impl()->slot(event).get() : nullptr; }

void Tool::setCallback(ToolEvent event, const Callback& callback) {
    if (impl()) impl()->slot(event).set(callback);
}

Callback* Tool::selectionCallback() const { return callback(ToolEvent::Select); }
void Tool::setSelectionCallback(const Callback& callback) { setCallback(ToolEvent::Select, callback); }
Callback* Tool::reselectionCallback() const { return callback(ToolEvent::Reselect); }
void Tool::setReselectionCallback(const Callback& callback) { setCallback(ToolEvent::Reselect, callback); }
Callback* Tool::deselectionCallback() const { return callback(ToolEvent::Deselect); }
void Tool::setDeselectionCallback(const Callback& callback) { setCallback(ToolEvent::Deselect, callback); }
Callback* Tool::trackCallback() const { return callback(ToolEvent::Track); }
void Tool::setTrackCallback(const Callback& callback) { setCallback(ToolEvent::Track, callback); }
Callback* Tool::mouseDownCallback() const { return callback(ToolEvent::MouseDown); }
void Tool::setMouseDownCallback(const Callback& callback) { setCallback(ToolEvent::MouseDown, callback); }
Callback* Tool::dragCallback() const { return callback(ToolEvent::Drag); }
void Tool::setDragCallback(const Callback& callback) { setCallback(ToolEvent::Drag, callback); }
Callback* Tool::mouseUpCallback() const { return callback(ToolEvent::MouseUp); }
void Tool::setMouseUpCallback(const Callback& callback) { setCallback(ToolEvent::MouseUp, callback); }
Callback* Tool::decreaseDiameterCallback() const { return callback(ToolEvent::DecreaseDiameter); }
void Tool::setDecreaseDiameterCallback(const Callback& callback) { setCallback(ToolEvent::DecreaseDiameter, callback); }
Callback* Tool::increaseDiameterCallback() const { return callback(ToolEvent::IncreaseDiameter); }
void Tool::setIncreaseDiameterCallback(const Callback& callback) { setCallback(ToolEvent::IncreaseDiameter, callback); }
Callback* Tool::editCallback() const { return callback(ToolEvent::Edit); }
void Tool::setEditCallback(const Callback& callback) { setCallback(ToolEvent::Edit, callback); }

// Dialogs

ModalDialog Tool::prefsDialog() const { return ModalDialog(ask(impl(), &BaseTool::prefsDialog)); }
void Tool::setPrefsDialog(const ModalDialog& dialog) {
    if (impl()) impl()->prefsDialog = dialog.shared();
}
bool Tool::autoShowPrefsDialog() const { return ask(impl(), &BaseTool::autoShowPrefsDialog); }
void Tool::setAutoShowPrefsDialog(bool show) {
    if (impl()) impl()->autoShowPrefsDialog = show;
}
ModalDialog Tool::inputDialog() const { return ModalDialog(ask(impl(), &BaseTool::inputDialog)); }
void Tool::setInputDialog(const ModalDialog& dialog) {
    if (impl()) impl()->inputDialog = dialog.shared();
}

// The gesture

ArtboardPoint Tool::cursorLoc() const { return ask(impl(), &BaseTool::cursorLoc); }
void Tool::setCursorLoc(const ArtboardPoint& location) { ask(impl(), &BaseTool::setCursorLoc, location); }

std::vector<ArtboardPoint> Tool::mouseDownLocs() const { return ask(impl(), &BaseTool::mouseDownLocs); }
std::vector<ArtboardPoint> Tool::mouseUpLocs() const { return ask(impl(), &BaseTool::mouseUpLocs); }
void Tool::resetCursorLocs() { ask(impl(), &BaseTool::resetCursorLocs); }
bool Tool::wasDragged() const { return ask(impl(), &BaseTool::wasDragged); }
bool Tool::gestureTakenBack() const {
    const plugin::Executing* const message = plugin::Dispatcher::executingTool();
    return message && !isEmpty() && message->toolMessage->takenBack && message->toolMessage->tool == aiToolHandle();
}

bool Tool::keyDown(ModifierKeys key) const { return !isEmpty() && any(modifierKeysPressed() & key); }
bool Tool::shiftKeyDown() const { return keyDown(ModifierKeys::Shift); }
bool Tool::optionKeyDown() const { return keyDown(ModifierKeys::Option); }
bool Tool::controlKeyDown() const { return keyDown(ModifierKeys::Control); }
bool Tool::commandKeyDown() const { return keyDown(ModifierKeys::Command); }
std::int32_t Tool::trackCursor() { return ask(impl(), &BaseTool::trackCursor); }

// Hit tests

std::unique_ptr<HitData> Tool::mouseDownHitData(std::size_t index, HitRequest request, double tolerance) const {
    return facade(ask(impl(), &BaseTool::mouseDownHitData, index, request, tolerance));
}

std::unique_ptr<HitData> Tool::mouseUpHitData(std::size_t index, HitRequest request, double tolerance) const {
    return facade(ask(impl(), &BaseTool::mouseUpHitData, index, request, tolerance));
}

std::unique_ptr<HitData> Tool::cursorHitData(HitRequest request, double tolerance) const {
    return facade(ask(impl(), &BaseTool::cursorHitData, request, tolerance));
}

} // namespace kzo::core
