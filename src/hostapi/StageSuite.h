/* The stage suite: services of the platform, played by a host that runs without a display. */
#ifndef HOSTAPI_STAGESUITE_H
#define HOSTAPI_STAGESUITE_H

#include "hostapi/SPTypes.h"

#define kStageSuite "Stage Suite"
#define kStageSuiteVersion 1

typedef struct StageSuite {
    /* The modifier keys held now, kAIShiftKey ... */
    AIErr (*GetModifiers)(uint32_t* modifiers);
    /* Shows the host's cursor of this number until another is set. */
    AIErr (*SetCursor)(int32_t number);
} StageSuite;

#endif
