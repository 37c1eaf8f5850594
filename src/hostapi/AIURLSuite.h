/* The URL suite: addresses for the user to look at. */
#ifndef HOSTAPI_AIURLSUITE_H
#define HOSTAPI_AIURLSUITE_H

#include "hostapi/SPTypes.h"

#define kAIURLSuite "AI URL Suite"
#define kAIURLSuiteVersion 1

typedef struct AIURLSuite {
    /* Opens the address in the user's browser. kBadParameterErr: an empty one. */
    AIErr (*OpenURL)(const char* url);
} AIURLSuite;

DESCRIBE_SUITE(AIURLSuite)

#endif
