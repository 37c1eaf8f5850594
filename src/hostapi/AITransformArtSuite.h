/* The transform suite: moving, turning and scaling of art. */
#ifndef HOSTAPI_AITRANSFORMARTSUITE_H
#define HOSTAPI_AITRANSFORMARTSUITE_H

#include "hostapi/SPTypes.h"

#define kAITransformArtSuite "AI Transform Art Suite"
#define kAITransformArtSuiteVersion 7

/* What is transformed, a bit set. Gradients, patterns and linked masks belong to the art in Easel and always go along
 * with it. */
enum {
    kTransformObjects = 1, /* outlines, and what else makes up the art */
    kTransformFillGradients = 2,
    kTransformFillPatterns = 4,
    kTransformStrokePatterns = 8,
    kTransformLinkedMasks = 16,
    kTransformChildren = 32,      /* of a group, all that it holds; a group has no outline of its own */
    kTransformSelectionOnly = 64, /* of what it holds, only what is selected */
    kScaleLines = 128             /* stroke widths and dashes, by the line scale */
};

typedef struct AITransformArtSuite {
    /* kBadParameterErr: the matrix has no inverse or the line scale is not positive, or either is not finite. */
    AIErr (*TransformArt)(AIArtHandle art, const AIRealMatrix* matrix, AIReal lineScale, int32_t flags);
} AITransformArtSuite;

DESCRIBE_SUITE(AITransformArtSuite)

#endif
