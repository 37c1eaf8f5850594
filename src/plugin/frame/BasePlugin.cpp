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
#include "plugin/frame/Convert.h"
#include "plugin/frame/Cursor.h"
#include "plugin/frame/MenuGroup.h"
#include "plugin/host/HostCall.h"
#include "plugin/platform/Platform.h"

namespace kzo::plugin {

namespace {

BasePlugin* theFrame = nullptr;

constexpr std::int32_t kNotifierRefused = 1000;
constexpr std::int32_t kNoUndoSuite = 1001;
constexpr std::int32_t kPluginGroupOptions = 4096;

/// In the order of ToolEvent.
constexpr core::MessageType kToolMessages[toolEventCount] = {
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

bool makesCurrent(ToolEvent event) { return event >= ToolEvent::Track && event <= ToolEvent::Reselect; }

} // namespace

void attachHost(const void* record) {
    if (const SPBasicSuite* const basic = MessageHead(record).basic) host::basic = basic;
}

void releaseHost() {
    host::releaseAll();
    host::basic = nullptr;
}

std::string pluginName(const void* record) {
    return host::ask<&SPPluginsSuite::GetPluginName>("", MessageHead(record).self);
}

BasePlugin::BasePlugin(SPPlugin* plugin, std::string name)
    : plugin_(plugin), name_(std::move(name)), monitors_(plugin) {
    theFrame = this;
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
    host::call<&SPPluginsSuite::SetPluginName>(plugin_, name.c_str());
}

// Life

/// Subscribes the framework itself. Without a callback it is the entry that acts on the event.
bool BasePlugin::subscribe(const std::string& label, std::string_view type, const core::CallbackSlot& callback) {
    std::string name = label + name_;
    std::replace(name.begin(), name.end(), ' ', '_');
    const auto notifier = std::make_shared<Notifier>(plugin_, name, type, callback);
    if (notifier->handle()) ownNotifiers_.add(notifier);
    return notifier->handle() != nullptr;
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
    handle(message::kMenu, message::kUpdate, &BasePlugin::handleMenuUpdate);
    handle(message::kStage, message::kKeyPressed, &BasePlugin::handleKey);
    handle(message::kStage, message::kMousePressed, &BasePlugin::handleButton);
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
    group_ = host::ask<&AIPluginGroupSuite::AddAIPluginGroup>(AIPluginGroupHandle{}, plugin_, name.c_str(),
                                                              kPluginGroupOptions);
}

std::int32_t BasePlugin::shutdown() {
    // No callback of the client's runs from here on, not even the rest of those of a message that led here.
    dispatcher_.clear();
    aroundTools_ = {};
    brightnessAdjusted = {};
    menus_.selected = {};
    menus_.updating = {};
    // Handles that outlive the plug-in are empty.
    for (const std::shared_ptr<BaseTool>& tool : tools_) tool->destroy();
    tools_.clear();
    ownNotifiers_.clear();
    notifiers_.clear();
    menus_.clear();
    SharedMenuGroup::Map::each([](auto& shared) { shared.impl.forget(); });
    timers_.clear();
    annotators_.clear();
    monitors_.clear();
    SharedThirdPartyPlugin::Map::each([](auto& shared) { shared.impl.forget(); });
    SharedCursor::Map::each([](auto& shared) { shared.impl.forget(); });
    releaseHost();
    return 0;
}

// Notifiers

std::shared_ptr<Notifier> BasePlugin::addNotifier(const std::string& name, std::string_view type,
                                                  const core::CallbackSlot& callback) {
    auto notifier = std::make_shared<Notifier>(plugin_, name, type, callback);
    if (!notifier->handle()) return nullptr;
    notifiers_.add(notifier);
    return notifier;
}

void BasePlugin::handleNotifyMessage() {
    const void* const record = Dispatcher::executing()->record;
    if (!record) return;
    const NotifyMessage message(record);
    const bool known = ownNotifiers_.notify(message) || notifiers_.notify(message);
    Dispatcher::setAnswer(known ? Dispatcher::kHandled : Dispatcher::kNotHandled);
}

// Menus, timers and annotators

void BasePlugin::handleMenuChoice() {
    if (const void* const record = Dispatcher::executing()->record) menus_.choose(MenuMessage(record).item);
}

void BasePlugin::handleMenuUpdate() { menus_.update(); }

void BasePlugin::handleTimerMessage() {
    const void* const record = Dispatcher::executing()->record;
    const bool ran = record && timers_.fire(TimerMessage(record).timer);
    Dispatcher::setAnswer(ran ? Dispatcher::kHandled : Dispatcher::kNotHandled);
}

void BasePlugin::handleAnnotatorMessage() {
    const void* const record = Dispatcher::executing()->record;
    const bool ran = record && annotators_.run(AnnotatorMessage(record).annotator);
    Dispatcher::setAnswer(ran ? Dispatcher::kHandled : Dispatcher::kNotHandled);
}

// Keys, mouse buttons, and the interface

void BasePlugin::handleKey() {
    if (const void* const record = Dispatcher::executing()->record)
        monitors_.pressed(Input(static_cast<core::VirtualKey>(InputMessage(record).code)));
}

void BasePlugin::handleButton() {
    if (const void* const record = Dispatcher::executing()->record)
        monitors_.pressed(Input(static_cast<core::MouseButton>(InputMessage(record).code)));
}

void BasePlugin::followMarks() { annotators_.follow(Dispatcher::executing()->toolMessage); }

void BasePlugin::handleBrightness() { brightnessAdjusted.run(); }

// Tools

void BasePlugin::addTool(const std::shared_ptr<BaseTool>& tool) { tools_.push_back(tool); }

void BasePlugin::removeTool(const BaseTool& tool) {
    std::erase_if(tools_, [&](const std::shared_ptr<BaseTool>& known) { return known.get() == &tool; });
}

/// A tool message on its way to its tool. A nested one gives the outer one its current tool back, and if it is to the
/// same tool, where the cursor is.
class BasePlugin::ToolScope {
  public:
    ToolScope(BasePlugin& owner, BaseTool& tool) : owner_(owner), tool_(tool) {
        for (const Executing* at = Dispatcher::executing()->outer; at; at = at->outer) {
            if (!at->toolMessage) continue;
            outerTool_ = owner.currentTool_;
            if (at->toolMessage->tool == tool.toolHandle()) outerCursor_ = tool.cursor();
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
    std::optional<BaseTool::Cursor> outerCursor_;
};

void BasePlugin::handleToolMessage() {
    const Executing& here = *Dispatcher::executing();
    if (!here.toolMessage) return;
    const ToolMessage& message = *here.toolMessage;
    const ToolEvent event = toolEvent(here.row->type);
    const auto known =
        std::find_if(tools_.begin(), tools_.end(), [&](const auto& t) { return t->toolHandle() == message.tool; });
    if (known == tools_.end()) return;
    // Held while it works: a callback may destroy its own tool.
    const std::shared_ptr<BaseTool> tool = *known;
    const ToolScope scope(*this, *tool);
    if (makesCurrent(event)) currentTool_ = tool;
    // What comes before the event knows the location too, as it knows the keys.
    tool->setCursor({.location = message.cursor, .held = false});
    around(event).before.run();
    if (tool->toolHandle()) Dispatcher::setAnswer(tool->handle(event));
    around(event).after.run();
    if (tool->cursor().held) ToolMessage::holdCursor(here.record, tool->cursorLoc());
}

bool BasePlugin::toolsSnapTo(core::ToolSnapping kind) const {
    return (host::ask<&AICursorSnapSuite::GetToolSnapping>(std::int32_t{0}, plugin_) & bits(kind)) != 0;
}

void BasePlugin::setToolsSnapTo(core::ToolSnapping kind, bool snap) {
    std::int32_t kinds = 0;
    if (!host::call<&AICursorSnapSuite::GetToolSnapping>(plugin_, &kinds)) return;
    host::call<&AICursorSnapSuite::SetToolSnapping>(plugin_, snap ? kinds | bits(kind) : kinds & ~bits(kind));
}

// Undo

bool BasePlugin::undo() { return host::isAcquired<AIUndoSuite>() && host::call<&AIUndoSuite::UndoChanges>(); }

bool BasePlugin::setUndoKind(core::UndoContext context) {
    const bool known = host::toHost(context) != host::kNoUndoContext;
    return known && host::isAcquired<AIUndoSuite>() && host::call<&AIUndoSuite::SetKind>(context);
}

} // namespace kzo::plugin
