/* The document suite: the document in front. */
#ifndef HOSTAPI_AIDOCUMENTSUITE_H
#define HOSTAPI_AIDOCUMENTSUITE_H

#include "hostapi/SPTypes.h"

#define kAIDocumentSuite "AI Document Suite"
#define kAIDocumentSuiteVersion 15

typedef struct AIDocumentSuite {
    /* kNoDocumentErr: none is open. */
    AIErr (*GetDocument)(AIDocumentHandle* document);
} AIDocumentSuite;

DESCRIBE_SUITE(AIDocumentSuite)

#endif
