/* The gradient suite: the gradients that the document keeps under names. */
#ifndef HOSTAPI_AIGRADIENTSUITE_H
#define HOSTAPI_AIGRADIENTSUITE_H

#include "hostapi/SPTypes.h"

#define kAIGradientSuite "AI Gradient Suite"
#define kAIGradientSuiteVersion 8

enum { kAILinearGradient = 0, kAIRadialGradient = 1 };

typedef struct AIGradientSuite {
    AIErr (*CountGradients)(int32_t* count);
    /* kBadParameterErr: no gradient with that number, from 0. */
    AIErr (*GetNthGradient)(int32_t index, const char** name);
    /* kBadParameterErr: no gradient of this name. */
    AIErr (*GetGradientType)(const char* name, int16_t* type);
} AIGradientSuite;

DESCRIBE_SUITE(AIGradientSuite)

#endif
