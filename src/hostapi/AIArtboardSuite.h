/* The artboard suite: the parts of the current document that are pages. There is always one; artboards are numbered
 * from 0. */
#ifndef HOSTAPI_AIARTBOARDSUITE_H
#define HOSTAPI_AIARTBOARDSUITE_H

#include "hostapi/SPTypes.h"

#define kAIArtboardSuite "AI Artboard Suite"
#define kAIArtboardSuiteVersion 3

typedef struct AIArtboardSuite {
    AIErr (*CountArtboards)(int32_t* count);
    AIErr (*GetNthArtboard)(int32_t index, AIArtboardHandle* artboard); /* kBadParameterErr: there is none */
    AIErr (*GetArtboardByTitle)(const char* title,
                                AIArtboardHandle* artboard); /* the first that is called so, or null */
    AIErr (*GetCurrentArtboard)(AIArtboardHandle* artboard);
    AIErr (*SetCurrentArtboard)(AIArtboardHandle artboard);
    /* Makes one of that place, which is the last. kBadParameterErr: no area, or a number that is not finite. */
    AIErr (*InsertArtboard)(const AIRealRect* bounds, AIArtboardHandle* artboard);
    AIErr (*DeleteArtboard)(AIArtboardHandle artboard); /* kRefusedErr: the last one */
    AIErr (*GetArtboardIndex)(AIArtboardHandle artboard, int32_t* index);
    AIErr (*GetArtboardTitle)(AIArtboardHandle artboard, const char** title);
    AIErr (*SetArtboardTitle)(AIArtboardHandle artboard, const char* title);
    AIErr (*GetArtboardBounds)(AIArtboardHandle artboard, AIRealRect* bounds);
    AIErr (*SetArtboardBounds)(AIArtboardHandle artboard, const AIRealRect* bounds);
} AIArtboardSuite;

DESCRIBE_SUITE(AIArtboardSuite)

#endif
