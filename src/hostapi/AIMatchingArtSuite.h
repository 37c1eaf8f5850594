/* The matching art suite: lists of art by a property. */
#ifndef HOSTAPI_AIMATCHINGARTSUITE_H
#define HOSTAPI_AIMATCHINGARTSUITE_H

#include "hostapi/SPTypes.h"

#define kAIMatchingArtSuite "AI Matching Art Suite"
#define kAIMatchingArtSuiteVersion 6

/* What art matches: its kind, and that the attributes in `which` are those in `attributes`. */
typedef struct AIMatchingArtSpec {
    int16_t type;
    int32_t which;
    int32_t attributes;
} AIMatchingArtSpec;

enum { kAnyArt = -1 }; /* any kind but the groups of layers */

typedef struct AIMatchingArtSuite {
    /* All selected art of the current document, topmost first, as a memory handle that the caller disposes; null when
     * nothing is selected. */
    AIErr (*GetSelectedArt)(AIArtHandle*** list, int32_t* count);
    /* All art that matches any of the given kinds, likewise: of the current document, or of what `within` holds. */
    AIErr (*GetMatchingArt)(const AIMatchingArtSpec* kinds, int32_t kindCount, AIArtHandle*** list, int32_t* count);
    AIErr (*GetMatchingArtWithin)(AIArtHandle within, const AIMatchingArtSpec* kinds, int32_t kindCount,
                                  AIArtHandle*** list, int32_t* count);
    AIErr (*DeselectAll)(void);
} AIMatchingArtSuite;

DESCRIBE_SUITE(AIMatchingArtSuite)

#endif
