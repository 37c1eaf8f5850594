/* The names of the tools that a host brings itself. A plug-in places its own next to them; a host may lack some. */
#ifndef HOSTAPI_AITOOLNAMES_H
#define HOSTAPI_AITOOLNAMES_H

#define kAISelectionTool "Selection Tool"
#define kAIDirectSelectionTool "Direct Selection Tool"

static const char* const kAIBuiltinTools[] = {
    kAISelectionTool, kAIDirectSelectionTool, "Pen Tool",    "Type Tool",   "Line Segment Tool",
    "Rectangle Tool", "Ellipse Tool",         "Pencil Tool", "Rotate Tool", "Scale Tool",
    "Scissors Tool",  "Eyedropper Tool",      "Hand Tool",   "Zoom Tool",
};

enum { kAIBuiltinToolCount = sizeof kAIBuiltinTools / sizeof *kAIBuiltinTools };

#endif
