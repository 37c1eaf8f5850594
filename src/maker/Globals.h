// The drawing globals: the axes of the drawing and the state of the gesture that is running. One object for the whole
// plug-in, since the two tools share it and are never active at once.
#pragma once

#include <memory>

#include "core/document/HitData.h"
#include "core/values/Angle.h"
#include "core/values/ArtboardPoint.h"

struct ArtObject;

/// Angles run counter-clockwise on screen, 0 to the right; lengths are points.
class vlGlobals {
  public:
    // The one object
    [[nodiscard]] static vlGlobals* instance() { return instance_.get(); } ///< null outside of the plug-in's life
    static void create() { instance_ = std::make_unique<vlGlobals>(); }
    static void destroy() { instance_.reset(); }

    // Axes
    kzo::core::Angle zAxisAngle{30, kzo::core::Angle::Units::Degrees}; // to the right
    kzo::core::Angle verticalAxisAngle{90, kzo::core::Angle::Units::Degrees};
    kzo::core::Angle xAxisAngle{150, kzo::core::Angle::Units::Degrees}; // to the left

    // Settings
    bool autoConcat = true;          // a line drawn from the end of an open path is joined to it
    bool usePlotwiseSettings = true; // the axes are those of the companion plug-in
    bool prefsFailed = false;        // there is no preferences file: these are its defaults, and none is written

    /// The standard isometric axes: 30, 90 and 150 degrees.
    void applyIsoAxes();

    // The gesture
    kzo::core::ArtboardPoint startPoint;
    kzo::core::ArtboardPoint endPoint;    // on an axis, or where the modifier keys let it be
    kzo::core::ArtboardPoint rawLocation; // of the cursor at the mover's last drag
    kzo::core::HitData startHitData;
    ArtObject* hitArt = nullptr; // the art that was pressed on; may be null
    bool pressed = false;        // the press was told of by the host; without it there is no gesture
    bool continuing = false;     // the press was on an end of an open path, which is hitArt's last point now
    bool turned = false;         // the press turned hitArt round, to make its first point the last
    kzo::core::Angle exitAngle;  // direction in which hitArt leaves that point
    bool joined = false;         // the release joined the line to hitArt
    bool dragged = false;        // a drag has been handled since the press
    bool shiftDown = false;      // keys at the last drag
    bool optionDown = false;
    bool commandDown = false;

    /// Forgets the gesture.
    void resetGesture();

  private:
    static inline std::unique_ptr<vlGlobals> instance_;
};
