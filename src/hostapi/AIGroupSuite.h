/* The group suite: clip groups, of which only what lies inside a mask shows. */
#ifndef HOSTAPI_AIGROUPSUITE_H
#define HOSTAPI_AIGROUPSUITE_H

#include "hostapi/SPTypes.h"

#define kAIGroupSuite "AI Group Suite"
#define kAIGroupSuiteVersion 3

typedef struct AIGroupSuite {
    /* kBadParameterErr, of both: art that is no group. */
    AIErr (*GetGroupClipped)(AIArtHandle group, AIBoolean* clipped);
    /* Makes the topmost object of the group, a path or a compound path, its mask: that is no object of the tree from
     * then on, until the group is a plain one again. Then each shape of the mask is the topmost object in turn, without
     * paint. kRefusedErr: the group of a layer; there is no such object. */
    AIErr (*SetGroupClipped)(AIArtHandle group, AIBoolean clipped);
} AIGroupSuite;

DESCRIBE_SUITE(AIGroupSuite)

#endif
