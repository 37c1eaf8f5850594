/* The interface suite: messages from one plug-in to another. */
#ifndef HOSTAPI_SPINTERFACESUITE_H
#define HOSTAPI_SPINTERFACESUITE_H

#include "hostapi/SPMessages.h"

#define kSPInterfaceSuite "SP Interface Suite"
#define kSPInterfaceSuiteVersion 3

typedef struct SPInterfaceSuite {
    /* Fills the record's head in for messages to `plugin`. */
    SPErr (*SetUpMessageData)(SPPluginRef plugin, SPMessageData* message);
    /* Empties the head again. kBadParameterErr: it was not filled in for `plugin`. */
    SPErr (*EmptyMessageData)(SPPluginRef plugin, SPMessageData* message);
    /* Sends a message to `plugin` and returns in `result` what its entry returned. Of the record's head the receiver
     * sees `globals` as the sender left it, and the sender what the receiver did; the rest is the host's.
     * kBadParameterErr: a null caller, selector, record or result. kRefusedErr: the plug-in is not running, or,
     * in `result`, when 100 messages are being handled, one inside of the other. */
    SPErr (*SendMessage)(SPPluginRef plugin, const char* caller, const char* selector, SPMessageData* message,
                         SPErr* result);
} SPInterfaceSuite;

DESCRIBE_SUITE(SPInterfaceSuite)

#endif
