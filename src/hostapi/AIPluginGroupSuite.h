/* The plug-in group suite: kinds of custom art that a plug-in looks after. */
#ifndef HOSTAPI_AIPLUGINGROUPSUITE_H
#define HOSTAPI_AIPLUGINGROUPSUITE_H

#include "hostapi/SPTypes.h"

#define kAIPluginGroupSuite "AI Plugin Group Suite"
#define kAIPluginGroupSuiteVersion 1006

typedef struct AIPluginGroupSuite {
    /* Registers a kind of custom art under `name`. `options` is kept as it is. kBadParameterErr: the name is taken. */
    AIErr (*AddAIPluginGroup)(SPPluginRef self, const char* name, int32_t options, AIPluginGroupHandle* group);
} AIPluginGroupSuite;

DESCRIBE_SUITE(AIPluginGroupSuite)

#endif
