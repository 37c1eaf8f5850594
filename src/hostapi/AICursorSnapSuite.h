/* The cursor snap suite: what the locations of a plug-in's tool messages snap to. */
#ifndef HOSTAPI_AICURSORSNAPSUITE_H
#define HOSTAPI_AICURSORSNAPSUITE_H

#include "hostapi/SPTypes.h"

#define kAICursorSnapSuite "AI Cursor Snap Suite"
#define kAICursorSnapSuiteVersion 5

/* A bit set. None is set at first. They count after the user's own "Snap to Point", in this order: the first that has
 * something within the tolerance has the location. */
enum {
    kSnapToArt = 1,       /* anchors, then segments */
    kSnapToArtBounds = 2, /* corners, middles of the sides, and centre of an object's bounds */
    kSnapToArtboard = 4,  /* corners, middles of the sides, and centre of the page, then its sides */
    kSnapToGrids = 8      /* crossings of the grid */
};

typedef struct AICursorSnapSuite {
    /* For all tools of the plug-in. */
    AIErr (*GetToolSnapping)(SPPluginRef self, int32_t* kinds);
    /* kBadParameterErr: a bit that is none of the four. */
    AIErr (*SetToolSnapping)(SPPluginRef self, int32_t kinds);
} AICursorSnapSuite;

DESCRIBE_SUITE(AICursorSnapSuite)

#endif
