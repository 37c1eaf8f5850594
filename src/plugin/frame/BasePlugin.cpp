// Registration at start-up, tool messages, and the end.
#include "plugin/frame/BasePlugin.h"

#include <algorithm>
#include <utility>

#include "hostapi/AICursorSnapSuite.h"
#include "hostapi/AIPluginGroupSuite.h"
#include "hostapi/AIToolSuite.h"
#include "hostapi/AIUndoSuite.h"
#include "hostapi/SPPluginsSuite.h"
#include "plugin/document/Convert.h"
#include "plugin/frame/Cursor.h"
#include "plugin/frame/MenuGroup.h"
#include "plugin/host/HostCall.h"

namespace kzo::plugin {

namespace {

BasePlugin* theFrame = nullptr;

constexpr std::int32_t notifierRefused = 1000;
constexpr std::int32_t noUndoSuite = 1001;
constexpr std::int32_t pluginGroupOptions = 4096;

/// Selectors of the caller "AI Tool", in the order of ToolEvent.
constexpr std::string_view toolSelectors[toolEventCount] = {
    kSelectorAIEditToolOptions,  kSelectorAITrackToolCursor,  kSelectorAIToolMouseDown, kSelectorAIToolMouseDrag,
    kSelectorAIToolMouseUp,      kSelectorAISelectTool,       kSelectorAIReselectTool,  kSelectorAIDeselectTool,
    kSelectorAIDecreaseDiameter, kSelectorAIIncreaseDiameter,
};

bool makesCurrent(ToolEvent event) { return event >= ToolEvent::Track && event <= ToolEvent::Reselect; }

} // namespace

void useHost(const void* record) {
    if (const SPBasicSuite* const basic = MessageHead(record).basic) host::basic = basic;
}

void leaveHost() {
    host::releaseAll();
    host::basic = nullptr;
}

std::string pluginName(const void* record) {
    return host::ask<&SPPluginsSuite::GetPluginName>("", MessageHead(record).self);
}

BasePlugin::BasePlugin(SPPlugin* plugin, std::string name)
    : plugin_(plugin), name_(std::move(name)), monitors_(plugin) {
    theFrame = this;
}

BasePlugin::~BasePlugin() { theFrame = nullptr; }

BasePlugin* frame() { return theFrame; }

void BasePlugin::setName(const std::string& name) {
    name_ = name;
    host::call<&SPPluginsSuite::SetPluginName>(plugin_, name.c_str());
}

// Life

/// Subscribes the framework itself. Without a callback it is the entry that acts on the event.
bool BasePlugin::hear(const std::string& label, std::string_view type, const core::CallbackSlot& callback) {
    std::string name = label + name_;
    std::replace(name.begin(), name.end(), ' ', '_');
    return addNotifier(name, type, callback) != nullptr;
}

std::int32_t BasePlugin::startup() {
    using Bound = core::__Callback<BasePlugin>;
    // What the host refuses keeps nothing else from being set up.
    const core::CallbackSlot brightness(Bound(this, &BasePlugin::handleBrightness));
    const bool hearsStart = hear("KZOAppStartedNotifier", message::applicationStarted);
    const bool hearsEnd = hear("KZOAppShutdownNotifier", message::applicationShutdown);
    const bool hearsBrightness = hear("KZOBrightnessNotifier", message::brightnessChanged, brightness);
    const bool canUndo = host::acquire<AIUndoSuite>() != nullptr;
    const auto handle = [this](std::string_view caller, std::string_view selector, void (BasePlugin::*handler)()) {
        dispatcher_.registerMessageCallback(caller, selector, Bound(this, handler));
    };
    handle(message::menu, message::go, &BasePlugin::handleMenuChoice);
    handle(message::menu, message::update, &BasePlugin::handleMenuUpdate);
    handle(message::stage, message::keyPressed, &BasePlugin::handleKey);
    handle(message::stage, message::mousePressed, &BasePlugin::handleButton);
    for (const std::string_view selector : toolSelectors)
        handle(message::tool, selector, &BasePlugin::handleToolMessage);
    dispatcher_.take(message::notifier, {}, Bound(this, &BasePlugin::handleNotifyMessage));
    dispatcher_.take(message::timer, message::go, Bound(this, &BasePlugin::handleTimerMessage));
    dispatcher_.take(message::annotation, {}, Bound(this, &BasePlugin::handleAnnotatorMessage));
    if (!hearsStart || !hearsEnd || !hearsBrightness) return notifierRefused;
    return canUndo ? 0 : noUndoSuite;
}

void BasePlugin::addPluginGroup() {
    if (group_) return;
    const std::string name = name_ + " Custom Art";
    group_ = host::ask<&AIPluginGroupSuite::AddAIPluginGroup>(AIPluginGroupHandle{}, plugin_, name.c_str(),
                                                              pluginGroupOptions);
}

std::int32_t BasePlugin::shutdown() {
    // Handles that outlive the plug-in are empty from here on.
    for (const std::shared_ptr<BaseTool>& tool : tools_) tool->destroy();
    tools_.clear();
    notifiers_.clear();
    menus_.clear();
    SharedMenuGroup::Map::each([](auto& shared) { shared.impl.forget(); });
    timers_.clear();
    annotators_.clear();
    monitors_.clear();
    SharedThirdPartyPlugin::Map::each([](auto& shared) { shared.impl.forget(); });
    SharedCursor::Map::each([](auto& shared) { shared.impl.forget(); });
    leaveHost();
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
    if (!dispatcher_.lastRecord()) return;
    const bool known = notifiers_.notify(NotifyMessage(dispatcher_.lastRecord()));
    dispatcher_.setAnswer(known ? Dispatcher::handled : Dispatcher::notHandled);
}

// Menus, timers and annotators

void BasePlugin::handleMenuChoice() {
    if (dispatcher_.lastRecord()) menus_.choose(MenuMessage(dispatcher_.lastRecord()).item);
}

void BasePlugin::handleMenuUpdate() { menus_.update(); }

void BasePlugin::handleTimerMessage() {
    const void* const record = dispatcher_.lastRecord();
    const bool ran = record && timers_.fire(TimerMessage(record).timer);
    dispatcher_.setAnswer(ran ? Dispatcher::handled : Dispatcher::notHandled);
}

void BasePlugin::handleAnnotatorMessage() {
    const void* const record = dispatcher_.lastRecord();
    const bool ran = record && annotators_.run(AnnotatorMessage(record).annotator);
    dispatcher_.setAnswer(ran ? Dispatcher::handled : Dispatcher::notHandled);
}

// Keys, mouse buttons, and the interface

void BasePlugin::handleKey() {
    if (const void* const record = dispatcher_.lastRecord())
        monitors_.pressed(Input(static_cast<core::VirtualKey>(InputMessage(record).code)));
}

void BasePlugin::handleButton() {
    if (const void* const record = dispatcher_.lastRecord())
        monitors_.pressed(Input(static_cast<core::MouseButton>(InputMessage(record).code)));
}

void BasePlugin::handleBrightness() { brightnessAdjusted.run(); }

// Tools

void BasePlugin::addTool(const std::shared_ptr<BaseTool>& tool) { tools_.push_back(tool); }

void BasePlugin::removeTool(const BaseTool& tool) {
    std::erase_if(tools_, [&](const std::shared_ptr<BaseTool>& known) { return known.get() == &tool; });
}

void BasePlugin::handleToolMessage() {
    if (!dispatcher_.lastRecord()) return;
    const ToolMessage message = *dispatcher_.lastToolMessage();
    const auto selector = std::find(std::begin(toolSelectors), std::end(toolSelectors), dispatcher_.lastSelector());
    const auto event = static_cast<ToolEvent>(selector - std::begin(toolSelectors));
    const auto known =
        std::find_if(tools_.begin(), tools_.end(), [&](const auto& t) { return t->toolHandle() == message.tool; });
    if (known == tools_.end()) return;
    // Held while it works: a callback may destroy its own tool.
    const std::shared_ptr<BaseTool> tool = *known;
    if (makesCurrent(event)) currentTool_ = tool;
    tool->setCursorLoc(message.cursor); // what comes before the event knows it too, as it knows the keys
    around(event).before.run();
    dispatcher_.setAnswer(tool->handle(event));
    around(event).after.run();
    dispatcher_.setCursorLoc(tool->cursorLoc());
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
    constexpr std::int16_t none = -1;
    const std::int16_t kind = toHost(undoContexts, context, none);
    return kind != none && host::isAcquired<AIUndoSuite>() && host::call<&AIUndoSuite::SetKind>(std::int32_t{kind});
}

} // namespace kzo::plugin
