/* The preference suite: what the host and its plug-ins keep in the host's own preferences.
 *
 * A preference is known by a section, which may be empty, and a key in it. It holds one value: a flag, a whole number,
 * a number or a text. */
#ifndef HOSTAPI_AIPREFERENCESUITE_H
#define HOSTAPI_AIPREFERENCESUITE_H

#include "hostapi/SPTypes.h"

#define kAIPreferenceSuite "AI Preference Suite"
#define kAIPreferenceSuiteVersion 7

typedef struct AIPreferenceSuite {
    AIErr (*PreferenceExists)(const char* section, const char* key, AIBoolean* exists);
    /* kPreferenceNotFoundErr: there is none, or it holds a value of another kind; a whole number is also a number. */
    AIErr (*GetBooleanPreference)(const char* section, const char* key, AIBoolean* value);
    AIErr (*GetIntegerPreference)(const char* section, const char* key, int32_t* value);
    AIErr (*GetRealPreference)(const char* section, const char* key, AIReal* value);
    AIErr (*GetStringPreference)(const char* section, const char* key, const char** value);
    /* Each makes the preference or replaces it, whatever it held. kBadParameterErr: an empty key, or a number that is
     * not finite. */
    AIErr (*PutBooleanPreference)(const char* section, const char* key, AIBoolean value);
    AIErr (*PutIntegerPreference)(const char* section, const char* key, int32_t value);
    AIErr (*PutRealPreference)(const char* section, const char* key, AIReal value);
    AIErr (*PutStringPreference)(const char* section, const char* key, const char* value);
    /* kPreferenceNotFoundErr: there is none. */
    AIErr (*RemovePreference)(const char* section, const char* key);
} AIPreferenceSuite;

DESCRIBE_SUITE(AIPreferenceSuite)

#endif
