/* The real math suite: the host's own arithmetic, so that plug-in and host agree to the last bit. */
#ifndef HOSTAPI_AIREALMATHSUITE_H
#define HOSTAPI_AIREALMATHSUITE_H

#include "hostapi/SPTypes.h"

#define kAIRealMathSuite "AI Real Math Suite"
#define kAIRealMathSuiteVersion 11

typedef struct AIRealMathSuite {
    AIErr (*RealPointLength)(const AIRealPoint* from, const AIRealPoint* to, AIReal* length);
} AIRealMathSuite;

DESCRIBE_SUITE(AIRealMathSuite)

#endif
