// The angles and switches of the tools, between the file, the globals and the dialog.
#include "maker/Prefs.h"

#include <cmath>

#include "core/app/Plugin.h"
#include "maker/Globals.h"
#include "maker/Product.h"

namespace vl {

namespace {

using kzo::core::Angle;

constexpr double kZAxis = 30; // degrees
constexpr double kXAxis = 150;

/// What an angle is stored as: rounded, so that 30 degrees are written as 30.
double degrees(const Angle& angle) {
    constexpr double kSteps = 1e9;
    return std::round(angle.asDegrees() * kSteps) / kSteps;
}

} // namespace

/// In degrees, as the file has them.
void vlPrefs::setLive(double zAxis, double xAxis, bool concatenate, bool usePlotwise) {
    vlGlobals& globals = *vlGlobals::instance();
    // Along what is no number nothing can be drawn.
    if (std::isfinite(zAxis)) globals.zAxisAngle = Angle(zAxis, Angle::Units::Degrees);
    if (std::isfinite(xAxis)) globals.xAxisAngle = Angle(xAxis, Angle::Units::Degrees);
    globals.autoConcat = concatenate;
    globals.usePlotwiseSettings = usePlotwise;
}

// Life

void vlPrefs::init() {
    vlBasePrefs::init();
    setLive(kZAxis, kXAxis, false, false);
}

void vlPrefs::startup() {
    vlBasePrefs::startup();
    makePrefsMenu(product::kName);
}

void vlPrefs::postStartup() {
    vlBasePrefs::postStartup();
    buildPrefsDlg();
    updatePrefsDlg();
    kzo::core::Plugin::instance()->setPrefsDialog(prefsDialog_);
}

void vlPrefs::preShutdown() {
    vlBasePrefs::preShutdown();
    prefsDialog_.destroy();
}

void vlPrefs::shutdown() { vlBasePrefs::shutdown(); }
void vlPrefs::doFirstLaunch() { vlBasePrefs::doFirstLaunch(); }

// Between the values, the store and the file

void vlPrefs::getPrefs() {
    vlBasePrefs::getPrefs();
    store_.getOrCreateFloatPref("zAxis", kZAxis, zAxisPref_);
    store_.getOrCreateFloatPref("xAxis", kXAxis, xAxisPref_);
    store_.getOrCreateBoolPref("autoConcat", false, autoConcatPref_);
    store_.getOrCreateBoolPref("usePlotwiseSettings", false, usePlotwisePref_);
    setLive(zAxisPref_.floatValue(), xAxisPref_.floatValue(), autoConcatPref_.boolValue(),
            usePlotwisePref_.boolValue());
}

void vlPrefs::setPrefs() {
    vlBasePrefs::setPrefs();
    const vlGlobals& globals = *vlGlobals::instance();
    zAxisPref_.setFloatValue(degrees(globals.zAxisAngle));
    xAxisPref_.setFloatValue(degrees(globals.xAxisAngle));
    autoConcatPref_.setBoolValue(globals.autoConcat);
    usePlotwisePref_.setBoolValue(globals.usePlotwiseSettings);
    savePrefs();
}

/// The store is the base's, which has read all of it.
void vlPrefs::readPrefs() { vlBasePrefs::readPrefs(); }

} // namespace vl
