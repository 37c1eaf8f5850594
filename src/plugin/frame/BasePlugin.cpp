// Registration at start-up, tool messages, and the end.
#include "plugin/frame/BasePlugin.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "hostapi/AICursorSnapSuite.h"
#include "hostapi/AIPluginGroupSuite.h"
#include "hostapi/AIToolSuite.h"
#include "hostapi/AIUndoSuite.h"
#include "hostapi/SPPluginsSuite.h"
#include "hostapi/StageAxesSuite.h"
#include "plugin/dialogs/ModalDialog.h"
#include "plugin/document/Art.h"
#include "plugin/document/Artboard.h"
#include "plugin/document/Layer.h"
#include "plugin/document/View.h"
#include "plugin/frame/Cursor.h"
#include "plugin/frame/MenuGroup.h"
#include "plugin/host/HostCall.h"
#include "plugin/host/RefCountMap.h"
#include "plugin/platform/Guarded.h"
#include "plugin/platform/Platform.h"

namespace kzo::plugin {

namespace host {

constexpr std::int16_t kNoUndoContext = -1;
constexpr Pair<core::UndoContext> kUndoContexts[] = {
    {core::UndoContext::Standard, kAIStandardUndoContext},
    {core::UndoContext::Silent, kAISilentUndoContext},
    {core::UndoContext::Append, kAIAppendUndoContext},
};
template <> struct HostForm<core::UndoContext> : Paired<kUndoContexts, core::UndoContext::Standard, kNoUndoContext> {};

} // namespace host

namespace {

BasePlugin* theFrame = nullptr;

constexpr std::int32_t kNotifierRefused = 1000;
constexpr std::int32_t kNoUndoSuite = 1001;
constexpr std::int32_t kPluginGroupOptions = 4096;

/// In the order of ToolEvent.
constexpr core::MessageType kToolMessages[kToolEventCount] = {
    core::MessageType::ToolEditOptions,      core::MessageType::ToolTrackCursor,
    core::MessageType::ToolMouseDown,        core::MessageType::ToolMouseDrag,
    core::MessageType::ToolMouseUp,          core::MessageType::ToolSelect,
    core::MessageType::ToolReselect,         core::MessageType::ToolDeselect,
    core::MessageType::ToolDecreaseDiameter, core::MessageType::ToolIncreaseDiameter,
};

ToolEvent toolEvent(core::MessageType type) {
    return static_cast<ToolEvent>(std::find(std::begin(kToolMessages), std::end(kToolMessages), type) -
                                  std::begin(kToolMessages));
}

/// Logs what a callback threw in a dialog's own event loop, with the message that the dialog was shown in.
void logThrownInDialog(std::string_view what) {
    const Executing* const here = Dispatcher::executing();
    const std::string during = here ? std::string(here->caller) + "/" + std::string(here->selector) : "no message";
    log("exception in a callback of a dialog (" + during + "): " + std::string(what));
}

void answer(bool handled) { Dispatcher::setAnswer(handled ? Dispatcher::kHandled : Dispatcher::kNotHandled); }

bool makesCurrent(ToolEvent event) { return event >= ToolEvent::Track && event <= ToolEvent::Reselect; }

} // namespace

void attachHost(const void* record) {
    const MessageHead head(record);
    if (head.basic) host::basic = head.basic;
    if (head.self) host::self = head.self;
}

void releaseHost() {
    host::releaseAll();
    host::basic = nullptr;
    host::self = nullptr;
}

std::string pluginName(const void* record) {
    return host::get<&SPPluginsSuite::GetPluginName>(MessageHead(record).self);
}

BasePlugin::BasePlugin(SPPlugin* plugin, std::string name)
    : plugin_(plugin), name_(std::move(name)), monitors_(plugin) {
    theFrame = this;
    thrownInLoop = logThrownInDialog;
    dispatcher_.setBeforeEach(core::__Callback<BasePlugin>(this, &BasePlugin::followMarks));
}

BasePlugin::~BasePlugin() { theFrame = nullptr; }

BasePlugin* frame() { return theFrame; }

void log(std::string_view line) {
    platform().log().write(theFrame ? theFrame->spPluginRef() : nullptr,
                           theFrame ? std::string_view(theFrame->name()) : std::string_view(), line);
}

void BasePlugin::setName(const std::string& name) {
    name_ = name;
    host::call<&SPPluginsSuite::SetPluginName>(plugin_, name);
}

// Life

/// Subscribes the framework itself. Without a callback it is the entry that acts on the event.
bool BasePlugin::subscribe(const std::string& label, std::string_view type, const core::CallbackSlot& callback) {
    std::string name = label + name_;
    std::replace(name.begin(), name.end(), ' ', '_');
    return ownNotifiers_.add(std::make_shared<Notifier>(plugin_, name, type, callback)) != nullptr;
}

std::int32_t BasePlugin::startup() {
    using Bound = core::__Callback<BasePlugin>;
    // What the host refuses keeps nothing else from being set up.
    const core::CallbackSlot brightness(Bound(this, &BasePlugin::handleBrightness));
    const bool hearsStart = subscribe("KZOAppStartedNotifier", message::kApplicationStarted);
    const bool hearsEnd = subscribe("KZOAppShutdownNotifier", message::kApplicationShutdown);
    const bool hearsBrightness = subscribe("KZOBrightnessNotifier", message::kBrightnessChanged, brightness);
    const bool canUndo = host::acquire<AIUndoSuite>() != nullptr;
    const auto handle = [this](std::string_view caller, std::string_view selector, void (BasePlugin::*handler)()) {
        dispatcher_.handle(caller, selector, Bound(this, handler));
    };
    handle(message::kMenu, message::kGo, &BasePlugin::handleMenuChoice);
    handle(message::kInterface, message::kAbout, &BasePlugin::handleAbout);
    handle(message::kMenu, message::kUpdate, &BasePlugin::handleMenuUpdate);
    handle(message::kStage, message::kKeyPressed, &BasePlugin::handleKey);
    handle(message::kStage, message::kMousePressed, &BasePlugin::handleButton);
    handle(message::kStage, message::kDialogEvent, &BasePlugin::handleDialogEvent);
    for (const core::MessageType type : kToolMessages)
        handle(message::kTool, core::messageRow(type)->selector, &BasePlugin::handleToolMessage);
    dispatcher_.reserve(message::kNotifier, {}, Bound(this, &BasePlugin::handleNotifyMessage));
    dispatcher_.reserve(message::kTimer, message::kGo, Bound(this, &BasePlugin::handleTimerMessage));
    dispatcher_.reserve(message::kAnnotation, {}, Bound(this, &BasePlugin::handleAnnotatorMessage));
    if (!hearsStart || !hearsEnd || !hearsBrightness) {
        log("start-up: the host refused a notifier");
        return kNotifierRefused;
    }
    if (!canUndo) log("start-up: the host has no undo suite");
    return canUndo ? 0 : kNoUndoSuite;
}

void BasePlugin::addPluginGroup() {
    if (group_) return;
    const std::string name = name_ + " Custom Art";
    group_ = host::get<&AIPluginGroupSuite::AddAIPluginGroup>(plugin_, name, kPluginGroupOptions);
}

void BasePlugin::preShutdown() { ModalDialog::dismissAll(); }

std::int32_t BasePlugin::shutdown() {
    // No callback of the client's runs from here on, not even the rest of those of a message that led here.
    ModalDialog::destroyAll();
    aboutBox.reset();
    prefsDialog.reset();
    dispatcher_.clear();
    aroundTools_ = {};
    brightnessAdjusted = {};
    menuItemSelected = {};
    menuItemsUpdate = {};
    ownNotifiers_.destroyAll();
    std::apply([](auto&... kinds) { (kinds.destroyAll(), ...); }, registered_);
    monitors_.clear();
    // Handles that outlive the plug-in are empty.
    forgetAll<Art, Artboard, Layer, View, MenuItem, __IntMenuGroupData, ThirdPartyPlugin, __CursorContainerID>();
    releaseHost();
    return 0;
}

// Messages to what is registered

// Held while its callback works: that may destroy its own object.

void BasePlugin::handleNotifyMessage() {
    const void* const record = Dispatcher::executing()->record;
    if (!record) return;
    AINotifier* const handle = NotifyMessage(record).notifier;
    const std::shared_ptr<Notifier> own = ownNotifiers_.find(handle);
    const std::shared_ptr<Notifier> notifier = own ? own : registered<Notifier>().find(handle);
    if (notifier) notifier->callback().run();
    answer(notifier != nullptr);
}

void BasePlugin::handleMenuChoice() {
    const void* const record = Dispatcher::executing()->record;
    const auto item = record ? registered<MenuItem>().find(MenuMessage(record).item) : nullptr;
    if (!item) return;
    item->callback().run();
    menuItemSelected.run();
}

void BasePlugin::handleTimerMessage() {
    const void* const record = Dispatcher::executing()->record;
    const auto timer = record ? registered<Timer>().find(TimerMessage(record).timer) : nullptr;
    const bool runs = timer && timer->registered() && timer->active();
    // One that comes once is gone by the time its callback runs.
    if (runs && timer->repeats() == Timer::Repeats::Once) registered<Timer>().destroy(*timer);
    if (runs) timer->callback().run();
    answer(runs);
}

void BasePlugin::handleAnnotatorMessage() {
    const void* const record = Dispatcher::executing()->record;
    const auto annotator = record ? registered<Annotator>().find(AnnotatorMessage(record).annotator) : nullptr;
    const bool runs = annotator && annotator->registered();
    if (runs) annotator->callback().run();
    answer(runs);
}

// Keys, mouse buttons, and what is on the screen

void BasePlugin::handleKey() {
    if (const void* const record = Dispatcher::executing()->record)
        monitors_.pressed(Input(static_cast<core::VirtualKey>(InputMessage(record).code)));
}

void BasePlugin::handleButton() {
    if (const void* const record = Dispatcher::executing()->record)
        monitors_.pressed(Input(static_cast<core::MouseButton>(InputMessage(record).code)));
}

void BasePlugin::handleBrightness() {
    ModalDialog::adjustBrightness();
    brightnessAdjusted.run();
}

void BasePlugin::handleAbout() {
    if (const auto box = aboutBox) box->show();
}

void BasePlugin::handleDialogEvent() {
    if (const void* const record = Dispatcher::executing()->record) platform().windows().handleMessage(record);
}

void BasePlugin::followMarks() {
    if (!registered<Annotator>().all().empty()) marks_.follow(Dispatcher::executing()->toolMessage);
}

// Tools

/// A tool message on its way to its tool. A nested one gives the outer one its current tool back, and if it is to the
/// same tool, where the cursor is.
class BasePlugin::ToolScope {
  public:
    ToolScope(BasePlugin& owner, BaseTool& tool) : owner_(owner), tool_(tool) {
        for (const Executing* at = Dispatcher::executing()->outer; at; at = at->outer) {
            if (!at->toolMessage) continue;
            outerTool_ = owner.currentTool_;
            if (at->toolMessage->tool == tool.handle()) outerCursor_ = tool.cursor();
        }
    }
    ~ToolScope() {
        if (outerTool_) owner_.currentTool_ = *outerTool_;
        if (outerCursor_) tool_.setCursor(*outerCursor_);
    }
    ToolScope(const ToolScope&) = delete;
    ToolScope& operator=(const ToolScope&) = delete;

  private:
    BasePlugin& owner_;
    BaseTool& tool_;
    std::optional<std::weak_ptr<BaseTool>> outerTool_;
    std::optional<BaseTool::CursorState> outerCursor_;
};

void BasePlugin::handleToolMessage() {
    const Executing& here = *Dispatcher::executing();
    if (!here.toolMessage) return;
    const ToolMessage& message = *here.toolMessage;
    const ToolEvent event = toolEvent(here.row->type);
    const std::shared_ptr<BaseTool> tool = registered<BaseTool>().find(message.tool);
    if (!tool) return;
    const ToolScope scope(*this, *tool);
    if (makesCurrent(event)) currentTool_ = tool;
    // What comes before the event knows the location too, as it knows the keys.
    tool->setCursor({.location = message.cursor, .held = false});
    around(event).before.run();
    if (tool->handle()) Dispatcher::setAnswer(tool->handleEvent(event));
    around(event).after.run();
    if (tool->cursor().held) ToolMessage::holdCursor(here.record, tool->cursorLoc());
}

bool BasePlugin::toolsSnapTo(core::ToolSnapping kind) const {
    return any(host::get<&AICursorSnapSuite::GetToolSnapping, core::ToolSnapping>(plugin_) & kind);
}

void BasePlugin::setToolsSnapTo(core::ToolSnapping kind, bool snap) {
    const auto kinds = host::find<&AICursorSnapSuite::GetToolSnapping>(plugin_);
    if (!kinds) return;
    host::call<&AICursorSnapSuite::SetToolSnapping>(plugin_, snap ? *kinds | bits(kind) : *kinds & ~bits(kind));
}

bool BasePlugin::setDrawingAxes(const std::vector<double>& degrees) {
    const auto count = static_cast<std::int32_t>(degrees.size());
    return host::call<&StageAxesSuite::SetDrawingAxes>(plugin_, degrees.data(), count);
}

// Undo

bool BasePlugin::undo() { return host::isAcquired<AIUndoSuite>() && host::call<&AIUndoSuite::UndoChanges>(); }

bool BasePlugin::setUndoKind(core::UndoContext context) {
    const bool known = host::toHost(context) != host::kNoUndoContext;
    return known && host::isAcquired<AIUndoSuite>() && host::call<&AIUndoSuite::SetKind>(context);
}

} // namespace kzo::plugin
