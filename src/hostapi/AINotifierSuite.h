/* The notifier suite and its message: what happens in the host, told to whoever asked. */
#ifndef HOSTAPI_AINOTIFIERSUITE_H
#define HOSTAPI_AINOTIFIERSUITE_H

#include "hostapi/SPMessages.h"

#define kAINotifierSuite "AI Notifier Suite"
#define kAINotifierSuiteVersion 5

#define kCallerAINotify "AI Notifier"
#define kSelectorAINotify "AI Notify"

#define kAIApplicationStartedNotifier "AI Application Started Notifier"
#define kAIApplicationShutdownNotifier "AI Application Shutdown Notifier"
#define kAIAllPluginsStartedNotifier "AI All Plug-ins Started Notifier"
#define kAIAllPluginsStoppingNotifier "AI All Plug-ins Stopping Notifier"
#define kAIDocumentNewNotifier "AI Document New Notifier"
#define kAIDocumentOpenedNotifier "AI Document Opened Notifier"
#define kAIDocumentSavedNotifier "AI Document Saved Notifier"
#define kAIDocumentAboutToCloseNotifier "AI Document About To Close Notifier"
#define kAIDocumentClosedNotifier "AI Document Closed Notifier"
#define kAIUIBrightnessChangedNotifier "AI UI Brightness Changed Notifier"
#define kAIToolSelectedNotifier "AI Tool Selected Notifier"
#define kAIToolDeselectedNotifier "AI Tool Deselected Notifier"

#define kAIDocumentWritePreprocessNotifier "AI Document Write Preprocess Notifier"
#define kAIDocumentWritePostprocessNotifier "AI Document Write Postprocess Notifier"
#define kAIDocumentChangedNotifier "AI Document Changed Notifier"
#define kAIDocumentViewChangedNotifier "AI Document View Changed Notifier"
#define kAIInvalidateByScrollNotifier "AI Invalidate By Scroll Notifier"
#define kAIArtSelectionChangedNotifier "AI Art Selection Changed Notifier"
#define kAIArtPropertiesChangedNotifier "AI Art Properties Changed Notifier"
#define kAIUpdatePathStyleNotifier "AI Update PathStyle Notifier"
#define kAIXMLNameChangedNotifier "AI XML Name Changed Notifier"
#define kAICurrentLayerNotifier "AI Current Layer Notifier"
#define kAILayerSetNotifier "AI Layer Set Notifier"
#define kAILayerOptionsNotifier "AI Layer Options Notifier"
#define kAILayerDeletionNotifier "AI Layer Deletion Notifier"
#define kAIUserToolChangedNotifier "AI User Tool Changed Notifier"
#define kAIToolTitleChangedNotifier "AI Tool Title Changed Notifier"
#define kAIToolTooltipChangedNotifier "AI Tool Tooltip Changed Notifier"
#define kAIToolChangedNotifier "AI Tool Changed Notifier"
#define kAIToolWindowChangedNotifier "AI Tool Window Changed Notifier"
#define kAIToolModifiersChangedNotifier "AI Tool Modifiers Changed Notifier"
#define kAIMenuChangedNotifier "AI Menu Changed Notifier"

typedef struct AINotifierMessage {
    SPMessageData d;
    AINotifierHandle notifier;
    const char* type;
} AINotifierMessage;

typedef struct AINotifierSuite {
    /* Subscribes the plug-in to events of `type`; `name` only labels the subscription. */
    AIErr (*AddNotifier)(SPPluginRef self, const char* name, const char* type, AINotifierHandle* notifier);
    /* Ends a subscription. */
    AIErr (*RemoveNotifier)(AINotifierHandle notifier);
} AINotifierSuite;

DESCRIBE_SUITE(AINotifierSuite)

#endif
