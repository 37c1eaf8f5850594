// Defaults of the drawing globals.
#include "maker/Globals.h"

void vlGlobals::applyIsoAxes() {
    const vlGlobals defaults;
    zAxisAngle = defaults.zAxisAngle;
    verticalAxisAngle = defaults.verticalAxisAngle;
    xAxisAngle = defaults.xAxisAngle;
}

void vlGlobals::resetGesture() {
    const vlGlobals defaults;
    startPoint = defaults.startPoint;
    endPoint = defaults.endPoint;
    rawLocation = defaults.rawLocation;
    startHitData = defaults.startHitData;
    hitArt = nullptr;
    pressed = continuing = turned = joined = false;
    exitAngle = defaults.exitAngle;
    dragged = shiftDown = optionDown = commandDown = false;
}
