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
#define kAIToolSelectedNotifier "AI Tool Selected Notifier"
#define kAIToolDeselectedNotifier "AI Tool Deselected Notifier"

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

#endif
