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
    /* All plug-ins that were loaded, those that are not running among them. */
    SPErr (*CountPlugins)(int32_t* count);
    /* The plug-in at `index`, counted from 0. kBadParameterErr: there is none. */
    SPErr (*GetNthPlugin)(int32_t index, SPPluginRef* plugin);
    /* The bundle's file name, and its whole path; empty for a plug-in that came from no file. */
    SPErr (*GetPluginFileName)(SPPluginRef plugin, const char** name);
    SPErr (*GetPluginFilePath)(SPPluginRef plugin, const char** path);
    /* Options of the plug-in as a whole, a bit set that is kept as it is. */
    SPErr (*GetPluginOptions)(SPPluginRef plugin, int32_t* options);
    SPErr (*SetPluginOptions)(SPPluginRef plugin, int32_t options);
    /* Started: the plug-in has accepted its start-up and has not been shut down. Broken: it declined, and is called no
     * more. */
    SPErr (*GetPluginStarted)(SPPluginRef plugin, AIBoolean* started);
    SPErr (*GetPluginBroken)(SPPluginRef plugin, AIBoolean* broken);
    /* The platform's own reference to the loaded library, null for a plug-in that came from no file. */
    SPErr (*GetPluginPlatformRef)(SPPluginRef plugin, void** library);
    /* A resource of the plug-in's bundle: the file Contents/Resources/NUMBER.TYPE, such as 17000.png. First its size in
     * bytes, then its bytes, as many as `capacity`. kBadParameterErr: `type` is not made of letters and digits, or the
     * capacity is negative. kRefusedErr: there is no such resource, or it cannot be read. */
    SPErr (*GetPluginResourceSize)(SPPluginRef plugin, const char* type, int16_t number, int32_t* size);
    SPErr (*GetPluginResource)(SPPluginRef plugin, const char* type, int16_t number, int32_t capacity, void* bytes);
} SPPluginsSuite;

DESCRIBE_SUITE(SPPluginsSuite)

#endif
