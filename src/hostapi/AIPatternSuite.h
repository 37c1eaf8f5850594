/* The pattern suite: tiles that fill and stroke art, kept by the document under names. */
#ifndef HOSTAPI_AIPATTERNSUITE_H
#define HOSTAPI_AIPATTERNSUITE_H

#include "hostapi/SPTypes.h"

#define kAIPatternSuite "AI Pattern Suite"
#define kAIPatternSuiteVersion 9

typedef struct AIPatternSuite {
    AIErr (*CountPatterns)(int32_t* count);
    /* kBadParameterErr: no pattern with that number, from 0. */
    AIErr (*GetNthPattern)(int32_t index, const char** name);
    /* Makes a pattern whose tile is a copy of the art in its bounds. kRefusedErr: art without bounds, or with something
     * of which the host can make no copy. */
    AIErr (*NewPattern)(AIArtHandle art, const char** name);
    /* As those of symbols. */
    AIErr (*EnterPatternEditMode)(const char* name);
    AIErr (*ExitPatternEditMode)(void);
    AIErr (*GetEditedPattern)(const char** name);
} AIPatternSuite;

DESCRIBE_SUITE(AIPatternSuite)

#endif
