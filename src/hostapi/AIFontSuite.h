/* The font suite: the font families that there are. */
#ifndef HOSTAPI_AIFONTSUITE_H
#define HOSTAPI_AIFONTSUITE_H

#include "hostapi/SPTypes.h"

#define kAIFontSuite "AI Font Suite"
#define kAIFontSuiteVersion 6

typedef struct AIFontSuite {
    /* The host looks for fonts once and remembers what it found. These make it forget, and look at once. */
    AIErr (*ClearFontCache)(void);
    AIErr (*CacheFonts)(void);
    AIErr (*CountFonts)(int32_t* count);
    /* A family's name, as text takes it; in alphabetical order. kBadParameterErr: no family with that number, from 0.
     */
    AIErr (*GetNthFont)(int32_t index, const char** name);
} AIFontSuite;

DESCRIBE_SUITE(AIFontSuite)

#endif
