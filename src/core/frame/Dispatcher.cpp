// Typed dispatch over the implementation's dispatch by texts.
#include "core/frame/Dispatcher.h"

#include "core/Forward.h"
#include "core/frame/Messages.h"
#include "plugin/frame/BasePlugin.h"

namespace kzo::core {

namespace {

template <class Visit> auto visitLiveEffect(const MessageRow& row, void* record, Visit visit) {
    switch (row.type) {
    case MessageType::LiveEffectEditParameters: return visit(LiveEffectEditParametersMessage(row, record));
    case MessageType::LiveEffectGoLive: return visit(LiveEffectGoLiveMessage(row, record));
    case MessageType::LiveEffectInterpolateParameters:
        return visit(LiveEffectInterpolateParametersMessage(row, record));
    case MessageType::LiveEffectInputType: return visit(LiveEffectInputTypeMessage(row, record));
    case MessageType::LiveEffectConvertColorSpace: return visit(LiveEffectConvertColorSpaceMessage(row, record));
    case MessageType::LiveEffectScaleParameters: return visit(LiveEffectScaleParametersMessage(row, record));
    case MessageType::LiveEffectHandleMerge: return visit(LiveEffectHandleMergeMessage(row, record));
    case MessageType::LiveEffectGetSVGFilter: return visit(LiveEffectGetSVGFilterMessage(row, record));
    case MessageType::LiveEffectAdjustColors: return visit(LiveEffectAdjustColorsMessage(row, record));
    case MessageType::LiveEffectIsCompatible: return visit(LiveEffectIsCompatibleMessage(row, record));
    default: return visit(Message(row, record));
    }
}

/// Calls `visit` with the typed object of a message, which lives that long.
template <class Visit> auto visitTyped(const MessageRow& row, void* record, Visit visit) {
    switch (row.family) {
    case MessageFamily::Action: return visit(ActionMessage(row, record));
    case MessageFamily::Annotator: return visit(AnnotatorMessage(row, record));
    case MessageFamily::Clipboard: return visit(ClipboardMessage(row, record));
    case MessageFamily::FileFormat: return visit(FileFormatMessage(row, record));
    case MessageFamily::Filter: return visit(FilterMessage(row, record));
    case MessageFamily::LayerList: return visit(LayerListMessage(row, record));
    case MessageFamily::Menu: return visit(MenuMessage(row, record));
    case MessageFamily::ObjectSet: return visit(ObjectSetMessage(row, record));
    case MessageFamily::CustomArt: return visit(CustomArtMessage(row, record));
    case MessageFamily::Preferences: return visit(PreferencesMessage(row, record));
    case MessageFamily::Timer: return visit(TimerMessage(row, record));
    case MessageFamily::Toolbox: return visit(ToolboxMessage(row, record));
    case MessageFamily::TransformAgain: return visit(TransformAgainMessage(row, record));
    case MessageFamily::Workspace: return visit(WorkspaceMessage(row, record));
    case MessageFamily::Plugin: return visit(PluginMessage(row, record));
    case MessageFamily::Adapter: return visit(AdapterMessage(row, record));
    case MessageFamily::Notify: return visit(NotifyMessage(row, record));
    case MessageFamily::Tool: return visit(ToolMessage(row, record));
    case MessageFamily::LiveEffect: return visitLiveEffect(row, record, visit);
    }
    return visit(Message(row, record));
}

} // namespace

/// One typed message on the stack of those being handled.
class Dispatcher::Scope {
  public:
    explicit Scope(const Message& message) : here_{&message, toolMessage(message), executing_} { executing_ = &here_; }
    ~Scope() { executing_ = here_.outer; }
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

  private:
    [[nodiscard]] static const ToolMessage* toolMessage(const Message& message) {
        const auto* const own = dynamic_cast<const ToolMessage*>(&message);
        return own ? own : lastToolMessage();
    }

    Executing here_;
};

// Dispatch

std::int32_t Dispatcher::message(std::string_view caller, std::string_view selector, void* record) {
    return impl_.message(caller, selector, record);
}

std::int32_t Dispatcher::message(MessageType type, void* record) {
    const MessageRow* const row = messageRow(type);
    if (!row || !record) return plugin::Dispatcher::notHandled;
    return visitTyped(*row, record, [&impl = impl_, row, record](const Message& typed) {
        const Scope scope(typed);
        return impl.message(row->caller, row->selector, record);
    });
}

bool Dispatcher::isExecuting(MessageType type) {
    const Executing* at = executing_;
    while (at && at->message->type() != type) at = at->outer;
    return at != nullptr;
}

// Registration

void Dispatcher::registerMessageCallback(std::string_view caller, std::string_view selector, const Callback& callback) {
    impl_.registerMessageCallback(caller, selector, callback);
}

void Dispatcher::registerMessageCallback(MessageType type, const Callback& callback) {
    if (const MessageRow* const row = messageRow(type)) registerMessageCallback(row->caller, row->selector, callback);
}

void Dispatcher::unregisterMessageCallback(std::string_view caller, std::string_view selector) {
    impl_.unregisterMessageCallback(caller, selector);
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
    for (const auto& notifier : plugin::frame()->notifiers().ofType(notifierName(type))) found.emplace_back(notifier);
    return found;
}

// Timers

void Dispatcher::registerTimer(const Timer& timer) { ask(timer.__impl(), &plugin::Timer::setRegistered, true); }
void Dispatcher::unregisterTimer(const Timer& timer) { ask(timer.__impl(), &plugin::Timer::setRegistered, false); }

bool Dispatcher::scheduleCallback(const Callback& callback, double delay) {
    plugin::BasePlugin& frame = *plugin::frame();
    const auto timer = std::make_shared<plugin::Timer>(frame.spPluginRef(), frame.name() + " Scheduled", delay,
                                                       CallbackSlot(callback), plugin::Timer::Repeats::Once);
    if (!timer->handle()) return false;
    frame.timers().add(timer);
    return true;
}

// Annotators

void Dispatcher::registerAnnotator(const Annotator& annotator) {
    ask(annotator.__impl(), &plugin::Annotator::setRegistered, true);
}

void Dispatcher::unregisterAnnotator(const Annotator& annotator) {
    ask(annotator.__impl(), &plugin::Annotator::setRegistered, false);
}

// Keys and mouse buttons

namespace {

plugin::Monitors& monitors() { return plugin::frame()->monitors(); }

} // namespace

std::uint32_t Dispatcher::addKeypressMonitor(VirtualKey key, const Callback& callback) {
    return monitors().add(plugin::Input(key), CallbackSlot(callback));
}

Callback* Dispatcher::getKeypressMonitor(std::uint32_t id) const {
    return monitors().find(plugin::Input::Kind::Key, id);
}

void Dispatcher::removeKeypressMonitor(std::uint32_t id) { monitors().remove(plugin::Input::Kind::Key, id); }

std::uint32_t Dispatcher::addMouseMonitor(MouseButton button, const Callback& callback) {
    return monitors().add(plugin::Input(button), CallbackSlot(callback));
}

Callback* Dispatcher::getMouseMonitor(std::uint32_t id) const {
    return monitors().find(plugin::Input::Kind::Button, id);
}

void Dispatcher::removeMouseMonitor(std::uint32_t id) { monitors().remove(plugin::Input::Kind::Button, id); }

void* Dispatcher::lastRecord() const { return impl_.lastRecord(); }

} // namespace kzo::core
