/* The expand suite: takes art apart into plain paths and groups. */
#ifndef HOSTAPI_AIEXPANDSUITE_H
#define HOSTAPI_AIEXPANDSUITE_H

#include "hostapi/SPTypes.h"

#define kAIExpandSuite "AI Expand Suite"
#define kAIExpandSuiteVersion 8

/* What is taken apart, a bit set: plug-in groups, into what shows of them; texts, into the outlines of their letters;
 * strokes, into filled paths; patterns, into copies of their tile; gradients, into meshes or into paths, as meshes are;
 * symbol instances, into copies of what they show. A gradient or pattern of a stroke is only together with the stroke.
 * Art that is locked is left alone, unless asked for. */
enum {
    kExpandPluginArt = 1,
    kExpandText = 2,
    kExpandStroke = 4,
    kExpandPattern = 8,
    kExpandGradientToMesh = 16,
    kExpandGradientToPaths = 32,
    kExpandSymbolInstances = 64,
    kExpandOneByOne = 128,
    kExpandShowProgress = 256,
    kExpandLocked = 512
};

typedef struct AIExpandSuite {
    /* Of the art and all in it, whatever the host can take apart; `steps` is the number of paths for a gradient. What
     * takes the place of art has its name, and all that belongs to it as a whole; handles of the art are no longer
     * valid then. kBadParameterErr: no steps. kRefusedErr: nothing is taken apart. */
    AIErr (*Expand)(AIArtHandle art, int32_t flags, int32_t steps);
} AIExpandSuite;

DESCRIBE_SUITE(AIExpandSuite)

#endif
