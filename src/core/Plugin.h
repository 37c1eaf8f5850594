// The framework's single plug-in object: its life, the callbacks of the client, and what belongs to the whole plug-in.
// The client supplies pluginSetup and pluginDestroy.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "core/Callback.h"
#include "core/Enumerations.h"

struct SPPlugin;

namespace kzo::plugin {
class BasePlugin;
}

namespace kzo::core {

class Dispatcher;
class Plugin;
class Tool;

/// Supplied by the client: called once, right after the plug-in object is made. False declines to start.
bool pluginSetup(Plugin* plugin);
/// Supplied by the client: called once, after shut-down.
void pluginDestroy(Plugin* plugin);

class Plugin {
  public:
    Plugin(SPPlugin* plugin, const std::string& name);
    ~Plugin();
    Plugin(const Plugin&) = delete;
    Plugin& operator=(const Plugin&) = delete;

    /// The one plug-in object, or null before start-up and after shut-down.
    [[nodiscard]] static Plugin* instance();

    // Identity
    [[nodiscard]] SPPlugin* spPluginRef() const;
    [[nodiscard]] const std::string& name() const;
    void setName(const std::string& name);

    // State of life. The first of a pair holds while the phase's work runs, the second from its end on.
    [[nodiscard]] bool startingUp() const { return startup_.running; }
    [[nodiscard]] bool hasStartedUp() const { return startup_.finished; }
    [[nodiscard]] bool postStartingUp() const { return postStartup_.running; }
    [[nodiscard]] bool hasPostStartedUp() const { return postStartup_.finished; }
    [[nodiscard]] bool preShuttingDown() const { return preShutdown_.running; }
    [[nodiscard]] bool hasPreShutdown() const { return preShutdown_.finished; }
    [[nodiscard]] bool shuttingDown() const { return shutdown_.running; }
    [[nodiscard]] bool hasShutdown() const { return shutdown_.finished; }

    // Callbacks of life. On the way up the framework's own work comes first, on the way down the client's.
    [[nodiscard]] Callback* startupCallback() const { return startupCallback_.get(); }
    void setStartupCallback(const Callback& callback) { startupCallback_.set(callback); }
    [[nodiscard]] Callback* postStartupCallback() const { return postStartupCallback_.get(); }
    void setPostStartupCallback(const Callback& callback) { postStartupCallback_.set(callback); }
    [[nodiscard]] Callback* preShutdownCallback() const { return preShutdownCallback_.get(); }
    void setPreShutdownCallback(const Callback& callback) { preShutdownCallback_.set(callback); }
    [[nodiscard]] Callback* shutdownCallback() const { return shutdownCallback_.get(); }
    void setShutdownCallback(const Callback& callback) { shutdownCallback_.set(callback); }

    // Parts
    [[nodiscard]] Dispatcher* dispatcher() const { return dispatcher_.get(); }
    /// The tool of the last select, track or mouse message; an empty handle before the first.
    [[nodiscard]] Tool currentTool() const;
    /// What becomes of the changes of the message being handled. False when the host refuses.
    bool setUndoKind(UndoContext context);

    // For the entry: each phase runs once, a second call does nothing
    /// 0, or the number of the framework's failure: 1000, 1010.
    std::int32_t __startup();
    void __postStartup();
    void __preShutdown();
    /// 4000 when the framework's own shut-down failed, else 0.
    std::int32_t __shutdown();

    [[nodiscard]] plugin::BasePlugin& impl() const { return *impl_; }

  private:
    struct Phase {
        bool running = false;
        bool finished = false;

        /// Runs the phase's work between the two flags, unless it has run.
        template <class Work> void run(Work work);
    };

    Phase startup_;
    Phase postStartup_;
    Phase preShutdown_;
    Phase shutdown_;
    CallbackSlot startupCallback_;
    CallbackSlot postStartupCallback_;
    CallbackSlot preShutdownCallback_;
    CallbackSlot shutdownCallback_;
    std::unique_ptr<plugin::BasePlugin> impl_;
    std::unique_ptr<Dispatcher> dispatcher_;

    static Plugin* instance_;
};

} // namespace kzo::core
