/* The path suite: anchors and their control points.
 *
 * A host "segment" is one anchor with its two control points. kBadParameterErr from any operation: the art is not a
 * path. */
#ifndef HOSTAPI_AIPATHSUITE_H
#define HOSTAPI_AIPATHSUITE_H

#include "hostapi/SPTypes.h"

#define kAIPathSuite "AI Path Suite"
#define kAIPathSuiteVersion 9

typedef struct AIPathSegment {
    AIRealPoint p;    /* the anchor */
    AIRealPoint in;   /* control point towards the previous anchor */
    AIRealPoint out;  /* control point towards the next anchor */
    AIBoolean corner; /* the two handles turn independently */
} AIPathSegment;

/* What is selected of a point: its anchor, and its control points with the curves that they shape. A bit set. */
enum { kAIInControlSelected = 2, kAIOutControlSelected = 4, kAIAnchorSelected = 8 };

typedef struct AIPathSuite {
    AIErr (*GetPathSegmentCount)(AIArtHandle path, int16_t* count);
    /* Cuts points off at the end, or appends corner points at the origin. kBadParameterErr: a negative count. */
    AIErr (*SetPathSegmentCount)(AIArtHandle path, int16_t count);
    /* Reads or overwrites `count` points from `index`. kBadParameterErr: any of them does not exist, or, writing, a
     * coordinate is not finite. */
    AIErr (*GetPathSegments)(AIArtHandle path, int16_t index, int16_t count, AIPathSegment* segments);
    AIErr (*SetPathSegments)(AIArtHandle path, int16_t index, int16_t count, const AIPathSegment* segments);
    AIErr (*GetPathClosed)(AIArtHandle path, AIBoolean* closed);
    AIErr (*SetPathClosed)(AIArtHandle path, AIBoolean closed);
    /* Turns the path's direction round: the last point becomes the first, and handles change sides. */
    AIErr (*ReversePathSegments)(AIArtHandle path);
    /* Arc length in points; each curve is measured to at least `flatness`. */
    AIErr (*GetPathLength)(AIArtHandle path, AIReal* length, AIReal flatness);
    /* Puts `count` points before that at `index`, or at the end, or takes them out; what is selected stays with its
     * point. kBadParameterErr: there is no such place, a point does not exist, the path would have more than 32767, or
     * a coordinate is not finite. */
    AIErr (*InsertPathSegments)(AIArtHandle path, int16_t index, int16_t count, const AIPathSegment* segments);
    AIErr (*DeletePathSegments)(AIArtHandle path, int16_t index, int16_t count);
    /* What is selected of a point, the bits above. kBadParameterErr: it does not exist, or there is no such bit. */
    AIErr (*GetPathSegmentSelected)(AIArtHandle path, int16_t index, int16_t* selected);
    AIErr (*SetPathSegmentSelected)(AIArtHandle path, int16_t index, int16_t selected);
    AIErr (*GetPathAllSegmentsSelected)(AIArtHandle path, AIBoolean* all);
    /* Whether the path is a guide, which is never printed. */
    AIErr (*GetPathGuide)(AIArtHandle path, AIBoolean* guide);
} AIPathSuite;

DESCRIBE_SUITE(AIPathSuite)

#endif
