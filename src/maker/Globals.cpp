// The end of a gesture, and the axes as the host is told.
#include "maker/Globals.h"

#include "core/app/Plugin.h"

void vlGlobals::resetGesture() {
    setDraggingDefaults();
    setHitDefaults();
    setPathDefaults();
    pressed = joined = dragged = shiftDown = optionDown = commandDown = false;
}

void vlGlobals::tellAxes() const {
    kzo::core::Plugin::instance()->setDrawingAxes({zAxisAngle, xAxisAngle, verticalAxisAngle});
}
