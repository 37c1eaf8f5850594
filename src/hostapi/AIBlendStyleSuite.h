/* The blend style suite: how art mixes with what lies below it. */
#ifndef HOSTAPI_AIBLENDSTYLESUITE_H
#define HOSTAPI_AIBLENDSTYLESUITE_H

#include "hostapi/SPTypes.h"

#define kAIBlendStyleSuite "AI Blend Style Suite"
#define kAIBlendStyleSuiteVersion 5

enum {
    kAINormalBlending = 0,
    kAIMultiplyBlending = 1,
    kAIScreenBlending = 2,
    kAIOverlayBlending = 3,
    kAISoftLightBlending = 4,
    kAIHardLightBlending = 5,
    kAIColorDodgeBlending = 6,
    kAIColorBurnBlending = 7,
    kAIDarkenBlending = 8,
    kAILightenBlending = 9,
    kAIDifferenceBlending = 10,
    kAIExclusionBlending = 11,
    kAIHueBlending = 12,
    kAISaturationBlending = 13,
    kAIColorBlending = 14,
    kAILuminosityBlending = 15
};

/* Whether what a group holds shows through what it holds above that. */
enum { kAIKnockoutOff = 0, kAIKnockoutOn = 1, kAIKnockoutInherit = 2 };

typedef struct AIBlendStyleSuite {
    AIErr (*GetBlendingMode)(AIArtHandle art, int16_t* mode);
    AIErr (*SetBlendingMode)(AIArtHandle art, int16_t mode); /* kBadParameterErr: no such mode */
    AIErr (*GetOpacity)(AIArtHandle art, AIReal* opacity);   /* 0 to 1 */
    AIErr (*SetOpacity)(AIArtHandle art, AIReal opacity);    /* kBadParameterErr: beyond that */
    AIErr (*GetKnockout)(AIArtHandle art, int16_t* knockout);
    /* On or off: that of the nearest around the art that does not inherit it. */
    AIErr (*GetInheritedKnockout)(AIArtHandle art, int16_t* knockout);
    AIErr (*SetKnockout)(AIArtHandle art, int16_t knockout); /* kBadParameterErr: no such kind */
} AIBlendStyleSuite;

DESCRIBE_SUITE(AIBlendStyleSuite)

#endif
