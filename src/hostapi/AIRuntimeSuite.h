/* The runtime suite: which application this is, and whose. */
#ifndef HOSTAPI_AIRUNTIMESUITE_H
#define HOSTAPI_AIRUNTIMESUITE_H

#include "hostapi/SPTypes.h"

#define kAIRuntimeSuite "AI Runtime Suite"
#define kAIRuntimeSuiteVersion 19

typedef struct AIRuntimeSuite {
    /* Of the application's version, the number that plug-ins are built for. */
    AIErr (*GetAppMajorVersion)(int32_t* version);
    /* Of whom the application is registered to; empty where nobody said. The texts are valid until the message being
     * handled is through. */
    AIErr (*GetAppUserName)(const char** name);
    AIErr (*GetAppUserOrganization)(const char** organization);
} AIRuntimeSuite;

DESCRIBE_SUITE(AIRuntimeSuite)

#endif
