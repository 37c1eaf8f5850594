// Typed objects for the messages of the table, over the implementation's dispatch.
#include "core/frame/Dispatcher.h"

#include "core/Forward.h"
#include "core/frame/Messages.h"
#include "plugin/frame/BasePlugin.h"

namespace kzo::core {

namespace {

bool isOf(const MessageRow& row, MessageFamily family) { return row.family == family; }
bool isOf(const MessageRow& row, MessageType type) { return row.type == type; }

/// Calls `visit` with a MessageOf the first family or kind that the row is of.
template <auto First, auto... Others, class Visit>
std::int32_t visitPlain(const MessageRow& row, void* record, Visit visit) {
    if (isOf(row, First)) return visit(MessageOf<First>(row, record));
    if constexpr (sizeof...(Others) > 0)
        return visitPlain<Others...>(row, record, visit);
    else
        return visit(Message(row, record));
}

template <class Visit> std::int32_t visitLiveEffect(const MessageRow& row, void* record, Visit visit) {
    using enum MessageType;
    return visitPlain<LiveEffectEditParameters, LiveEffectGoLive, LiveEffectInterpolateParameters, LiveEffectInputType,
                      LiveEffectConvertColorSpace, LiveEffectScaleParameters, LiveEffectHandleMerge,
                      LiveEffectGetSVGFilter, LiveEffectAdjustColors, LiveEffectIsCompatible>(row, record, visit);
}

/// Calls `visit` with the typed object of a message, which lives that long.
template <class Visit> std::int32_t visitTyped(const MessageRow& row, void* record, Visit visit) {
    using enum MessageFamily;
    switch (row.family) {
    case Tool: return visit(ToolMessage(row, record));
    case Notify: return visit(NotifyMessage(row, record));
    case Menu: return visit(MenuMessage(row, record));
    case Timer: return visit(TimerMessage(row, record));
    case Annotator: return visit(AnnotatorMessage(row, record));
    case LiveEffect: return visitLiveEffect(row, record, visit);
    default:
        return visitPlain<Action, Clipboard, FileFormat, Filter, LayerList, ObjectSet, CustomArt, Preferences, Toolbox,
                          TransformAgain, Workspace, MessageFamily::Plugin, Adapter>(row, record, visit);
    }
}

} // namespace

// Dispatch

std::int32_t Dispatcher::message(const MessageRow& row, void* record) {
    if (!record) return frame_.dispatcher().message(row, nullptr, nullptr);
    return visitTyped(row, record,
                      [&](const Message& typed) { return frame_.dispatcher().message(row, record, &typed); });
}

std::int32_t Dispatcher::message(std::string_view caller, std::string_view selector, void* record) {
    const MessageRow* const row = messageRow(caller, selector);
    return row ? message(*row, record) : frame_.dispatcher().message(caller, selector, record);
}

std::int32_t Dispatcher::message(MessageType type, void* record) {
    const MessageRow* const row = messageRow(type);
    return row && record ? message(*row, record) : plugin::Dispatcher::kNotHandled;
}

// The message being handled

const Message* Dispatcher::lastMessage() {
    const plugin::Executing* at = plugin::Dispatcher::executing();
    while (at && !at->typed) at = at->outer;
    return at ? at->typed : nullptr;
}

const ToolMessage* Dispatcher::lastToolMessage() {
    const plugin::Executing* const tool = plugin::Dispatcher::executingTool();
    return tool ? static_cast<const ToolMessage*>(tool->typed) : nullptr;
}

void* Dispatcher::lastRecord() {
    const plugin::Executing* const here = plugin::Dispatcher::executing();
    return here ? here->record : nullptr;
}

bool Dispatcher::isExecuting(MessageType type) {
    const plugin::Executing* at = plugin::Dispatcher::executing();
    while (at && !(at->row && at->row->type == type)) at = at->outer;
    return at != nullptr;
}

// Registration

void Dispatcher::registerMessageCallback(std::string_view caller, std::string_view selector, const Callback& callback) {
    frame_.dispatcher().registerMessageCallback(caller, selector, callback);
}

void Dispatcher::registerMessageCallback(MessageType type, const Callback& callback) {
    if (const MessageRow* const row = messageRow(type)) registerMessageCallback(row->caller, row->selector, callback);
}

void Dispatcher::unregisterMessageCallback(std::string_view caller, std::string_view selector) {
    frame_.dispatcher().unregisterMessageCallback(caller, selector);
}

void Dispatcher::unregisterMessageCallback(MessageType type) {
    if (const MessageRow* const row = messageRow(type)) unregisterMessageCallback(row->caller, row->selector);
}

// Notifiers

Notifier Dispatcher::registerNotifier(const std::string& name, NotifierType type, const Callback& callback) {
    return Notifier(name, type, callback);
}

void Dispatcher::unregisterNotifier(Notifier notifier) { notifier.destroy(); }

std::vector<Notifier> Dispatcher::registeredNotifiersOfType(NotifierType type) const {
    std::vector<Notifier> found;
    for (const auto& notifier : frame_.registered<plugin::Notifier>().all())
        if (notifier->type() == notifierName(type)) found.emplace_back(notifier);
    return found;
}

// Timers

void Dispatcher::registerTimer(const Timer& timer) { ask(timer.impl(), &plugin::Timer::setRegistered, true); }
void Dispatcher::unregisterTimer(const Timer& timer) { ask(timer.impl(), &plugin::Timer::setRegistered, false); }

bool Dispatcher::scheduleCallback(const Callback& callback, double delay) {
    const std::string name = frame_.name() + " Scheduled";
    return plugin::makeRegistered<plugin::Timer>(name, delay, CallbackSlot(callback), plugin::Timer::Repeats::Once) !=
           nullptr;
}

// Annotators

void Dispatcher::registerAnnotator(const Annotator& annotator) {
    ask(annotator.impl(), &plugin::Annotator::setRegistered, true);
}

void Dispatcher::unregisterAnnotator(const Annotator& annotator) {
    ask(annotator.impl(), &plugin::Annotator::setRegistered, false);
}

// Keys and mouse buttons

std::uint32_t Dispatcher::addKeypressMonitor(VirtualKey key, const Callback& callback) {
    return frame_.monitors().add(plugin::Input(key), CallbackSlot(callback));
}

Callback* Dispatcher::getKeypressMonitor(std::uint32_t id) const {
    return frame_.monitors().find(plugin::Input::Kind::Key, id);
}

void Dispatcher::removeKeypressMonitor(std::uint32_t id) { frame_.monitors().remove(plugin::Input::Kind::Key, id); }

std::uint32_t Dispatcher::addMouseMonitor(MouseButton button, const Callback& callback) {
    return frame_.monitors().add(plugin::Input(button), CallbackSlot(callback));
}

Callback* Dispatcher::getMouseMonitor(std::uint32_t id) const {
    return frame_.monitors().find(plugin::Input::Kind::Button, id);
}

void Dispatcher::removeMouseMonitor(std::uint32_t id) { frame_.monitors().remove(plugin::Input::Kind::Button, id); }

} // namespace kzo::core
