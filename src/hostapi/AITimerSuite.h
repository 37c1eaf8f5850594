/* The timer suite: calls of a plug-in at regular intervals. */
#ifndef HOSTAPI_AITIMERSUITE_H
#define HOSTAPI_AITIMERSUITE_H

#include "hostapi/AITimer.h"

#define kAITimerSuite "AI Timer Suite"
#define kAITimerSuiteVersion 3

typedef struct AITimerSuite {
    /* Adds an active timer; `name` only labels it. kBadParameterErr: the period is negative. */
    AIErr (*AddTimer)(SPPluginRef self, const char* name, int32_t period, AITimerHandle* timer);
    AIErr (*RemoveTimer)(AITimerHandle timer);
    AIErr (*GetTimerName)(AITimerHandle timer, const char** name);
    AIErr (*GetTimerActive)(AITimerHandle timer, AIBoolean* active);
    /* A timer that is made active waits a whole period first. */
    AIErr (*SetTimerActive)(AITimerHandle timer, AIBoolean active);
    AIErr (*GetTimerPeriod)(AITimerHandle timer, int32_t* period);
    /* The new period begins at once. kBadParameterErr: it is negative. */
    AIErr (*SetTimerPeriod)(AITimerHandle timer, int32_t period);
} AITimerSuite;

DESCRIBE_SUITE(AITimerSuite)

#endif
