// The main object's life.
#include "tool/Plugin.h"

#include "maker/Globals.h"
#include "maker/Product.h"
#include "maker/ToolSet.h"

namespace ortho {

namespace {

constexpr const char* kLineToolTitle = "Isometric Line Tool";
constexpr std::int16_t kLineToolLightIcon = 17000;
constexpr std::int16_t kLineToolDarkIcon = 17002;
constexpr const char* kMoverToolTitle = "Isometric Mover Tool";
constexpr std::int16_t kMoverToolLightIcon = 17010;
constexpr std::int16_t kMoverToolDarkIcon = 17012;
constexpr auto kToolOptions = kzo::core::ToolOptions::TrackCursor | kzo::core::ToolOptions::BufferedDragging;

using Bound = kzo::core::__Callback<Plugin>;

} // namespace

Plugin* Plugin::create(kzo::core::Plugin* corePlugin) {
    instance_.reset(new Plugin(corePlugin));
    return instance();
}

Plugin::Plugin(kzo::core::Plugin* corePlugin) : corePlugin_(corePlugin) {
    corePlugin->setName(vl::product::kName);
    vlGlobals::create();
    vlGlobals::instance()->init(vl::product::kName, "");
    if (!vlGlobals::instance()->mayLoad()) return;
    prefs_ = std::make_unique<vl::vlPrefs>();
    prefs_->init();
    about_ = std::make_unique<vl::About>(*prefs_);
    corePlugin->setStartupCallback(Bound(this, &Plugin::startup));
    corePlugin->setPostStartupCallback(Bound(this, &Plugin::postStartup));
    corePlugin->setPreShutdownCallback(Bound(this, &Plugin::preShutdown));
    corePlugin->setShutdownCallback(Bound(this, &Plugin::shutdown));
}

Plugin::~Plugin() { vlGlobals::destroy(); }

void Plugin::startup() {
    prefs_->startup();
    about_->startup();
    makeTools();
    lineTool_.setSelectionCallback(Bound(this, &Plugin::__toolSelectedCB));
    lineTool_.setReselectionCallback(Bound(this, &Plugin::__toolSelectedCB));
    lineTool_.setDeselectionCallback(Bound(this, &Plugin::__toolDeselectedCB));
    lineTool_.setTrackCallback(Bound(this, &Plugin::__toolMouseMovedCB));
    lineTool_.setMouseDownCallback(Bound(this, &Plugin::__toolMouseDownCB));
    lineTool_.setDragCallback(Bound(this, &Plugin::__toolDragCB));
    lineTool_.setMouseUpCallback(Bound(this, &Plugin::__toolMouseUpCB));
    moverTool_.setSelectionCallback(Bound(this, &Plugin::__toolSelectedCB));
    moverTool_.setReselectionCallback(Bound(this, &Plugin::__toolSelectedCB));
    moverTool_.setDeselectionCallback(Bound(this, &Plugin::__toolDeselectedCB));
    moverTool_.setTrackCallback(Bound(this, &Plugin::__tool2MouseMovedCB));
    moverTool_.setMouseDownCallback(Bound(this, &Plugin::__tool2MouseDownCB));
    moverTool_.setDragCallback(Bound(this, &Plugin::__tool2DragCB));
    moverTool_.setMouseUpCallback(Bound(this, &Plugin::__tool2MouseUpCB));
}

/// The line tool goes beside the tools of the maker's plug-ins that started before, the mover into the line tool's
/// slot.
void Plugin::makeTools() {
    using kzo::core::Tool;
    using vl::toolSet::kNone;
    const auto lineTool = [](std::int16_t group) {
        return Tool(group, kNone, kLineToolTitle, kLineToolTitle, kLineToolLightIcon, kLineToolDarkIcon, kToolOptions);
    };
    std::int16_t base = vl::toolSet::getBaseTool();
    lineTool_ = lineTool(base);
    if (lineTool_.isEmpty() && base != kNone) { // the number is no tool's: it is left from a host that broke down
        base = kNone;
        lineTool_ = lineTool(kNone);
    }
    moverTool_ = Tool(lineTool_, &lineTool_, kMoverToolTitle, kMoverToolTitle, kMoverToolLightIcon, kMoverToolDarkIcon,
                      kToolOptions);
    if (base == kNone && !lineTool_.isEmpty()) vl::toolSet::setBaseTool(lineTool_.number());
}

void Plugin::postStartup() {
    about_->postStartup();
    prefs_->postStartup();
    vl::toolSet::clearBaseTool(); // whoever starts from now on has another run of the host
    attachPrefsDialog(lineTool_);
    attachPrefsDialog(moverTool_);
    vlGlobals::instance()->tellAxes();
}

/// A double-click on the tool shows the dialog, brought up to date.
void Plugin::attachPrefsDialog(kzo::core::Tool& tool) {
    tool.setPrefsDialog(prefs_->prefsDialog());
    tool.setAutoShowPrefsDialog(true);
    tool.setEditCallback(kzo::core::__Callback<vl::vlPrefs>(prefs_.get(), &vl::vlPrefs::updatePrefsDlg));
}

void Plugin::preShutdown() {
    about_->preShutdown();
    prefs_->preShutdown();
}

void Plugin::shutdown() {
    // Both stay, for the host may end in an alert that a callback of theirs shows.
    about_->shutdown();
    prefs_->shutdown();
    lineTool_.destroy();
    moverTool_.destroy();
}

} // namespace ortho

bool kzo::core::pluginSetup(Plugin* plugin) {
    return ortho::Plugin::create(plugin) && vlGlobals::instance()->mayLoad();
}

void kzo::core::pluginDestroy(Plugin*) { ortho::Plugin::destroy(); }
