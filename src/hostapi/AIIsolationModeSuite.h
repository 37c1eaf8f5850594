/* The isolation mode suite: while a group is isolated, the pointer reaches nothing but what it holds, and new art
 * without a place of its own goes into it. Of the current document. */
#ifndef HOSTAPI_AIISOLATIONMODESUITE_H
#define HOSTAPI_AIISOLATIONMODESUITE_H

#include "hostapi/SPTypes.h"

#define kAIIsolationModeSuite "AI Isolation Mode Suite"
#define kAIIsolationModeSuiteVersion 5

typedef struct AIIsolationModeSuite {
    AIErr (*CanIsolateArt)(AIArtHandle art, AIBoolean* can); /* groups, but not those of layers */
    AIErr (*EnterIsolationMode)(AIArtHandle art);            /* kRefusedErr: it cannot be isolated */
    AIErr (*ExitIsolationMode)(void);                        /* kRefusedErr: nothing is */
    AIErr (*IsInIsolationMode)(AIBoolean* isolating);
    AIErr (*GetIsolatedArt)(AIArtHandle* art);                    /* or null */
    AIErr (*IsArtIsolated)(AIArtHandle art, AIBoolean* isolated); /* it, or something around it, is */
} AIIsolationModeSuite;

DESCRIBE_SUITE(AIIsolationModeSuite)

#endif
