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
    AIErr (*GetNextLayer)(AILayerHandle layer, AILayerHandle* next);   /* null after the last */
    AIErr (*GetPriorLayer)(AILayerHandle layer, AILayerHandle* prior); /* null before the first */
    AIErr (*GetLayerByTitle)(const char* title, AILayerHandle* layer); /* the topmost that is called so, or null */
    /* Makes an empty layer, which is current. kBadParameterErr: an order but above, below, above all and below all, or
     * the first two without a layer. */
    AIErr (*InsertLayer)(AILayerHandle prep, int16_t paintOrder, AILayerHandle* layer);
    AIErr (*ReorderLayer)(AILayerHandle layer, int16_t paintOrder, AILayerHandle prep);
    AIErr (*DeleteLayer)(AILayerHandle layer); /* kRefusedErr: the last one */
    AIErr (*GetCurrentLayer)(AILayerHandle* layer);
    AIErr (*SetCurrentLayer)(AILayerHandle layer);
    AIErr (*GetLayerTitle)(AILayerHandle layer, const char** title);
    AIErr (*SetLayerTitle)(AILayerHandle layer, const char* title);
    AIErr (*SetLayerVisible)(AILayerHandle layer, AIBoolean visible);
    AIErr (*SetLayerEditable)(AILayerHandle layer, AIBoolean editable);
    AIErr (*SelectLayerArt)(AILayerHandle layer);
    AIErr (*GetLayerVisible)(AILayerHandle layer, AIBoolean* visible);
    AIErr (*GetLayerEditable)(AILayerHandle layer, AIBoolean* editable);
    /* Whether any art of the layer is selected. */
    AIErr (*LayerHasSelectedArt)(AILayerHandle layer, AIBoolean* any);
    AIErr (*DeselectLayerArt)(AILayerHandle layer);
    AIErr (*GetLayerOfArt)(AIArtHandle art, AILayerHandle* layer);
} AILayerSuite;

DESCRIBE_SUITE(AILayerSuite)

#endif
