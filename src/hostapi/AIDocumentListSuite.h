/* The document list suite: the open documents, the one in front first. */
#ifndef HOSTAPI_AIDOCUMENTLISTSUITE_H
#define HOSTAPI_AIDOCUMENTLISTSUITE_H

#include "hostapi/SPTypes.h"

#define kAIDocumentListSuite "AI Document List Suite"
#define kAIDocumentListSuiteVersion 4

typedef struct AIDocumentListSuite {
    AIErr (*Count)(int32_t* count);
    AIErr (*GetNthDocument)(int32_t index, AIDocumentHandle* document); /* kBadParameterErr: there is none */
} AIDocumentListSuite;

DESCRIBE_SUITE(AIDocumentListSuite)

#endif
