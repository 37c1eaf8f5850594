/* The plug-ins suite: what the host knows about each loaded plug-in. */
#ifndef HOSTAPI_SPPLUGINSSUITE_H
#define HOSTAPI_SPPLUGINSSUITE_H

#include "hostapi/SPTypes.h"

#define kSPPluginsSuite "SP Plug-ins Suite"
#define kSPPluginsSuiteVersion 5

typedef struct SPPluginsSuite {
    /* The plug-in's name; until it is set, the bundle's file name without extension. */
    SPErr (*GetPluginName)(SPPluginRef plugin, const char** name);
    /* Names the plug-in in the host's lists. The text is copied. */
    SPErr (*SetPluginName)(SPPluginRef plugin, const char* name);
} SPPluginsSuite;

#endif
