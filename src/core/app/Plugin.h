// The framework's single plug-in object: its life, the callbacks of the client, and what belongs to the whole plug-in.
// The client supplies pluginSetup and pluginDestroy.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "core/dialogs/ModalDialog.h"
#include "core/frame/MenuItem.h"
#include "core/values/Angle.h"
#include "core/values/Callback.h"
#include "core/values/FrameEnumerations.h"

struct SPPlugin;

namespace kzo::plugin {
class BasePlugin;
enum class ToolEvent : std::uint8_t;
} // namespace kzo::plugin

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
    using Options = PluginOptions;

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
    [[nodiscard]] std::string fileName() const; ///< of the bundle
    [[nodiscard]] std::string filePath() const; ///< of the bundle, the file name included
    [[nodiscard]] void* platformPlugin() const; ///< the platform's own reference to the loaded library, or null
    [[nodiscard]] Options options() const;
    void setOptions(Options options);
    /// The bytes of a resource of the bundle, say `("png", 17000)`; none when there is no such resource.
    [[nodiscard]] std::vector<std::uint8_t> resourceData(const std::string& type, std::int16_t number) const;

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

    // Callbacks of menus: after the chosen item's own, and when the items are to be brought up to date
    [[nodiscard]] Callback* menuItemSelectedCallback() const;
    void setMenuItemSelectedCallback(const Callback& callback);
    [[nodiscard]] Callback* menuItemsUpdateCallback() const;
    void setMenuItemsUpdateCallback(const Callback& callback);

    // Callback of the interface: its brightness has changed
    [[nodiscard]] Callback* brightnessAdjustedCallback() const;
    void setBrightnessAdjustedCallback(const Callback& callback);

    // Callbacks around the events of tools, whichever tool it is: before its own callback, and after it
    [[nodiscard]] Callback* toolPreSelectedCallback() const;
    void setToolPreSelectedCallback(const Callback& callback);
    [[nodiscard]] Callback* toolPostSelectedCallback() const;
    void setToolPostSelectedCallback(const Callback& callback);
    [[nodiscard]] Callback* toolPreDeselectedCallback() const;
    void setToolPreDeselectedCallback(const Callback& callback);
    [[nodiscard]] Callback* toolPostDeselectedCallback() const;
    void setToolPostDeselectedCallback(const Callback& callback);
    [[nodiscard]] Callback* toolPreReselectedCallback() const;
    void setToolPreReselectedCallback(const Callback& callback);
    [[nodiscard]] Callback* toolPostReselectedCallback() const;
    void setToolPostReselectedCallback(const Callback& callback);
    [[nodiscard]] Callback* toolPreTrackedCallback() const;
    void setToolPreTrackedCallback(const Callback& callback);
    [[nodiscard]] Callback* toolPostTrackedCallback() const;
    void setToolPostTrackedCallback(const Callback& callback);
    [[nodiscard]] Callback* toolPreMouseDownCallback() const;
    void setToolPreMouseDownCallback(const Callback& callback);
    [[nodiscard]] Callback* toolPostMouseDownCallback() const;
    void setToolPostMouseDownCallback(const Callback& callback);
    [[nodiscard]] Callback* toolPreDraggedCallback() const;
    void setToolPreDraggedCallback(const Callback& callback);
    [[nodiscard]] Callback* toolPostDraggedCallback() const;
    void setToolPostDraggedCallback(const Callback& callback);
    [[nodiscard]] Callback* toolPreMouseUpCallback() const;
    void setToolPreMouseUpCallback(const Callback& callback);
    [[nodiscard]] Callback* toolPostMouseUpCallback() const;
    void setToolPostMouseUpCallback(const Callback& callback);
    [[nodiscard]] Callback* toolPreDiameterDecreasedCallback() const;
    void setToolPreDiameterDecreasedCallback(const Callback& callback);
    [[nodiscard]] Callback* toolPostDiameterDecreasedCallback() const;
    void setToolPostDiameterDecreasedCallback(const Callback& callback);
    [[nodiscard]] Callback* toolPreDiameterIncreasedCallback() const;
    void setToolPreDiameterIncreasedCallback(const Callback& callback);
    [[nodiscard]] Callback* toolPostDiameterIncreasedCallback() const;
    void setToolPostDiameterIncreasedCallback(const Callback& callback);
    [[nodiscard]] Callback* toolPreEditedCallback() const;
    void setToolPreEditedCallback(const Callback& callback);
    [[nodiscard]] Callback* toolPostEditedCallback() const;
    void setToolPostEditedCallback(const Callback& callback);

    // Parts
    [[nodiscard]] Dispatcher* dispatcher() const { return dispatcher_.get(); }
    /// The tool of the last select, track or mouse message; an empty handle before the first.
    [[nodiscard]] Tool currentTool() const;
    /// Empty until they are set. The host's message "About" shows the about box; both are dismissed before the
    /// shut-down and destroyed after the client's share of it.
    [[nodiscard]] ModalDialog aboutBox() const;
    void setAboutBox(const ModalDialog& dialog);
    [[nodiscard]] ModalDialog prefsDialog() const;
    void setPrefsDialog(const ModalDialog& dialog);
    /// The items that lead to the about box and to the preferences; empty until they are set.
    [[nodiscard]] const MenuItem& aboutMenuItem() const { return aboutMenuItem_; }
    void setAboutMenuItem(const MenuItem& item) { aboutMenuItem_ = item; }
    [[nodiscard]] const MenuItem& prefsMenuItem() const { return prefsMenuItem_; }
    void setPrefsMenuItem(const MenuItem& item) { prefsMenuItem_ = item; }

    // Undo; both false when the host refuses, before start-up and after shut-down
    /// What becomes of the changes of the message being handled.
    static bool setUndoKind(UndoContext context);
    static bool undo(); ///< takes back what the message being handled has changed so far

    // Snapping: what the locations of tool messages snap to, for all our tools; nothing at first
    [[nodiscard]] bool toolsSnapToArt() const;
    void setToolsSnapToArt(bool snap);
    [[nodiscard]] bool toolsSnapToArtBounds() const;
    void setToolsSnapToArtBounds(bool snap);
    [[nodiscard]] bool toolsSnapToArtboard() const;
    void setToolsSnapToArtboard(bool snap);
    [[nodiscard]] bool toolsSnapToGrids() const;
    void setToolsSnapToGrids(bool snap);

    /// Tells the host which directions our tools draw along, for its grid. False when it has none along axes.
    bool setDrawingAxes(const std::vector<Angle>& axes);

    // For the entry: each phase runs once, a second call does nothing
    /// 0, or the number of the framework's failure: 1000, 1010.
    std::int32_t __startup();
    void __postStartup();
    void __preShutdown();
    /// 4000 when the framework's own shut-down failed, else 0.
    std::int32_t __shutdown();
    /// The framework's own shut-down alone, of a plug-in that has declined to start.
    void __decline();

    [[nodiscard]] plugin::BasePlugin& impl() const { return *impl_; }

  private:
    [[nodiscard]] std::int32_t shutDownOwn();
    [[nodiscard]] Callback* before(plugin::ToolEvent event) const;
    [[nodiscard]] Callback* after(plugin::ToolEvent event) const;
    void setBefore(plugin::ToolEvent event, const Callback& callback);
    void setAfter(plugin::ToolEvent event, const Callback& callback);

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
    MenuItem aboutMenuItem_;
    MenuItem prefsMenuItem_;
    std::unique_ptr<plugin::BasePlugin> impl_;
    std::unique_ptr<Dispatcher> dispatcher_;

    static Plugin* instance_;
};

} // namespace kzo::core
