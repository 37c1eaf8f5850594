/* The tool suite and its messages: tools in the toolbox, and what the mouse does while one is current. */
#ifndef HOSTAPI_AITOOLSUITE_H
#define HOSTAPI_AITOOLSUITE_H

#include "hostapi/SPMessages.h"

#define kAIToolSuite "AI Tool Suite"
#define kAIToolSuiteVersion 10

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

typedef struct AIToolSuite {
    /* Adds a tool; `name` must be unique among all tools. Texts are copied. kBadParameterErr: the name is taken, or a
     * group or tool set number is no tool's. */
    AIErr (*AddTool)(SPPluginRef self, const char* name, const AIAddToolData* data, int32_t options,
                     AIToolHandle* tool);
    /* Takes a tool out of the toolbox. If it was current, the host's Selection Tool is from now on. kRefusedErr here
     * and in all that sets something: the tool is the host's own. */
    AIErr (*RemoveTool)(AIToolHandle tool);
    AIErr (*GetToolNumberFromHandle)(AIToolHandle tool, int16_t* number);
    /* The number of the tool with this unique name. kBadParameterErr: there is none. */
    AIErr (*GetToolNumberFromName)(const char* name, int16_t* number);
    AIErr (*GetToolName)(AIToolHandle tool, const char** name);
    AIErr (*GetToolTitle)(AIToolHandle tool, const char** title);
    AIErr (*SetToolTitle)(AIToolHandle tool, const char* title);
    AIErr (*GetTooltip)(AIToolHandle tool, const char** tip);
    AIErr (*SetTooltip)(AIToolHandle tool, const char* tip);
    AIErr (*GetToolOptions)(AIToolHandle tool, int32_t* options);
    AIErr (*SetToolOptions)(AIToolHandle tool, int32_t options);
    AIErr (*GetToolIconIDs)(AIToolHandle tool, int16_t* light, int16_t* dark);
    AIErr (*SetToolIconIDs)(AIToolHandle tool, int16_t light, int16_t dark);
    /* The current tool; there always is one. */
    AIErr (*GetSelectedTool)(AIToolHandle* tool);
    /* Makes `tool` current once the running message has been handled, unless it is already. */
    AIErr (*SetSelectedTool)(AIToolHandle tool);
} AIToolSuite;

DESCRIBE_SUITE(AIToolSuite)

#endif
