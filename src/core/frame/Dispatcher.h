// The public face of message dispatch: what a client registers for itself, and the message that is being handled.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/frame/Annotator.h"
#include "core/frame/Notifier.h"
#include "core/frame/Timer.h"
#include "core/values/Callback.h"
#include "core/values/MessageType.h"
#include "core/values/VirtualKey.h"

namespace kzo::plugin {
class BasePlugin;
}

namespace kzo::core {

class Message;
class ToolMessage;

class Dispatcher {
  public:
    explicit Dispatcher(plugin::BasePlugin& frame) : frame_(frame) {}

    // Dispatch
    /// Returns 1 when nothing is registered for the message, else what its handler returns, 0 as a rule. Messages of
    /// the table get a typed object.
    std::int32_t message(std::string_view caller, std::string_view selector, void* record);
    std::int32_t message(MessageType type, void* record); ///< 1 for an unknown type, and without a record
    std::int32_t message(const MessageRow& row, void* record);

    // Registration. A second callback for the same message replaces the first. One for a message that the framework
    // handles itself takes the framework's place until it is unregistered; timers, notifiers and annotators are found
    // by their handles whatever is registered here.
    void registerMessageCallback(std::string_view caller, std::string_view selector, const Callback& callback);
    void registerMessageCallback(MessageType type, const Callback& callback); ///< nothing for an unknown type
    void unregisterMessageCallback(std::string_view caller, std::string_view selector);
    void unregisterMessageCallback(MessageType type);

    // Notifiers
    /// An empty handle when the host refuses.
    Notifier registerNotifier(const std::string& name, NotifierType type, const Callback& callback);
    void unregisterNotifier(Notifier notifier);
    [[nodiscard]] std::vector<Notifier> registeredNotifiersOfType(NotifierType type) const;

    // Timers
    /// A timer is registered from its construction on. One that is not is no longer run, though the host keeps it.
    void registerTimer(const Timer& timer);
    void unregisterTimer(const Timer& timer);
    /// Runs the callback once, when `delay` seconds have passed. False when the host refuses.
    bool scheduleCallback(const Callback& callback, double delay);

    // Annotators
    /// As timers: registered from its construction on, and without it not asked to draw, though the host keeps it.
    void registerAnnotator(const Annotator& annotator);
    void unregisterAnnotator(const Annotator& annotator);

    // Keys and mouse buttons, wherever in the application they are pressed
    /// Returns the monitor's number, or 0 when the platform tells of none.
    std::uint32_t addKeypressMonitor(VirtualKey key, const Callback& callback);
    [[nodiscard]] Callback* getKeypressMonitor(std::uint32_t id) const; ///< null when there is none
    void removeKeypressMonitor(std::uint32_t id);
    std::uint32_t addMouseMonitor(MouseButton button, const Callback& callback);
    [[nodiscard]] Callback* getMouseMonitor(std::uint32_t id) const;
    void removeMouseMonitor(std::uint32_t id);

    // The message being handled; null outside of any. A nested one hides the outer one until it returns, unless it is
    // of no kind.
    [[nodiscard]] static const Message* lastMessage();
    [[nodiscard]] static const ToolMessage* lastToolMessage();
    /// The host's record, also of a message that has no kind.
    [[nodiscard]] static void* lastRecord();
    [[nodiscard]] static bool isExecuting(MessageType type); ///< also as an outer one

  private:
    plugin::BasePlugin& frame_;
};

} // namespace kzo::core
