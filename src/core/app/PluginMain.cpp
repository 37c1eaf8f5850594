// The entry: every message from the host comes in here. Decides between the phases of life and dispatch; no exception
// leaves.
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "core/app/Plugin.h"
#include "core/frame/Dispatcher.h"
#include "plugin/frame/BasePlugin.h"
#include "plugin/frame/Messages.h"
#include "plugin/host/HostMonitor.h"
#include "plugin/platform/Platform.h"

namespace kzo::core {

namespace {

using namespace plugin::message;

constexpr std::int32_t done = 0;
constexpr std::int32_t setupFailed = 0x53554645; // "SUFE"

void destroy(Plugin* plugin) {
    try {
        pluginDestroy(plugin);
    } catch (...) {
        // The rest goes all the same.
    }
    delete plugin;
    plugin::leaveHost(); // whatever the client did last
}

/// One message on its way through the entry. The plug-in object goes when the outermost is through, since a shut-down
/// may come while another message is being handled; it goes also when its last work throws, for nothing is sent after
/// that.
class Passage {
  public:
    Passage() { ++depth_; }
    ~Passage() {
        Plugin* const plugin = Plugin::instance();
        if (--depth_ == 0 && plugin && plugin->hasShutdown()) destroy(plugin);
    }
    Passage(const Passage&) = delete;
    Passage& operator=(const Passage&) = delete;

  private:
    static inline int depth_ = 0;
};

/// Makes the plug-in object and lets the client set itself up. Answers 0 or why there is no plug-in.
std::int32_t setUp(void* record) {
    const std::string name = plugin::pluginName(record);
    if (name.empty()) {
        plugin::platform().log("ERROR: Could not acquire plugin name during startup, which is required! Bailing out.");
        plugin::leaveHost();
        return setupFailed;
    }
    auto made = std::make_unique<Plugin>(plugin::MessageHead(record).self, name);
    bool accepted = false;
    try {
        accepted = pluginSetup(made.get());
    } catch (...) {
        // A client that fails half-way has declined.
    }
    if (!accepted) {
        destroy(made.release());
        return setupFailed;
    }
    static_cast<void>(made.release()); // lives until the shut-down message
    return done;
}

std::int32_t life(Plugin* plugin, std::string_view selector, void* record) {
    if (selector == startup) plugin->__startup();
    if (selector == shutdown) plugin->__shutdown();
    if (selector == about && plugin->dispatcher()) plugin->dispatcher()->message(interface, about, record);
    return done;
}

std::int32_t route(std::string_view caller, std::string_view selector, void* record) {
    const Passage passage;
    if (Plugin::instance() && Plugin::instance()->hasShutdown()) return done; // only not deleted yet
    const bool begins = !Plugin::instance();
    if (begins && (caller != interface || selector != startup)) return done; // nobody is there who would use the host
    plugin::useHost(record);
    if (begins) {
        if (const std::int32_t failure = setUp(record)) return failure;
    }
    Plugin* const plugin = Plugin::instance();
    if (caller == access) return done;
    if (caller == interface) return life(plugin, selector, record);
    if (caller == notifier) {
        const plugin::NotifyMessage event(record);
        if (event.type == applicationStarted) return plugin->__postStartup(), done;
        if (event.type == applicationShutdown) return plugin->__preShutdown(), done;
    }
    if (!plugin->dispatcher()) return done; // shutting down
    const MessageRow* const row = messageRow(caller, selector);
    Dispatcher& dispatcher = *plugin->dispatcher();
    const std::int32_t answer =
        row ? dispatcher.message(row->type, record) : dispatcher.message(caller, selector, record);
    // The layer check's remark is the one answer that the host gets to see.
    return caller == tool && answer != plugin::Dispatcher::notHandled ? answer : done;
}

} // namespace

} // namespace kzo::core

extern "C" __attribute__((visibility("default"))) std::int32_t PluginMain(const char* caller, const char* selector,
                                                                          void* message) {
    if (!caller || !selector || !message) return 0;
    try {
        return kzo::core::route(caller, selector, message);
    } catch (...) {
        return 0;
    }
}
