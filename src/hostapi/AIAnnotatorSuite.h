/* The annotator suite and its messages: marks that a plug-in lays over a view. They are no part of the document.
 *
 * A host keeps the marks last drawn until their place becomes invalid: when the plug-in says so (InvalAnnotationRect),
 * and when another document is shown. Marks are drawn anew while the view is drawn, never at once. */
#ifndef HOSTAPI_AIANNOTATORSUITE_H
#define HOSTAPI_AIANNOTATORSUITE_H

#include "hostapi/SPMessages.h"

#define kAIAnnotatorSuite "AI Annotator Suite"
#define kAIAnnotatorSuiteVersion 6

#define kCallerAIAnnotation "AI Annotation"
#define kSelectorAIDrawAnnotation "AI Draw"
#define kSelectorAIInvalAnnotation "AI Invalidate"

/* "AI Invalidate" is sent when the document or the view has changed and the view is about to be drawn, so that the
 * plug-in can invalidate its marks. "AI Draw" is sent when something is invalid: the annotator draws, with
 * AIAnnotatorDrawerSuite, at least all that meets one of the rectangles. These hold every mark that it drew the last
 * time, so that one that draws all it has draws nothing twice. Neither message may change a document: what tries to
 * returns kRefusedErr. Both go to active annotators only. */
typedef struct AIAnnotatorMessage {
    SPMessageData d;
    AIAnnotatorHandle annotator;
    AIDrawingContextHandle context; /* where to draw, valid while the message is handled; null in "AI Invalidate" */
    AIDocumentViewHandle view;
    AIBoolean triggeredByDragScroll; /* the view has been scrolled with the mouse button down */
    AIBoolean showEdges;             /* the view shows the outlines of what is selected */
    int32_t invalidationRectCount;   /* 0 in "AI Invalidate" */
    const AIRealRect* invalidationRects;
} AIAnnotatorMessage;

typedef struct AIAnnotatorSuite {
    /* Adds an active annotator, all of whose marks are invalid; `name` only labels it. */
    AIErr (*AddAnnotator)(SPPluginRef self, const char* name, AIAnnotatorHandle* annotator);
    /* Takes its marks away too. */
    AIErr (*RemoveAnnotator)(AIAnnotatorHandle annotator);
    AIErr (*GetAnnotatorName)(AIAnnotatorHandle annotator, const char** name);
    AIErr (*GetAnnotatorActive)(AIAnnotatorHandle annotator, AIBoolean* active);
    /* The marks of an annotator go when it becomes inactive; all are invalid when it becomes active. */
    AIErr (*SetAnnotatorActive)(AIAnnotatorHandle annotator, AIBoolean active);
    /* A bit set, which the host keeps as it is. */
    AIErr (*GetAnnotatorOptions)(AIAnnotatorHandle annotator, int32_t* options);
    AIErr (*SetAnnotatorOptions)(AIAnnotatorHandle annotator, int32_t options);
    /* Makes the marks of all annotators in this rectangle of the document invalid, or in all of the view if it is null.
     * A null view means the first. kBadParameterErr: an edge is not finite; kNoDocumentErr. */
    AIErr (*InvalAnnotationRect)(AIDocumentViewHandle view, const AIRealRect* rect);
} AIAnnotatorSuite;

DESCRIBE_SUITE(AIAnnotatorSuite)

#endif
