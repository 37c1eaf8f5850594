// Reads and writes what all preferences have in common, and greets at the first launch.
#include "maker/BasePrefs.h"

#include <algorithm>
#include <filesystem>
#include <limits>
#include <system_error>

#include "core/app/Plugin.h"
#include "core/dialogs/Alerts.h"
#include "core/services/Date.h"
#include "core/services/Folders.h"
#include "maker/Globals.h"
#include "maker/MakersMenu.h"

namespace vl {

namespace {

namespace fs = std::filesystem;
namespace alerts = kzo::core::alerts;
using kzo::core::Date;

constexpr const char* kMakerFolder = "Velloran";
constexpr const char* kPluginFolder = "Ortholine 16";
constexpr const char* kFileName = "Preferences";
constexpr const char* kMenuGroup = "Velloran Plugins";
constexpr std::int32_t kInterval = 7; // days

// The blank before the line break belongs to the text.
constexpr const char* kWelcome = "Welcome to Ortholine! \nPlugin successfully installed.";
constexpr const char* kNotCreated =
    "There was an error creating the preferences directory. Please report this as a bug.";
constexpr const char* kNotLoaded = "There was an error loading the preferences file. Please report this as a bug.";
constexpr const char* kNotVerified =
    "There was an error verifying the preferences location. Please report this as a bug.";

} // namespace

// Life

void vlBasePrefs::init() {
    interval_ = kInterval;
    automatic_ = true;
    nextCheck_ = Date::Current().format(kDateFormat);
    noteWhetherDue();
    firstLaunch_ = false;
}

void vlBasePrefs::startup() {
    if (!locate()) return fail();
    std::error_code error;
    firstLaunch_ = !fs::exists(path_, error);
    // A store of a file that could not be read would not be written over it: there is nothing to go on with.
    if (!kzo::core::Preferences::load(path_, store_) || store_.unreadable()) {
        alerts::message(kNotLoaded);
        return fail();
    }
    if (firstLaunch_) doFirstLaunch();
    getPrefs();
    writePrefs();
}

/// Finds the file's folder, or makes it. False, and the user has been told, when there is none; a maker's folder that
/// is missing passes in silence.
bool vlBasePrefs::locate() {
    const std::string maker = kzo::core::folders::preferences(kMakerFolder);
    if (maker.empty()) return false;
    const fs::path folder = fs::path(maker) / kPluginFolder;
    std::error_code error;
    if (!fs::is_directory(folder, error) && !fs::create_directory(folder, error)) alerts::message(kNotCreated);
    if (!fs::is_directory(folder, error)) {
        alerts::message(kNotVerified);
        return false;
    }
    path_ = (folder / kFileName).string();
    return true;
}

/// The preferences count as failed; the values are the defaults.
void vlBasePrefs::fail() {
    vlGlobals::instance()->prefsFailed = true;
    init();
}

void vlBasePrefs::postStartup() {
    __buildUpdateBox();
    if (automatic_ && due_) GETversion(false);
}

void vlBasePrefs::preShutdown() {
    request_.reset();
    if (!vlGlobals::instance()->prefsFailed) writePrefs();
    updateDialog_.destroy();
}

void vlBasePrefs::shutdown() { menuItem_.destroy(); }

void vlBasePrefs::makePrefsMenu(const std::string& name) {
    const auto group = sharedMenuGroup(kMenuGroup, kzo::core::BuiltinMenuGroup::Preferences);
    menuItem_ =
        kzo::core::MenuItem(group, name + "...", kzo::core::__Callback<vlBasePrefs>(this, &vlBasePrefs::__showPrefsCB));
    kzo::core::Plugin::instance()->setPrefsMenuItem(menuItem_);
}

// Between the values, the store and the file

void vlBasePrefs::getPrefs() {
    store_.getOrCreateStringPref("vCheckDue", Date::Current().format(kDateFormat), nextCheckPref_);
    store_.getOrCreateIntPref("vCheckFreq", kInterval, intervalPref_);
    store_.getOrCreateBoolPref("autoVCheck", true, automaticPref_);
    nextCheck_ = nextCheckPref_.stringValue();
    interval_ = static_cast<std::int32_t>(std::clamp<long long>(
        intervalPref_.intValue(), std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()));
    automatic_ = automaticPref_.boolValue();
    noteWhetherDue();
}

void vlBasePrefs::noteWhetherDue() { due_ = Date::Current() >= Date(nextCheck_); }

void vlBasePrefs::setPrefs() {
    nextCheckPref_.setStringValue(nextCheck_);
    intervalPref_.setIntValue(interval_);
    automaticPref_.setBoolValue(automatic_);
    saveStore();
}

void vlBasePrefs::readPrefs() {
    if (store_.isEmpty())
        kzo::core::Preferences::load(path_, store_);
    else
        store_.reload(path_);
}

void vlBasePrefs::writePrefs() { setPrefs(); }

void vlBasePrefs::doFirstLaunch() { alerts::message(kWelcome); }

} // namespace vl
