/* The undo suite: what becomes of the changes that the running message makes. */
#ifndef HOSTAPI_AIUNDOSUITE_H
#define HOSTAPI_AIUNDOSUITE_H

#include "hostapi/SPTypes.h"

#define kAIUndoSuite "AI Undo Suite"
#define kAIUndoSuiteVersion 8

enum {
    kAIStandardUndoContext = 0, /* a step of their own */
    kAISilentUndoContext = 1,   /* no step; undone together with the step before */
    kAIAppendUndoContext = 2    /* part of the last step */
};

typedef struct AIUndoSuite {
    AIErr (*SetKind)(int32_t kind);
    /* Takes back what the running message has changed so far, and in a gesture with buffered dragging what it has
     * changed since the document was last put back. */
    AIErr (*UndoChanges)(void);
} AIUndoSuite;

DESCRIBE_SUITE(AIUndoSuite)

#endif
