// The entry: every message from the host comes in here. Decides between the phases of life and dispatch; no exception
// leaves, and what client code throws is logged.
#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

#include "core/app/Plugin.h"
#include "core/frame/Dispatcher.h"
#include "plugin/frame/BasePlugin.h"
#include "plugin/frame/Messages.h"
#include "plugin/platform/Background.h"
#include "plugin/platform/Platform.h"
#include "utils/Scope.h"

namespace kzo::core {

namespace {

namespace message = plugin::message;

constexpr std::int32_t kDone = 0;
constexpr std::int32_t kSetupFailed = 0x53554645; // "SUFE"

/// What the host says, with texts that stay as they were on arrival: a host may use its own again.
class Arrived {
  public:
    Arrived(std::string_view caller, std::string_view selector, void* hostRecord)
        : record(hostRecord), row(messageRow(caller, selector)) {
        if (row) return;
        caller_ = caller;
        selector_ = selector;
    }

    [[nodiscard]] std::string_view caller() const { return row ? row->caller : caller_; }
    [[nodiscard]] std::string_view selector() const { return row ? row->selector : selector_; }
    [[nodiscard]] bool isStart() const { return caller() == message::kInterface && selector() == message::kStartup; }

    void* const record;
    const MessageRow* const row; ///< null for a pair that the table lacks

  private:
    std::string caller_;
    std::string selector_;
};

// What client code throws

void logThrown(const Arrived& arrived, std::string_view where, std::string_view what) noexcept {
    try {
        const std::string pair = std::string(arrived.caller()) + "/" + std::string(arrived.selector());
        plugin::attachHost(arrived.record); // a shut-down has released it
        plugin::log("exception in " + std::string(where) + " (" + pair + "): " + std::string(what));
        if (const Plugin* const object = Plugin::instance(); object && object->hasShutdown()) plugin::releaseHost();
    } catch (...) {
        // There is no memory left to say it in.
    }
}

/// Runs `work`, which leads to code of the client's. What that throws is logged, and the result is 0 then.
template <class Work> std::int32_t guarded(const Arrived& arrived, std::string_view where, Work work) noexcept {
    try {
        return work();
    } catch (const std::exception& error) {
        logThrown(arrived, where, error.what());
    } catch (...) {
        logThrown(arrived, where, "no std::exception");
    }
    return 0;
}

// Life

/// Counts nested entries. After shut-down the outermost one deletes the plug-in object, also when leaving by an
/// exception. Until that is done the messages that it leads to count as nested.
class EntryScope {
  public:
    explicit EntryScope(const Arrived& arrived) : arrived_(arrived) { ++depth_; }
    ~EntryScope() {
        Plugin* const object = Plugin::instance();
        if (depth_ == 1 && object && object->hasShutdown()) destroy(object);
        --depth_;
    }
    EntryScope(const EntryScope&) = delete;
    EntryScope& operator=(const EntryScope&) = delete;

    [[nodiscard]] static bool nested() { return depth_ > 1; }

  private:
    void destroy(Plugin* object) {
        guarded(arrived_, "pluginDestroy", [object] {
            pluginDestroy(object);
            return kDone;
        });
        delete object;
        plugin::releaseHost(); // whatever the client did last
    }

    const Arrived& arrived_;
    static inline int depth_ = 0;
};

bool settingUp = false;

/// Makes the plug-in object and lets the client set itself up. Returns 0 or why there is no plug-in; what was made of
/// it by then is shut down.
std::int32_t setUp(const Arrived& arrived) {
    plugin::choosePlatform();
    const std::string name = plugin::pluginName(arrived.record);
    SPPlugin* const self = plugin::MessageHead(arrived.record).self;
    if (name.empty()) {
        plugin::platform().log().write(
            self, name, "ERROR: Could not acquire plugin name during startup, which is required! Bailing out.");
        plugin::releaseHost();
        return kSetupFailed;
    }
    auto* const object = new Plugin(self, name); // deleted by the outermost entry after its shut-down
    const auto accepts = [&] {
        const utils::Temporary isSettingUp(settingUp, true);
        return std::int32_t{pluginSetup(object)};
    };
    const bool accepted = guarded(arrived, "pluginSetup", accepts) != 0;
    if (!accepted) object->__decline();
    return object->hasShutdown() ? kSetupFailed : kDone;
}

void handleLifecycle(Plugin& object, const Arrived& arrived) {
    if (arrived.selector() == message::kStartup) object.__startup();
    if (arrived.selector() == message::kShutdown) object.__shutdown();
    if (arrived.selector() == message::kAbout && object.dispatcher())
        object.dispatcher()->message(message::kInterface, message::kAbout, arrived.record);
}

/// Whether the event is one that drives a phase of life, which then has run.
bool handleApplicationEvent(Plugin& object, const Arrived& arrived) {
    const plugin::NotifyMessage event(arrived.record);
    const bool started = event.type == message::kApplicationStarted;
    const bool ends = event.type == message::kApplicationShutdown;
    if (started) object.__postStartup();
    if (ends) object.__preShutdown();
    return started || ends;
}

// The way in

std::int32_t dispatch(const Arrived& arrived) {
    const Plugin* const known = Plugin::instance();
    // One life ends before the next begins, and each begins once.
    const bool over = known && known->hasShutdown();
    const bool underWay = known ? over || settingUp || known->shuttingDown() : EntryScope::nested();
    if (arrived.isStart() && underWay) return kSetupFailed;
    if (over || (!known && !arrived.isStart())) return kDone; // nobody is there who would use the host
    plugin::attachHost(arrived.record);
    if (!known) {
        if (const std::int32_t failure = setUp(arrived)) return failure;
    }
    Plugin& object = *Plugin::instance();
    if (arrived.caller() == message::kAccess) return kDone;
    if (arrived.caller() == message::kInterface) {
        handleLifecycle(object, arrived);
        return kDone;
    }
    if (arrived.caller() == message::kNotifier && handleApplicationEvent(object, arrived)) return kDone;
    Dispatcher* const dispatcher = object.dispatcher();
    if (!dispatcher) return kDone; // shutting down
    const std::int32_t answer =
        arrived.row ? dispatcher->message(*arrived.row, arrived.record)
                    : object.impl().dispatcher().message(arrived.caller(), arrived.selector(), arrived.record);
    // The layer check's remark is the one answer that the host gets to see.
    return arrived.caller() == message::kTool && answer != plugin::Dispatcher::kNotHandled ? answer : kDone;
}

/// Runs what waits for the end of the outermost message, unless that has shut the plug-in down.
std::int32_t handle(const Arrived& arrived) {
    const std::int32_t answer = dispatch(arrived);
    const Plugin* const object = Plugin::instance();
    if (!EntryScope::nested() && object && !object->hasShutdown()) plugin::background::messageEnded();
    return answer;
}

} // namespace

} // namespace kzo::core

extern "C" __attribute__((visibility("default"))) std::int32_t PluginMain(const char* caller, const char* selector,
                                                                          void* message) {
    using namespace kzo::core;
    if (!caller || !selector || !message) return kDone;
    try {
        const Arrived arrived(caller, selector, message);
        const EntryScope scope(arrived);
        return guarded(arrived, "a callback", [&] { return handle(arrived); });
    } catch (...) {
        return kDone; // no memory for the texts
    }
}
