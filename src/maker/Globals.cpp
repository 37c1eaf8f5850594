// The end of a gesture.
#include "maker/Globals.h"

void vlGlobals::resetGesture() {
    setDraggingDefaults();
    setHitDefaults();
    setPathDefaults();
    pressed = joined = dragged = shiftDown = optionDown = commandDown = false;
}
