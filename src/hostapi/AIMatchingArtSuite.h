/* The matching art suite: lists of art by a property. */
#ifndef HOSTAPI_AIMATCHINGARTSUITE_H
#define HOSTAPI_AIMATCHINGARTSUITE_H

#include "hostapi/SPTypes.h"

#define kAIMatchingArtSuite "AI Matching Art Suite"
#define kAIMatchingArtSuiteVersion 6

typedef struct AIMatchingArtSuite {
    /* All selected art of the current document, topmost first, as a memory handle that the caller disposes; null when
     * nothing is selected. */
    AIErr (*GetSelectedArt)(AIArtHandle*** list, int32_t* count);
    AIErr (*DeselectAll)(void);
} AIMatchingArtSuite;

DESCRIBE_SUITE(AIMatchingArtSuite)

#endif
