// The preferences of the isometric tools. The values that the tools go by are in the drawing globals.
#pragma once

#include "maker/BasePrefs.h"

namespace vl {

class vlPrefs : public vlBasePrefs {
  public:
    void init() override;
    void startup() override;
    void postStartup() override;
    void preShutdown() override;
    void shutdown() override;
    void getPrefs() override;
    void setPrefs() override;
    void readPrefs() override;
    void doFirstLaunch() override;
    void savePrefs() { saveStore(); }

    // The dialog
    [[nodiscard]] const kzo::core::ModalDialog& prefsDialog() const { return prefsDialog_; }
    void updatePrefsDlg();     ///< shows what the tools go by
    void applyPrefsSettings(); ///< has the tools go by what it shows

    // Callbacks of the dialog
    void __showPrefsCB() override;
    void __XaxisLblCB();
    void __ZaxisLblCB();
    void __autoConcatChkCB();
    void __usePlotwiseSettingsCB();
    void __dlgUpdateCB();
    void __prefsOKbtnCB();
    void __prefsCancelCB();

  private:
    /// The X axis points to the left; the dialog has the opposite direction, an angle between 0 and -90.
    static constexpr double kHalfTurn = 180;

    static void setLive(double zAxis, double xAxis, bool concatenate, bool usePlotwise);
    void buildPrefsDlg();

    kzo::core::NumberPref zAxisPref_;
    kzo::core::NumberPref xAxisPref_;
    kzo::core::BoolPref autoConcatPref_;
    kzo::core::BoolPref usePlotwisePref_;
    kzo::core::ModalDialog prefsDialog_;
    kzo::core::TextField xField_;
    kzo::core::TextField zField_;
    kzo::core::Checkbox plotwiseCheckbox_;
    kzo::core::Checkbox concatCheckbox_;
};

} // namespace vl
