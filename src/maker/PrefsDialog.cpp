// The dialog for the axes and the two switches.
#include "maker/Prefs.h"

#include "core/dialogs/Alerts.h"
#include "maker/Globals.h"
#include "maker/Numbers.h"
#include "maker/Product.h"

namespace vl {

namespace {

using kzo::core::Checkbox;
using kzo::core::Label;
using kzo::core::ModalDialog;
using kzo::core::Point;
using kzo::core::Size;
using kzo::core::TextField;
using kzo::core::Widget;
using Bound = kzo::core::__Callback<vlPrefs>;

/// What stands in a field; 0 where nothing can be read. It may be endless or no number, which is never drawn along.
double axisIn(const TextField& field) {
    double degrees = 0;
    scanNumber(field.text(), degrees);
    return degrees;
}

/// False for what is no number, too.
bool isWithin(double degrees, double least, double most) { return least <= degrees && degrees <= most; }

} // namespace

void vlPrefs::buildPrefsDlg() {
    const auto off = Checkbox::StateType::Unchecked;
    prefsDialog_ = ModalDialog(std::string(product::kName) + " Preferences", Size(240, 100),
                               ModalDialog::ButtonOptions(true, Bound(this, &vlPrefs::__prefsOKbtnCB), true, ""),
                               ModalDialog::ButtonOptions(true, Bound(this, &vlPrefs::__prefsCancelCB), true, ""));
    Label xLabel(Point(16, 18), "X (left) axis angle:", 120);
    xField_ = TextField(Point(136, 16), "-30", 80);
    Label zLabel(Point(16, 42), "Z (right) axis angle:", 120);
    zField_ = TextField(Point(136, 40), "30", 80);
    plotwiseCheckbox_ = Checkbox(Point(16, 66), "Use Plotwise settings", 208, off);
    plotwiseCheckbox_.setTooltip("If you use Plotwise, check this to import Plotaxonometric settings.");
    concatCheckbox_ = Checkbox(Point(16, 90), "Automatically concatenate lines", 208, off);
    concatCheckbox_.setTooltip("To override this setting, press Command before releasing the mouse.");
    xLabel.setClickCallback(Bound(this, &vlPrefs::__XaxisLblCB));
    zLabel.setClickCallback(Bound(this, &vlPrefs::__ZaxisLblCB));
    xField_.setValueChangedCallback(Bound(this, &vlPrefs::__dlgUpdateCB));
    zField_.setValueChangedCallback(Bound(this, &vlPrefs::__dlgUpdateCB));
    plotwiseCheckbox_.setClickCallback(Bound(this, &vlPrefs::__usePlotwiseSettingsCB));
    concatCheckbox_.setClickCallback(Bound(this, &vlPrefs::__autoConcatChkCB));
    for (const Widget& widget : {Widget(xLabel), Widget(xField_), Widget(zLabel), Widget(zField_),
                                 Widget(plotwiseCheckbox_), Widget(concatCheckbox_)})
        prefsDialog_.addWidget(widget);
    prefsDialog_.setTabOrder({xField_, zField_});
}

void vlPrefs::updatePrefsDlg() {
    const vlGlobals& globals = *vlGlobals::instance();
    zField_.setText(formatNumber(globals.zAxisAngle.asDegrees(), -1));
    xField_.setText(formatNumber(globals.xAxisAngle.asDegrees() - kHalfTurn, -1));
    concatCheckbox_.setChecked(globals.autoConcat);
    plotwiseCheckbox_.setChecked(globals.usePlotwiseSettings);
}

void vlPrefs::applyPrefsSettings() {
    setLive(axisIn(zField_), axisIn(xField_) + kHalfTurn, concatCheckbox_.checked(), plotwiseCheckbox_.checked());
}

// Callbacks

void vlPrefs::__showPrefsCB() {
    updatePrefsDlg();
    prefsDialog_.show();
}

void vlPrefs::__XaxisLblCB() { xField_.focus(); }
void vlPrefs::__ZaxisLblCB() { zField_.focus(); }

void vlPrefs::__autoConcatChkCB() {
    bool& live = vlGlobals::instance()->autoConcat;
    live = !live;
    concatCheckbox_.setChecked(live);
}

void vlPrefs::__usePlotwiseSettingsCB() {
    bool& live = vlGlobals::instance()->usePlotwiseSettings;
    live = !live;
    plotwiseCheckbox_.setChecked(live);
}

/// Warns of an axis that is out of range. It is applied all the same, unless it is endless or no number.
void vlPrefs::__dlgUpdateCB() {
    constexpr double kQuarterTurn = 90;
    if (zField_.text().empty()) zField_.setText("30");
    const double z = axisIn(zField_);
    if (!isWithin(z, 0, kQuarterTurn)) {
        kzo::core::alerts::message("Z axis must be in the range 0 to 90");
        return zField_.focus();
    }
    if (xField_.text().empty()) xField_.setText("-30");
    const double x = axisIn(xField_);
    if (!isWithin(x, -kQuarterTurn, 0)) {
        kzo::core::alerts::message("X axis must be in the range 0 to -90.");
        xField_.focus();
    }
}

void vlPrefs::__prefsOKbtnCB() {
    __dlgUpdateCB();
    applyPrefsSettings();
    setPrefs();
    vlGlobals::instance()->tellAxes();
}

void vlPrefs::__prefsCancelCB() { updatePrefsDlg(); }

} // namespace vl
