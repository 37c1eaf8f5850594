/* The mask suite: what fades art, by its brightness. A mask belongs to the document, and several objects may have one.
 */
#ifndef HOSTAPI_AIMASKSUITE_H
#define HOSTAPI_AIMASKSUITE_H

#include "hostapi/SPTypes.h"

#define kAIMaskSuite "AI Mask Suite"
#define kAIMaskSuiteVersion 6

typedef struct AIMaskSuite {
    AIErr (*HasMask)(AIArtHandle art, AIBoolean* has);
    /* Whether the mask is there without being used. kBadParameterErr, of all that follow: art without a mask. */
    AIErr (*GetMaskDisabled)(AIArtHandle art, AIBoolean* disabled);
    AIErr (*SetMaskDisabled)(AIArtHandle art, AIBoolean disabled);
    /* Makes a mask for `art` of `by`, which leaves the drawing: `art` shows where `by` is bright. kRefusedErr: `art`
     * has a mask, or is `by` or in it, or there is something in `by` of which no copy can be made. */
    AIErr (*NewMask)(AIArtHandle art, AIArtHandle by);
    /* Gives `art` the mask of `from`. */
    AIErr (*CopyMask)(AIArtHandle from, AIArtHandle art);
    AIErr (*DisposeMask)(AIArtHandle art);
} AIMaskSuite;

DESCRIBE_SUITE(AIMaskSuite)

#endif
