/* The hit test suite: what lies under a point. */
#ifndef HOSTAPI_AIHITTESTSUITE_H
#define HOSTAPI_AIHITTESTSUITE_H

#include "hostapi/SPTypes.h"

#define kAIHitTestSuite "AI Hit Test Suite"
#define kAIHitTestSuiteVersion 5

/* What to look for, a bit set. */
enum {
    kAIAnchorHitRequest = 1,
    kAIInHandleHitRequest = 2,
    kAIOutHandleHitRequest = 4,
    kAISegmentHitRequest = 8,
    kAIFillHitRequest = 16,
    kAIGuideHitRequest = 65536
};

enum { kAINoHit = 0, kAIAnchorHit = 1, kAIInHandleHit = 2, kAIOutHandleHit = 3, kAISegmentHit = 4, kAIFillHit = 5 };

typedef struct AIHitRecord {
    int32_t type;             /* kAINoHit ...; the fields below mean nothing after kAINoHit */
    AIArtHandle art;          /* the art that owns the feature, never a group around it */
    AIRealPoint point;        /* the nearest point of the feature; for a fill, the point tested */
    AIReal t;                 /* curve parameter on a segment, 0 to 1 */
    int16_t segment;          /* index of the anchor, or of the anchor that starts the segment; -1 for a fill */
    AIBoolean inGroup;        /* the art is inside a group other than its layer's */
    AITextRangeRef textRange; /* the text at the point, where text was hit; else null, as always from a host whose text
                                 is not edited */
} AIHitRecord;

typedef struct AIHitTestSuite {
    /* Finds the feature at `point` within `tolerance` (points, at least 0) among `art` and all it holds; a null art
     * means the whole document. The kind of feature decides first (anchor, handle, segment, fill), then distance, then
     * paint order. Hidden and locked art is passed over. Nothing found is a success with kAINoHit. */
    AIErr (*HitTest)(AIArtHandle art, const AIRealPoint* point, AIReal tolerance, int32_t request, AIHitRecord* hit);
    /* The same, but paint order decides first, then the kind of feature, then distance: for whoever goes through a
     * stack from its top. */
    AIErr (*HitTestTopmost)(AIArtHandle art, const AIRealPoint* point, AIReal tolerance, int32_t request,
                            AIHitRecord* hit);
} AIHitTestSuite;

DESCRIBE_SUITE(AIHitTestSuite)

#endif
