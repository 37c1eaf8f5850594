// The plug-in towards the host: what the framework registers for itself, and the registries. The phases of life and the
// client's callbacks are known above (core::Plugin).
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "core/values/FrameEnumerations.h"
#include "plugin/frame/Annotator.h"
#include "plugin/frame/BaseTool.h"
#include "plugin/frame/Dispatcher.h"
#include "plugin/frame/MenuItem.h"
#include "plugin/frame/Monitors.h"
#include "plugin/frame/Notifier.h"
#include "plugin/frame/ThirdPartyPlugin.h"
#include "plugin/frame/Timer.h"
#include "plugin/host/Registered.h"

struct AIPluginGroup;
struct SPPlugin;

namespace kzo::plugin {

/// Sets the way to the host for all calls that follow. A message that shows none leaves the one there is.
void attachHost(const void* record);
/// Gives every suite back. No call reaches the host from here on, until it is attached again.
void releaseHost();

/// The name that the host knows the plug-in of this message by; empty when it tells none.
[[nodiscard]] std::string pluginName(const void* record);

class BasePlugin {
  public:
    BasePlugin(SPPlugin* plugin, std::string name);
    ~BasePlugin();
    BasePlugin(const BasePlugin&) = delete;
    BasePlugin& operator=(const BasePlugin&) = delete;

    [[nodiscard]] SPPlugin* spPluginRef() const { return plugin_; }
    [[nodiscard]] const std::string& name() const { return name_; }
    void setName(const std::string& name); ///< also in the host's lists
    [[nodiscard]] Dispatcher& dispatcher() { return dispatcher_; }
    /// Our own place in the host's list of plug-ins.
    [[nodiscard]] ThirdPartyPlugin listing() const { return ThirdPartyPlugin(plugin_); }

    // Life
    /// Registers the framework's notifiers and messages. Returns 0, 1000 when the host refuses a notifier, 1001
    /// when it has no undo suite; a failure is logged.
    std::int32_t startup();
    /// Registers the kind of custom art that belongs to the plug-in, once.
    void addPluginGroup();
    void preShutdown(); ///< takes what is open off the screen
    /// Lets go of all that was registered, callbacks too, and gives every suite back. Returns 0.
    std::int32_t shutdown();

    // What the client has registered with the host: Notifier, MenuItem, Timer, Annotator, BaseTool
    template <class T> [[nodiscard]] Registered<T>& registered() { return std::get<Registered<T>>(registered_); }

    // Keys and mouse buttons
    [[nodiscard]] Monitors& monitors() { return monitors_; }

    // The client's callbacks
    core::CallbackSlot menuItemSelected; ///< after the chosen item's own
    core::CallbackSlot menuItemsUpdate;
    core::CallbackSlot brightnessAdjusted;

    // Dialogs of the whole plug-in; null until they are set
    std::shared_ptr<ModalDialog> aboutBox;
    std::shared_ptr<ModalDialog> prefsDialog;

    // Tools
    /// What the client wants done around an event, whichever tool it happens to.
    struct AroundTool {
        core::CallbackSlot before;
        core::CallbackSlot after;
    };
    [[nodiscard]] AroundTool& around(ToolEvent event) { return aroundTools_[static_cast<std::size_t>(event)]; }
    /// The tool of the last select, track or mouse message; null before the first.
    [[nodiscard]] std::shared_ptr<BaseTool> currentTool() const { return currentTool_.lock(); }

    [[nodiscard]] bool toolsSnapTo(core::ToolSnapping kind) const;
    void setToolsSnapTo(core::ToolSnapping kind, bool snap);
    bool setDrawingAxes(const std::vector<double>& degrees);

    // Undo
    static bool undo(); ///< false when the host refuses or `startup` has not run
    /// False for a value that is no context, and when the host refuses or `startup` has not run.
    static bool setUndoKind(core::UndoContext context);

  private:
    class ToolScope;

    [[nodiscard]] bool subscribe(const std::string& label, std::string_view type,
                                 const core::CallbackSlot& callback = {});
    void followMarks();
    void handleBrightness();
    void handleAbout();
    void handleKey();
    void handleButton();
    void handleDialogEvent();
    void handleNotifyMessage();
    void handleMenuChoice();
    void handleMenuUpdate() { menuItemsUpdate.run(); }
    void handleTimerMessage();
    void handleAnnotatorMessage();
    void handleToolMessage();

    SPPlugin* plugin_;
    std::string name_;
    Dispatcher dispatcher_;
    Registered<Notifier> ownNotifiers_; ///< the framework's, of which a client knows nothing
    std::tuple<Registered<Notifier>, Registered<MenuItem>, Registered<Timer>, Registered<Annotator>,
               Registered<BaseTool>>
        registered_;
    MarkFollower marks_;
    Monitors monitors_;
    std::array<AroundTool, kToolEventCount> aroundTools_;
    std::weak_ptr<BaseTool> currentTool_;
    AIPluginGroup* group_ = nullptr;
};

/// The one plug-in, as long as it exists; null before start-up and after shut-down. Handles register with it.
[[nodiscard]] BasePlugin* frame();

/// Makes an object of the host for the plug-in, and registers it; null without a plug-in, and when the host refuses. A
/// `Made` may be more than what it is registered as.
template <class Kind, class Made = Kind, class... Arguments>
[[nodiscard]] std::shared_ptr<Made> makeRegistered(const Arguments&... arguments) {
    if (!frame()) return nullptr;
    const auto made = std::make_shared<Made>(frame()->spPluginRef(), arguments...);
    return frame()->registered<Kind>().add(made) ? made : nullptr;
}

/// Has the host remove a registered object; nothing for null.
template <class Kind> void destroyRegistered(Kind* object) {
    if (object && frame()) frame()->registered<Kind>().destroy(*object);
}

/// Notes a line in the platform's log, under the plug-in's name if there is one.
void log(std::string_view line);

} // namespace kzo::plugin
