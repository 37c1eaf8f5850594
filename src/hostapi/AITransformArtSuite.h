/* The transform art suite: whole objects moved, with all that they hold. */
#ifndef HOSTAPI_AITRANSFORMARTSUITE_H
#define HOSTAPI_AITRANSFORMARTSUITE_H

#include "hostapi/SPTypes.h"

#define kAITransformArtSuite "AI Transform Art Suite"
#define kAITransformArtSuiteVersion 7

typedef struct AITransformArtSuite {
    /* Moves an object with all it holds, and the mask that clips it, by `dx`, `dy`; its patterns too when `patterns`
     * says so. kBadParameterErr: a way that is not finite. */
    AIErr (*MoveArt)(AIArtHandle art, AIReal dx, AIReal dy, AIBoolean patterns);
} AITransformArtSuite;

DESCRIBE_SUITE(AITransformArtSuite)

#endif
