/* The path style suite: fill and stroke of a path. */
#ifndef HOSTAPI_AIPATHSTYLESUITE_H
#define HOSTAPI_AIPATHSTYLESUITE_H

#include "hostapi/SPTypes.h"

#define kAIPathStyleSuite "AI Path Style Suite"
#define kAIPathStyleSuiteVersion 11

enum { kAIButtCap = 0, kAIRoundCap = 1, kAIProjectingCap = 2 };
enum { kAIMiterJoin = 0, kAIRoundJoin = 1, kAIBevelJoin = 2 };
enum { kAICenterStroke = 0, kAIInsideStroke = 1, kAIOutsideStroke = 2 };
enum { kMaxDashComponents = 6 };

/* Red, green and blue, each 0 to 1. */
typedef struct AIColor {
    AIReal red;
    AIReal green;
    AIReal blue;
} AIColor;

/* Lengths of dashes and gaps in turn, in points; a length of 0 means a solid line. */
typedef struct AIDashStyle {
    int16_t length;
    AIReal offset;
    AIReal array[kMaxDashComponents];
} AIDashStyle;

typedef struct AIPathStyle {
    AIBoolean fillPaint;
    AIBoolean strokePaint;
    AIBoolean fillOverprint; /* printed over what lies below, not in place of it */
    AIBoolean strokeOverprint;
    AIColor fillColor;
    AIColor strokeColor;
    AIReal strokeWidth; /* points */
    AIReal miterLimit;  /* ratio, at least 1 */
    int16_t cap;
    int16_t join;
    AIDashStyle dash;
} AIPathStyle;

typedef struct AIPathStyleSuite {
    AIErr (*GetPathStyle)(AIArtHandle path, AIPathStyle* style);
    /* kBadParameterErr: a value out of its range. */
    AIErr (*SetPathStyle)(AIArtHandle path, const AIPathStyle* style);
    /* Of new paths in the current document. */
    AIErr (*GetInitialPathStyle)(AIPathStyle* style);
    AIErr (*SetInitialPathStyle)(const AIPathStyle* style);
    /* Of the topmost selected path of the current document; setting it paints every selected path. kRefusedErr: none
     * is selected. */
    AIErr (*GetCurrentPathStyle)(AIPathStyle* style);
    AIErr (*SetCurrentPathStyle)(const AIPathStyle* style);
    /* Where the stroke lies; other paints of the path stay as they are, as does this when they are set. */
    AIErr (*SetStrokeAlignment)(AIArtHandle path, int16_t alignment);
} AIPathStyleSuite;

DESCRIBE_SUITE(AIPathStyleSuite)

#endif
