/* The art style suite: all that makes up the look of an object. Of a group, the paint is that of its topmost path, and
 * setting it paints every path in it. */
#ifndef HOSTAPI_AIARTSTYLESUITE_H
#define HOSTAPI_AIARTSTYLESUITE_H

#include "hostapi/AIBlendStyleSuite.h"
#include "hostapi/AIPathStyleSuite.h"

#define kAIArtStyleSuite "AI Art Style Suite"
#define kAIArtStyleSuiteVersion 9

typedef struct AIArtStyle {
    AIPathStyle paint;
    AIReal opacity;
    int16_t blendingMode;
    int16_t knockout;
} AIArtStyle;

typedef struct AIArtStyleSuite {
    /* kBadParameterErr: a value out of its range. */
    AIErr (*GetArtStyle)(AIArtHandle art, AIArtStyle* style);
    AIErr (*SetArtStyle)(AIArtHandle art, const AIArtStyle* style);
    /* Whether the object is blended in another way than art is at first. */
    AIErr (*IsArtStyled)(AIArtHandle art, AIBoolean* styled);
    /* Whether it or anything in it is painted so. */
    AIErr (*ArtHasFill)(AIArtHandle art, AIBoolean* any);
    AIErr (*ArtHasStroke)(AIArtHandle art, AIBoolean* any);
    /* Whether the middle of its bounds shows as a point. */
    AIErr (*GetCenterPointVisible)(AIArtHandle art, AIBoolean* visible);
    AIErr (*SetCenterPointVisible)(AIArtHandle art, AIBoolean visible);
} AIArtStyleSuite;

DESCRIBE_SUITE(AIArtStyleSuite)

#endif
