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

    /// Takes over the dialog's axes, in degrees, and switches. The dialog has the X axis as an angle between 0 and -90;
    /// the direction of the axis is 180 degrees on.
    static void applyPrefsSettings(double zAxis, double xAxis, bool concatenate, bool usePlotwise);

  private:
    kzo::core::NumberPref zAxisPref_;
    kzo::core::NumberPref xAxisPref_;
    kzo::core::BoolPref autoConcatPref_;
    kzo::core::BoolPref usePlotwisePref_;
};

} // namespace vl
