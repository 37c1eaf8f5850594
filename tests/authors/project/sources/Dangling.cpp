#include "core/app/Plugin.h"

bool forgotten();
bool kzo::core::pluginSetup(Plugin*) { return forgotten(); }
void kzo::core::pluginDestroy(Plugin*) {}
