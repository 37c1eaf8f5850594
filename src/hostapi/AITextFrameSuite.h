/* The text frame suite: text as art. */
#ifndef HOSTAPI_AITEXTFRAMESUITE_H
#define HOSTAPI_AITEXTFRAMESUITE_H

#include "hostapi/AIPathStyleSuite.h"
#include "hostapi/SPTypes.h"

#define kAITextFrameSuite "AI Text Frame Suite"
#define kAITextFrameSuiteVersion 5

enum { kAILeftJustification = 0, kAIRightJustification = 1, kAICenterJustification = 2 };

/* One line of text: its baseline starts, ends or has its middle at the anchor. */
typedef struct AIPointText {
    const char* contents;
    const char* font; /* a family's name; empty for the host's default */
    AIReal size;      /* points */
    int16_t justification;
    AIPathStyle paint;
    AIRealPoint anchor;
} AIPointText;

typedef struct AITextFrameSuite {
    /* Makes point text. kBadParameterErr: no contents, a text that is not UTF-8 or has control characters, a size that
     * is not positive, a coordinate that is not finite, a paint or a paint order that is refused elsewhere too. */
    AIErr (*NewPointText)(int16_t paintOrder, AIArtHandle prep, const AIPointText* text, AIArtHandle* newText);
} AITextFrameSuite;

DESCRIBE_SUITE(AITextFrameSuite)

#endif
