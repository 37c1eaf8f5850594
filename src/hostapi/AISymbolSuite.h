/* The symbol suite: art that the document keeps under a name, and uses of it. */
#ifndef HOSTAPI_AISYMBOLSUITE_H
#define HOSTAPI_AISYMBOLSUITE_H

#include "hostapi/SPTypes.h"

#define kAISymbolSuite "AI Symbol Suite"
#define kAISymbolSuiteVersion 13

typedef struct AISymbolSuite {
    AIErr (*CountSymbols)(int32_t* count);
    /* kBadParameterErr: no symbol with that number, from 0. */
    AIErr (*GetNthSymbol)(int32_t index, const char** name);
    /* Makes a symbol of a copy of the art, under a new name. kRefusedErr: there is something in the art of which the
     * host can make no copy. */
    AIErr (*NewSymbol)(AIArtHandle art, const char** name);
    /* Makes art that shows the symbol where it was made. kBadParameterErr: no symbol of this name, or a paint order
     * that the prepositional art does not allow. */
    AIErr (*NewInstance)(const char* name, int16_t paintOrder, AIArtHandle prep, AIArtHandle* instance);
    /* The symbol that the art shows. kBadParameterErr: art that is no instance; no symbol of this name. */
    AIErr (*GetSymbolOfArt)(AIArtHandle instance, const char** name);
    AIErr (*SetSymbolOfArt)(AIArtHandle instance, const char* name);
    /* After the message, the symbol is in front as a document of its own; and after the one in which the mode is left,
     * the document is back, and all instances show what has been made of it, as one step. kRefusedErr: no symbol of
     * this name that can be edited, or none is. */
    AIErr (*EnterSymbolEditMode)(const char* name);
    AIErr (*ExitSymbolEditMode)(void);
    /* Empty when none is. */
    AIErr (*GetEditedSymbol)(const char** name);
} AISymbolSuite;

DESCRIBE_SUITE(AISymbolSuite)

#endif
