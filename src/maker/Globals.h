// The drawing globals: the axes of the drawing and the state of the gesture that is running. One object for the whole
// plug-in, since the two tools share it and are never active at once.
#pragma once

#include <array>
#include <memory>
#include <string>

#include "maker/BaseGlobals.h"

/// What the companion plug-in told of its drawing.
struct vlCompanionData {
    bool found = false; ///< it told all when it was asked last; else the rest is of the time before
    std::string scaleName;
    double scale = 0;
    std::string viewName;
    std::array<double, 3> viewValues{}; ///< the companion's own; no tool reads them
    double firstAngle = 0;              ///< of the axis to the right, degrees from the horizontal
    double secondAngle = 0;             ///< of the axis to the left
    unsigned char viewFlag = 0;
};

/// Angles run counter-clockwise on screen, 0 to the right; lengths are points.
class vlGlobals : public vlBaseGlobals {
  public:
    // The one object
    [[nodiscard]] static vlGlobals* instance() { return instance_.get(); } ///< null outside of the plug-in's life
    static void create() { instance_ = std::make_unique<vlGlobals>(); }
    static void destroy() { instance_.reset(); }

    // Axes
    kzo::core::Angle zAxisAngle{30, kzo::core::Angle::Units::Degrees}; // to the right
    kzo::core::Angle verticalAxisAngle{90, kzo::core::Angle::Units::Degrees};
    kzo::core::Angle xAxisAngle{150, kzo::core::Angle::Units::Degrees}; // to the left
    vlCompanionData companion;
    void tellAxes() const; ///< to the host, which may show a grid along them

    // Settings
    bool autoConcat = true;          // a line drawn from the end of an open path is joined to it
    bool usePlotwiseSettings = true; // the axes are those of the companion plug-in
    bool prefsFailed = false;        // there is no preferences file: these are its defaults, and none is written

    // The gesture, beside what all the maker's tools keep of one
    bool pressed = false;   // the press was told of by the host; without it there is no gesture
    bool joined = false;    // the release joined the line to hitArt
    bool dragged = false;   // a drag has been handled since the press
    bool shiftDown = false; // keys at the last drag
    bool optionDown = false;
    bool commandDown = false;

    /// Forgets the gesture.
    void resetGesture();

  private:
    static inline std::unique_ptr<vlGlobals> instance_;
};
