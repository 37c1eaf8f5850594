/* The plug-in group suite: kinds of custom art that a plug-in looks after. */
#ifndef HOSTAPI_AIPLUGINGROUPSUITE_H
#define HOSTAPI_AIPLUGINGROUPSUITE_H

#include "hostapi/SPTypes.h"

#define kAIPluginGroupSuite "AI Plugin Group Suite"
#define kAIPluginGroupSuiteVersion 1006

typedef struct AIPluginGroupSuite {
    /* Registers a kind of custom art under `name`. `options` is kept as it is. kBadParameterErr: the name is taken. */
    AIErr (*AddAIPluginGroup)(SPPluginRef self, const char* name, int32_t options, AIPluginGroupHandle* group);
    /* Makes plug-in group art that the plug-in looks after: a group of two, what shows and, hidden, what is edited.
     * kBadParameterErr: a paint order that the prepositional art does not allow. */
    AIErr (*NewPluginArt)(SPPluginRef self, int16_t paintOrder, AIArtHandle prep, AIArtHandle* art);
    /* The name of the plug-in that looks after it. kBadParameterErr, of this and of the next: art of another kind. */
    AIErr (*GetPluginArtPluginName)(AIArtHandle art, const char** name);
    AIErr (*GetPluginArtName)(AIArtHandle art, const char** name);
    AIErr (*SetPluginArtName)(AIArtHandle art, const char* name);
    /* The group of what is edited, and that of what shows; null when it has been removed. */
    AIErr (*GetPluginArtEditArt)(AIArtHandle art, AIArtHandle* edit);
    AIErr (*GetPluginArtResultArt)(AIArtHandle art, AIArtHandle* result);
} AIPluginGroupSuite;

DESCRIBE_SUITE(AIPluginGroupSuite)

#endif
