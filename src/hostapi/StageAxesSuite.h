/* The axes suite: along which directions a plug-in's tools draw, so that the host can show a grid along them. A host
 * without such a grid has no such suite. */
#ifndef HOSTAPI_STAGEAXESSUITE_H
#define HOSTAPI_STAGEAXESSUITE_H

#include "hostapi/SPTypes.h"

#define kStageAxesSuite "Stage Axes Suite"
#define kStageAxesSuiteVersion 1

#define kStageMostAxes 8

typedef struct StageAxesSuite {
    /* For all tools of the plug-in, in place of what it told before; none takes them back. Degrees, counter-clockwise
     * from the right. The grid has its steps along the first two, and its third lines where the steps meet; further
     * axes are kept. With neither Shift nor Option held the host takes it that the tools hold to these axes, and while
     * the user wants it has the pointer go by whole steps along them. kBadParameterErr: more than kStageMostAxes, or a
     * number that is not finite. */
    AIErr (*SetDrawingAxes)(SPPluginRef self, const AIReal* degrees, int32_t count);
} StageAxesSuite;

DESCRIBE_SUITE(StageAxesSuite)

#endif
