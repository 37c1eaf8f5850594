// A plug-in on the framework that declines to start.
#include "core/app/Plugin.h"

bool kzo::core::pluginSetup(Plugin*) { return false; }
void kzo::core::pluginDestroy(Plugin*) {}
