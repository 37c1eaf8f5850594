/* The interface suite: messages from one plug-in to another. */
#ifndef HOSTAPI_SPINTERFACESUITE_H
#define HOSTAPI_SPINTERFACESUITE_H

#include "hostapi/SPMessages.h"

#define kSPInterfaceSuite "SP Interface Suite"
#define kSPInterfaceSuiteVersion 3

typedef struct SPInterfaceSuite {
    /* Sends a message to `plugin` and answers in `result` what its entry answered. The host fills the record's head.
     * kBadParameterErr: a null caller, selector, record or result. kRefusedErr: the plug-in is broken. */
    SPErr (*SendMessage)(SPPluginRef plugin, const char* caller, const char* selector, SPMessageData* message,
                         SPErr* result);
} SPInterfaceSuite;

#endif
