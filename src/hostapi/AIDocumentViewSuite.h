/* The document view suite: what part of the current document the user sees, and how large. */
#ifndef HOSTAPI_AIDOCUMENTVIEWSUITE_H
#define HOSTAPI_AIDOCUMENTVIEWSUITE_H

#include "hostapi/SPTypes.h"

#define kAIDocumentViewSuite "AI Document View Suite"
#define kAIDocumentViewSuiteVersion 12

typedef struct AIDocumentViewSuite {
    AIErr (*CountDocumentViews)(int32_t* count);
    /* kBadParameterErr: no view has this index. */
    AIErr (*GetNthDocumentView)(int32_t index, AIDocumentViewHandle* view);
    /* The visible part of the document, in points. A null view means the first. */
    AIErr (*GetDocumentViewBounds)(AIDocumentViewHandle view, AIRealRect* bounds);
    AIErr (*GetDocumentViewCenter)(AIDocumentViewHandle view, AIRealPoint* center);
    AIErr (*SetDocumentViewCenter)(AIDocumentViewHandle view,
                                   const AIRealPoint* center);            /* kBadParameterErr: not finite */
    AIErr (*SetDocumentViewZoom)(AIDocumentViewHandle view, AIReal zoom); /* kBadParameterErr: not positive */
    /* Screen units a document point; 1 is actual size. A null view means the first. */
    AIErr (*GetDocumentViewZoom)(AIDocumentViewHandle view, AIReal* zoom);
} AIDocumentViewSuite;

DESCRIBE_SUITE(AIDocumentViewSuite)

#endif
