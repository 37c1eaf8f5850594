// The main object's life.
#include "tool/Plugin.h"

#include "maker/Globals.h"

namespace ortho {

namespace {

constexpr const char* kProductName = "Ortholine";
constexpr const char* kLineToolTitle = "Isometric Line Tool";
constexpr std::int16_t kLineToolLightIcon = 17000;
constexpr std::int16_t kLineToolDarkIcon = 17002;
constexpr const char* kMoverToolTitle = "Isometric Mover Tool";
constexpr std::int16_t kMoverToolLightIcon = 17010;
constexpr std::int16_t kMoverToolDarkIcon = 17012;
constexpr std::int16_t kNewGroup = -2;

using Bound = kzo::core::__Callback<Plugin>;

} // namespace

Plugin* Plugin::create(kzo::core::Plugin* corePlugin) {
    instance_.reset(new Plugin(corePlugin));
    return instance();
}

Plugin::Plugin(kzo::core::Plugin* corePlugin) : corePlugin_(corePlugin) {
    corePlugin->setName(kProductName);
    vlGlobals::create();
    prefs_ = std::make_unique<vl::vlPrefs>();
    prefs_->init();
    corePlugin->setStartupCallback(Bound(this, &Plugin::startup));
    corePlugin->setPostStartupCallback(Bound(this, &Plugin::postStartup));
    corePlugin->setPreShutdownCallback(Bound(this, &Plugin::preShutdown));
    corePlugin->setShutdownCallback(Bound(this, &Plugin::shutdown));
}

Plugin::~Plugin() { vlGlobals::destroy(); }

void Plugin::startup() {
    using kzo::core::ToolOptions;
    prefs_->startup();
    lineTool_ = kzo::core::Tool(kNewGroup, kNewGroup, kLineToolTitle, kLineToolTitle, kLineToolLightIcon,
                                kLineToolDarkIcon, ToolOptions::TrackCursor | ToolOptions::BufferedDragging);
    lineTool_.setSelectionCallback(Bound(this, &Plugin::__toolSelectedCB));
    lineTool_.setReselectionCallback(Bound(this, &Plugin::__toolSelectedCB));
    lineTool_.setDeselectionCallback(Bound(this, &Plugin::__toolDeselectedCB));
    lineTool_.setTrackCallback(Bound(this, &Plugin::__toolMouseMovedCB));
    lineTool_.setMouseDownCallback(Bound(this, &Plugin::__toolMouseDownCB));
    lineTool_.setDragCallback(Bound(this, &Plugin::__toolDragCB));
    lineTool_.setMouseUpCallback(Bound(this, &Plugin::__toolMouseUpCB));
    moverTool_ = kzo::core::Tool(lineTool_, &lineTool_, kMoverToolTitle, kMoverToolTitle, kMoverToolLightIcon,
                                 kMoverToolDarkIcon, ToolOptions::TrackCursor | ToolOptions::BufferedDragging);
    moverTool_.setSelectionCallback(Bound(this, &Plugin::__toolSelectedCB));
    moverTool_.setReselectionCallback(Bound(this, &Plugin::__toolSelectedCB));
    moverTool_.setDeselectionCallback(Bound(this, &Plugin::__toolDeselectedCB));
    moverTool_.setTrackCallback(Bound(this, &Plugin::__tool2MouseMovedCB));
    moverTool_.setMouseDownCallback(Bound(this, &Plugin::__tool2MouseDownCB));
    moverTool_.setDragCallback(Bound(this, &Plugin::__tool2DragCB));
    moverTool_.setMouseUpCallback(Bound(this, &Plugin::__tool2MouseUpCB));
}

void Plugin::postStartup() { prefs_->postStartup(); }
void Plugin::preShutdown() { prefs_->preShutdown(); }

void Plugin::shutdown() {
    prefs_->shutdown();
    prefs_.reset();
    lineTool_.destroy();
    moverTool_.destroy();
}

} // namespace ortho

bool kzo::core::pluginSetup(Plugin* plugin) { return ortho::Plugin::create(plugin) != nullptr; }

void kzo::core::pluginDestroy(Plugin*) { ortho::Plugin::destroy(); }
