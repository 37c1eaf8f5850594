/* The dictionary suite: values that plug-ins keep with art, and with the current document, where the art is null. They
 * are saved with the document, and undone as other changes are. */
#ifndef HOSTAPI_AIDICTIONARYSUITE_H
#define HOSTAPI_AIDICTIONARYSUITE_H

#include "hostapi/SPTypes.h"

#define kAIDictionarySuite "AI Dictionary Suite"
#define kAIDictionarySuiteVersion 7

typedef struct AIDictionarySuite {
    AIErr (*CountEntries)(AIArtHandle art, int32_t* count);
    AIErr (*GetNthKey)(AIArtHandle art, int32_t index, const char** key); /* by name; kBadParameterErr: there is none */
    AIErr (*DeleteEntry)(AIArtHandle art, const char* key);               /* kPreferenceNotFoundErr: there is none */
    /* kPreferenceNotFoundErr: there is none, or it is of another kind; a whole number is also a number. */
    AIErr (*GetBooleanEntry)(AIArtHandle art, const char* key, AIBoolean* value);
    AIErr (*GetIntegerEntry)(AIArtHandle art, const char* key, int32_t* value);
    AIErr (*GetRealEntry)(AIArtHandle art, const char* key, AIReal* value);
    AIErr (*GetStringEntry)(AIArtHandle art, const char* key, const char** value);
    /* kBadParameterErr: an empty key, a number that is not finite, or a text that is not UTF-8. */
    AIErr (*SetBooleanEntry)(AIArtHandle art, const char* key, AIBoolean value);
    AIErr (*SetIntegerEntry)(AIArtHandle art, const char* key, int32_t value);
    AIErr (*SetRealEntry)(AIArtHandle art, const char* key, AIReal value);
    AIErr (*SetStringEntry)(AIArtHandle art, const char* key, const char* value);
} AIDictionarySuite;

DESCRIBE_SUITE(AIDictionarySuite)

#endif
