/* The tool suite: tools in the toolbox. */
#ifndef HOSTAPI_AITOOLSUITE_H
#define HOSTAPI_AITOOLSUITE_H

#include "hostapi/AITool.h"

#define kAIToolSuite "AI Tool Suite"
#define kAIToolSuiteVersion 10

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
