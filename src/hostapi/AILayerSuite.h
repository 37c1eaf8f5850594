/* The layer suite: the current document's layers. Layer 0 is the topmost. */
#ifndef HOSTAPI_AILAYERSUITE_H
#define HOSTAPI_AILAYERSUITE_H

#include "hostapi/SPTypes.h"

#define kAILayerSuite "AI Layer Suite"
#define kAILayerSuiteVersion 6

typedef struct AILayerSuite {
    AIErr (*CountLayers)(int32_t* count);
    /* kBadParameterErr: no layer has this index. */
    AIErr (*GetNthLayer)(int32_t index, AILayerHandle* layer);
    AIErr (*GetNextLayer)(AILayerHandle layer, AILayerHandle* next); /* null after the last */
    AIErr (*GetCurrentLayer)(AILayerHandle* layer);
    AIErr (*SetCurrentLayer)(AILayerHandle layer);
    AIErr (*GetLayerTitle)(AILayerHandle layer, const char** title);
    AIErr (*GetLayerVisible)(AILayerHandle layer, AIBoolean* visible);
    AIErr (*GetLayerEditable)(AILayerHandle layer, AIBoolean* editable);
    /* Whether any art of the layer is selected. */
    AIErr (*LayerHasSelectedArt)(AILayerHandle layer, AIBoolean* any);
    AIErr (*DeselectLayerArt)(AILayerHandle layer);
    AIErr (*GetLayerOfArt)(AIArtHandle art, AILayerHandle* layer);
} AILayerSuite;

DESCRIBE_SUITE(AILayerSuite)

#endif
