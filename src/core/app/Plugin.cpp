// The phases of life over the implementation's own.
#include "core/app/Plugin.h"

#include "core/app/Illustrator.h"
#include "core/dialogs/Alerts.h"
#include "core/frame/Dispatcher.h"
#include "core/frame/Tool.h"
#include "plugin/dialogs/ModalDialog.h"
#include "plugin/frame/BasePlugin.h"
#include "utils/Scope.h"

namespace kzo::core {

using plugin::ToolEvent;

Plugin* Plugin::instance_ = nullptr;

namespace {

constexpr std::int32_t kFirstStatus = 1000;
constexpr std::int32_t kLastStatus = 1009;
constexpr std::int32_t kShutdownFailed = 4000;

/// The framework's own failures are numbered in ones inside and in tens outside.
std::int32_t phaseAnswer(std::int32_t status) {
    return status >= kFirstStatus && status <= kLastStatus ? kFirstStatus + (status - kFirstStatus) * 10 : 0;
}

} // namespace

Plugin::Plugin(SPPlugin* plugin, const std::string& name)
    : impl_(std::make_unique<plugin::BasePlugin>(plugin, name)), dispatcher_(std::make_unique<Dispatcher>(*impl_)) {
    instance_ = this;
}

Plugin::~Plugin() { instance_ = nullptr; }

Plugin* Plugin::instance() { return instance_; }

// Identity

SPPlugin* Plugin::spPluginRef() const { return impl_->spPluginRef(); }
const std::string& Plugin::name() const { return impl_->name(); }
void Plugin::setName(const std::string& name) { impl_->setName(name); }

std::string Plugin::fileName() const { return impl_->listing().fileName(); }
std::string Plugin::filePath() const { return impl_->listing().filePath(); }
void* Plugin::platformPlugin() const { return impl_->listing().platformPlugin(); }
PluginOptions Plugin::options() const { return impl_->listing().options(); }
void Plugin::setOptions(PluginOptions options) { impl_->listing().setOptions(options); }
std::vector<std::uint8_t> Plugin::resourceData(const std::string& type, std::int16_t number) const {
    return impl_->listing().resourceData(type, number);
}

// Callbacks of menus

Callback* Plugin::menuItemSelectedCallback() const { return impl_->menuItemSelected.get(); }
void Plugin::setMenuItemSelectedCallback(const Callback& callback) { impl_->menuItemSelected.set(callback); }
Callback* Plugin::menuItemsUpdateCallback() const { return impl_->menuItemsUpdate.get(); }
void Plugin::setMenuItemsUpdateCallback(const Callback& callback) { impl_->menuItemsUpdate.set(callback); }

// Callback of the interface

Callback* Plugin::brightnessAdjustedCallback() const { return impl_->brightnessAdjusted.get(); }
void Plugin::setBrightnessAdjustedCallback(const Callback& callback) { impl_->brightnessAdjusted.set(callback); }

// Callbacks around the events of tools

Callback* Plugin::before(ToolEvent event) const { return impl_->around(event).before.get(); }
Callback* Plugin::after(ToolEvent event) const { return impl_->around(event).after.get(); }
void Plugin::setBefore(ToolEvent event, const Callback& callback) { impl_->around(event).before.set(callback); }
void Plugin::setAfter(ToolEvent event, const Callback& callback) { impl_->around(event).after.set(callback); }

Callback* Plugin::toolPreSelectedCallback() const { return before(ToolEvent::Select); }
void Plugin::setToolPreSelectedCallback(const Callback& callback) { setBefore(ToolEvent::Select, callback); }
Callback* Plugin::toolPostSelectedCallback() const { return after(ToolEvent::Select); }
void Plugin::setToolPostSelectedCallback(const Callback& callback) { setAfter(ToolEvent::Select, callback); }
Callback* Plugin::toolPreDeselectedCallback() const { return before(ToolEvent::Deselect); }
void Plugin::setToolPreDeselectedCallback(const Callback& callback) { setBefore(ToolEvent::Deselect, callback); }
Callback* Plugin::toolPostDeselectedCallback() const { return after(ToolEvent::Deselect); }
void Plugin::setToolPostDeselectedCallback(const Callback& callback) { setAfter(ToolEvent::Deselect, callback); }
Callback* Plugin::toolPreReselectedCallback() const { return before(ToolEvent::Reselect); }
void Plugin::setToolPreReselectedCallback(const Callback& callback) { setBefore(ToolEvent::Reselect, callback); }
Callback* Plugin::toolPostReselectedCallback() const { return after(ToolEvent::Reselect); }
void Plugin::setToolPostReselectedCallback(const Callback& callback) { setAfter(ToolEvent::Reselect, callback); }
Callback* Plugin::toolPreTrackedCallback() const { return before(ToolEvent::Track); }
void Plugin::setToolPreTrackedCallback(const Callback& callback) { setBefore(ToolEvent::Track, callback); }
Callback* Plugin::toolPostTrackedCallback() const { return after(ToolEvent::Track); }
void Plugin::setToolPostTrackedCallback(const Callback& callback) { setAfter(ToolEvent::Track, callback); }
Callback* Plugin::toolPreMouseDownCallback() const { return before(ToolEvent::MouseDown); }
void Plugin::setToolPreMouseDownCallback(const Callback& callback) { setBefore(ToolEvent::MouseDown, callback); }
Callback* Plugin::toolPostMouseDownCallback() const { return after(ToolEvent::MouseDown); }
void Plugin::setToolPostMouseDownCallback(const Callback& callback) { setAfter(ToolEvent::MouseDown, callback); }
Callback* Plugin::toolPreDraggedCallback() const { return before(ToolEvent::Drag); }
void Plugin::setToolPreDraggedCallback(const Callback& callback) { setBefore(ToolEvent::Drag, callback); }
Callback* Plugin::toolPostDraggedCallback() const { return after(ToolEvent::Drag); }
void Plugin::setToolPostDraggedCallback(const Callback& callback) { setAfter(ToolEvent::Drag, callback); }
Callback* Plugin::toolPreMouseUpCallback() const { return before(ToolEvent::MouseUp); }
void Plugin::setToolPreMouseUpCallback(const Callback& callback) { setBefore(ToolEvent::MouseUp, callback); }
Callback* Plugin::toolPostMouseUpCallback() const { return after(ToolEvent::MouseUp); }
void Plugin::setToolPostMouseUpCallback(const Callback& callback) { setAfter(ToolEvent::MouseUp, callback); }
Callback* Plugin::toolPreDiameterDecreasedCallback() const { return before(ToolEvent::DecreaseDiameter); }
void Plugin::setToolPreDiameterDecreasedCallback(const Callback& callback) {
    setBefore(ToolEvent::DecreaseDiameter, callback);
}
Callback* Plugin::toolPostDiameterDecreasedCallback() const { return after(ToolEvent::DecreaseDiameter); }
void Plugin::setToolPostDiameterDecreasedCallback(const Callback& callback) {
    setAfter(ToolEvent::DecreaseDiameter, callback);
}
Callback* Plugin::toolPreDiameterIncreasedCallback() const { return before(ToolEvent::IncreaseDiameter); }
void Plugin::setToolPreDiameterIncreasedCallback(const Callback& callback) {
    setBefore(ToolEvent::IncreaseDiameter, callback);
}
Callback* Plugin::toolPostDiameterIncreasedCallback() const { return after(ToolEvent::IncreaseDiameter); }
void Plugin::setToolPostDiameterIncreasedCallback(const Callback& callback) {
    setAfter(ToolEvent::IncreaseDiameter, callback);
}
Callback* Plugin::toolPreEditedCallback() const { return before(ToolEvent::Edit); }
void Plugin::setToolPreEditedCallback(const Callback& callback) { setBefore(ToolEvent::Edit, callback); }
Callback* Plugin::toolPostEditedCallback() const { return after(ToolEvent::Edit); }
void Plugin::setToolPostEditedCallback(const Callback& callback) { setAfter(ToolEvent::Edit, callback); }

// Parts

Tool Plugin::currentTool() const { return Tool(impl_->currentTool()); }

ModalDialog Plugin::aboutBox() const { return ModalDialog(impl_->aboutBox); }
void Plugin::setAboutBox(const ModalDialog& dialog) { impl_->aboutBox = dialog.shared(); }
ModalDialog Plugin::prefsDialog() const { return ModalDialog(impl_->prefsDialog); }
void Plugin::setPrefsDialog(const ModalDialog& dialog) { impl_->prefsDialog = dialog.shared(); }

// Undo

bool Plugin::setUndoKind(UndoContext context) { return plugin::BasePlugin::setUndoKind(context); }
bool Plugin::undo() { return plugin::BasePlugin::undo(); }

// Snapping

bool Plugin::toolsSnapToArt() const { return impl_->toolsSnapTo(ToolSnapping::Art); }
void Plugin::setToolsSnapToArt(bool snap) { impl_->setToolsSnapTo(ToolSnapping::Art, snap); }
bool Plugin::toolsSnapToArtBounds() const { return impl_->toolsSnapTo(ToolSnapping::ArtBounds); }
void Plugin::setToolsSnapToArtBounds(bool snap) { impl_->setToolsSnapTo(ToolSnapping::ArtBounds, snap); }
bool Plugin::toolsSnapToArtboard() const { return impl_->toolsSnapTo(ToolSnapping::Artboard); }
void Plugin::setToolsSnapToArtboard(bool snap) { impl_->setToolsSnapTo(ToolSnapping::Artboard, snap); }
bool Plugin::toolsSnapToGrids() const { return impl_->toolsSnapTo(ToolSnapping::Grids); }
void Plugin::setToolsSnapToGrids(bool snap) { impl_->setToolsSnapTo(ToolSnapping::Grids, snap); }

bool Plugin::setDrawingAxes(const std::vector<Angle>& axes) {
    std::vector<double> degrees;
    for (const Angle& axis : axes) degrees.push_back(axis.asDegrees());
    return impl_->setDrawingAxes(degrees);
}

// Phases

template <class Work> void Plugin::Phase::run(Work work) {
    if (running || finished) return;
    running = true;
    // Also on the way out by an exception: a phase is never begun twice.
    const utils::Finally ending([this] { *this = {.running = false, .finished = true}; });
    work();
}

std::int32_t Plugin::__startup() {
    std::int32_t status = 0;
    startup_.run([&] {
        status = impl_->startup();
        impl_->addPluginGroup();
        startupCallback_.run();
    });
    return phaseAnswer(status);
}

void Plugin::__postStartup() {
    postStartup_.run([&] { postStartupCallback_.run(); });
}

void Plugin::__preShutdown() {
    preShutdown_.run([&] {
        const utils::Finally own([&] { impl_->preShutdown(); });
        preShutdownCallback_.run();
    });
}

std::int32_t Plugin::__shutdown() {
    std::int32_t status = 0;
    shutdown_.run([&] {
        // The framework's own shut-down follows also when the client's work throws.
        const utils::Finally own([&] { status = shutDownOwn(); });
        shutdownCallback_.run();
    });
    return status == kShutdownFailed ? kShutdownFailed : 0;
}

void Plugin::__decline() {
    shutdown_.run([this] { static_cast<void>(shutDownOwn()); });
}

std::int32_t Plugin::shutDownOwn() {
    dispatcher_.reset();
    Illustrator::__destroy();
    alerts::setState(true);
    return impl_->shutdown();
}

} // namespace kzo::core
