/* The raster suite: pictures that are in the drawing itself. */
#ifndef HOSTAPI_AIRASTERSUITE_H
#define HOSTAPI_AIRASTERSUITE_H

#include "hostapi/AITransformArtSuite.h"
#include "hostapi/SPTypes.h"

#define kAIRasterSuite "AI Raster Suite"
#define kAIRasterSuiteVersion 10

/* How many pixels a picture has; 0 where that is not known. */
typedef struct AIRasterSize {
    int32_t columns;
    int32_t rows;
} AIRasterSize;

typedef struct AIRasterSuite {
    /* kBadParameterErr, of all: art of another kind. */
    AIErr (*GetRasterSize)(AIArtHandle raster, AIRasterSize* size);
    /* From the picture's pixels, counted from its top left, to the document; of a picture whose size is not known, from
     * a square of one unit. kBadParameterErr also: a matrix that has no inverse. */
    AIErr (*GetRasterMatrix)(AIArtHandle raster, AIRealMatrix* matrix);
    AIErr (*SetRasterMatrix)(AIArtHandle raster, const AIRealMatrix* matrix);
} AIRasterSuite;

DESCRIBE_SUITE(AIRasterSuite)

#endif
