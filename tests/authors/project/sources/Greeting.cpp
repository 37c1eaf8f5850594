// The least that starts. Its unused variable draws a warning: what an author is warned of is no error.
#include "core/app/Plugin.h"

static int unused;

bool kzo::core::pluginSetup(Plugin* plugin) { return plugin->name() == "Greeting"; }
void kzo::core::pluginDestroy(Plugin*) {}
