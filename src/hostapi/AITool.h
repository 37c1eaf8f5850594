/* Tools in the toolbox: their options, and the messages of what the mouse does while one is current. */
#ifndef HOSTAPI_AITOOL_H
#define HOSTAPI_AITOOL_H

#include "hostapi/SPMessages.h"

#define kCallerAITool "AI Tool"
#define kSelectorAIEditToolOptions "AI Edit Options"
#define kSelectorAITrackToolCursor "AI Track Cursor"
#define kSelectorAIToolMouseDown "AI Mouse Down"
#define kSelectorAIToolMouseDrag "AI Mouse Drag"
#define kSelectorAIToolMouseUp "AI Mouse Up"
#define kSelectorAISelectTool "AI Select"
#define kSelectorAIReselectTool "AI Reselect"
#define kSelectorAIDeselectTool "AI Deselect"
#define kSelectorAIDecreaseDiameter "AI Decrease Diameter"
#define kSelectorAIIncreaseDiameter "AI Increase Diameter"

/* Tool options, a bit set. */
enum {
    kToolWantsToTrackCursorOption = 1, /* "AI Track Cursor" is sent while the mouse moves with no button down */
    /* Before each drag message and before the mouse-up the document is put back to where it stood when the mouse-down
     * had been handled; what press and release leave is one undo step. */
    kToolWantsBufferedDraggingOption = 32
};

/* In a group or tool set number: open a new one. */
enum { kNoToolNumber = -2 };

/* Flags of "AI Mouse Up". */
enum {
    /* The gesture is taken back instead of ended: by Escape, by the choice of another tool, with its document. The
     * document goes back to before the press, with whatever the plug-in does in this message. */
    kAIGestureTakenBack = 1
};

/* What a tool returns from a press that draws nothing: the current layer is locked, or hidden. */
enum { kAILayerNotEditableRemark = 1000, kAILayerNotVisibleRemark = 1001 };

/* Every tool message. A result other than 0 is a remark that the host may log, never a failure. */
typedef struct AIToolMessage {
    SPMessageData d;
    AIToolHandle tool;
    AIRealPoint cursor; /* where the pointer is, after snapping; on return, where the tool holds it */
    uint32_t modifiers; /* kAIShiftKey ... */
    uint32_t flags;     /* kAIGestureTakenBack; 0 in all messages but "AI Mouse Up" */
} AIToolMessage;

typedef struct AIAddToolData {
    const char* title;
    const char* tooltip;
    int16_t groupNumber;   /* number of a tool whose group to join, or kNoToolNumber */
    int16_t toolsetNumber; /* number of a tool whose slot to share, or kNoToolNumber */
    int16_t lightIconID;   /* PNG resources of the plug-in for a light and a dark interface */
    int16_t darkIconID;
} AIAddToolData;

#endif
