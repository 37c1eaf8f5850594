/* The text frame suite: text as art. */
#ifndef HOSTAPI_AITEXTFRAMESUITE_H
#define HOSTAPI_AITEXTFRAMESUITE_H

#include "hostapi/AIPathStyleSuite.h"
#include "hostapi/SPTypes.h"

#define kAITextFrameSuite "AI Text Frame Suite"
#define kAITextFrameSuiteVersion 5

enum { kAIHorizontalText = 0, kAIVerticalText = 1 };
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

/* A family's name, empty for the host's default, and a size in points. */
typedef struct AITextFont {
    const char* name;
    AIReal size;
} AITextFont;

typedef struct AITextFrameSuite {
    /* Makes point text. kBadParameterErr: no contents, a text that is not UTF-8 or has control characters, a size that
     * is not positive, a coordinate that is not finite, a paint or a paint order that is refused elsewhere too. */
    AIErr (*NewPointText)(int16_t paintOrder, AIArtHandle prep, const AIPointText* text, AIArtHandle* newText);
    /* Of a text with parts that look or lie otherwise than the rest, what its beginning is like; nothing of it can be
     * changed (kRefusedErr). kBadParameterErr, of all: art of another kind; what NewPointText refuses. */
    AIErr (*GetTextContents)(AIArtHandle text, const char** contents);
    AIErr (*SetTextContents)(AIArtHandle text, const char* contents);
    AIErr (*GetTextFont)(AIArtHandle text, AITextFont* font);
    AIErr (*SetTextFont)(AIArtHandle text, const AITextFont* font);
    AIErr (*GetTextJustification)(AIArtHandle text, int16_t* justification);
    AIErr (*SetTextJustification)(AIArtHandle text, int16_t justification);
    AIErr (*GetTextOrientation)(AIArtHandle text, int16_t* orientation);
    AIErr (*SetTextOrientation)(AIArtHandle text, int16_t orientation);
    AIErr (*GetTextPaint)(AIArtHandle text, AIPathStyle* paint);
    AIErr (*SetTextPaint)(AIArtHandle text, const AIPathStyle* paint);
    /* Where its anchor is now. */
    AIErr (*GetTextAnchor)(AIArtHandle text, AIRealPoint* anchor);
    /* Whether anything of it can be changed. */
    AIErr (*IsTextEditable)(AIArtHandle text, AIBoolean* editable);
} AITextFrameSuite;

DESCRIBE_SUITE(AITextFrameSuite)

#endif
