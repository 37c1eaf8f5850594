/* The annotator drawer suite: how an annotator draws its marks while it handles "AI Draw".
 *
 * Places are points of the document. Line widths, dashes and text sizes are screen units, for marks keep their size
 * when the view is zoomed. What is set holds for what is drawn after it, until the message ends; each message begins
 * with opaque black, a solid line of width 1, and text of size 12.
 *
 * Every operation returns kUnknownHandleErr when the context is not the one of the message being handled, and
 * kBadParameterErr when a number is not finite or not in its range. */
#ifndef HOSTAPI_AIANNOTATORDRAWERSUITE_H
#define HOSTAPI_AIANNOTATORDRAWERSUITE_H

#include "hostapi/AIAnnotatorSuite.h"
#include "hostapi/AIPathStyleSuite.h"

#define kAIAnnotatorDrawerSuite "AI Annotator Drawer Suite"
#define kAIAnnotatorDrawerSuiteVersion 8

typedef struct AIAnnotatorDrawerSuite {
    AIErr (*SetColor)(AIDrawingContextHandle context, const AIColor* color);
    /* 0 (nothing to be seen) to 1. */
    AIErr (*SetOpacity)(AIDrawingContextHandle context, AIReal opacity);
    /* Greater than 0. */
    AIErr (*SetLineWidth)(AIDrawingContextHandle context, AIReal width);
    /* The length of every dash and of the gap after it; 0 is a solid line. */
    AIErr (*SetLineDash)(AIDrawingContextHandle context, AIReal length);
    /* Greater than 0. */
    AIErr (*SetFontSize)(AIDrawingContextHandle context, AIReal size);

    AIErr (*DrawLine)(AIDrawingContextHandle context, const AIRealPoint* from, const AIRealPoint* to);
    /* Each of these is either filled or outlined. */
    AIErr (*DrawRect)(AIDrawingContextHandle context, const AIRealRect* rect, AIBoolean filled);
    AIErr (*DrawEllipse)(AIDrawingContextHandle context, const AIRealRect* bounds, AIBoolean filled);
    /* Closed, with at least two corners. */
    AIErr (*DrawPolygon)(AIDrawingContextHandle context, const AIRealPoint* corners, int32_t count, AIBoolean filled);
    /* One line of text, whose baseline begins at `position`. */
    AIErr (*DrawText)(AIDrawingContextHandle context, const char* text, const AIRealPoint* position);
} AIAnnotatorDrawerSuite;

DESCRIBE_SUITE(AIAnnotatorDrawerSuite)

#endif
