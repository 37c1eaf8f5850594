/* The stage suite: services of the platform, played by a host that runs without a display. */
#ifndef HOSTAPI_STAGESUITE_H
#define HOSTAPI_STAGESUITE_H

#include "hostapi/Stage.h"

#define kStageSuite "Stage Suite"
#define kStageSuiteVersion 1

typedef struct StageSuite {
    /* The modifier keys held now, kAIShiftKey ... */
    AIErr (*GetModifiers)(uint32_t* modifiers);
    /* Shows the host's cursor of this number until another is set. */
    AIErr (*SetCursor)(int32_t number);
    /* Shows the PNG picture of this number among the plug-in's resources until another cursor is set. kBadParameterErr:
     * the resource 0, a hot spot that is not finite, a scale that is not above 0. */
    AIErr (*SetCursorImage)(SPPluginRef plugin, int16_t resource, const AIRealPoint* hotSpot, AIReal scale);
    /* The cursor that shows. */
    AIErr (*GetCursor)(StageCursor* cursor);
    /* Pixels for a screen unit on the display that shows the current document. kNoDocumentErr: none is open. */
    AIErr (*GetDisplayScale)(AIReal* scale);
    /* Of the interface, 0 dark to 1 light. A notifier tells of changes. */
    AIErr (*GetBrightness)(AIReal* brightness);
    /* Where the mouse pointer is on the screen. kNoDocumentErr: no document is open. */
    AIErr (*GetPointerLocation)(AIRealPoint* location);
    /* Has the user press or release the mouse button at a place of the screen, with the modifier keys held then. It
     * happens once the message being handled is through, in the order of posting. What cannot happen then, such as a
     * press without a document, is dropped, and the host reports it. kBadParameterErr: another event, or a place that
     * is not finite. */
    AIErr (*PostMouseEvent)(int32_t event, const AIRealPoint* location);
    /* Whether the plug-in is sent input messages; at first it is not. */
    AIErr (*MonitorInput)(SPPluginRef self, AIBoolean monitor);
    /* Has the host note a line under the plug-in's name where it notes what goes wrong. */
    AIErr (*Log)(SPPluginRef self, const char* line);
    /* Shows an alert with one to three buttons, of which the first is the default and Escape chooses the last, and
     * waits for the user: `chosen` counts from 0. Where nobody is there to be `asked` it is the default.
     * kBadParameterErr: another kind, or another number of buttons. */
    AIErr (*ShowAlert)(int32_t kind, const char* text, const char* const* buttons, int32_t count, int32_t* chosen,
                       AIBoolean* asked);
    AIErr (*Beep)(void);
    /* The folder that plug-ins keep the user's preferences in, which exists. The text is valid until the application
     * ends. */
    AIErr (*GetPreferencesFolder)(const char** path);

    /* Whether the host shows alerts and dialogs itself. Where it does not, what follows and ShowAlert are refused with
     * kRefusedErr. */
    AIErr (*ShowsDialogs)(AIBoolean* shows);
    /* A dialog without widgets, which does not show yet. kBadParameterErr, here and below: a size or place that is not
     * finite, an unknown kind or style, a widget that is not there. */
    AIErr (*NewDialog)(SPPluginRef self, const char* title, AIReal width, AIReal height, StageDialogRef* dialog);
    AIErr (*DisposeDialog)(StageDialogRef dialog);
    AIErr (*SetDialogFrame)(StageDialogRef dialog, const char* title, AIReal width, AIReal height);
    /* Adds the widget, or changes the one of its id. */
    AIErr (*SetDialogWidget)(StageDialogRef dialog, const StageWidget* widget);
    AIErr (*RemoveDialogWidget)(StageDialogRef dialog, int32_t widget);
    /* In which field the keys arrive, all of its text selected; 0: in none. What was typed there stays. */
    AIErr (*SetDialogFocus)(StageDialogRef dialog, int32_t widget);
    AIErr (*GetDialogSelection)(StageDialogRef dialog, int32_t widget, int32_t* start, int32_t* end);
    /* Shows the dialog and waits until EndDialog, telling the plug-in what the user does. kRefusedErr: it shows
     * already. */
    AIErr (*RunDialog)(StageDialogRef dialog);
    AIErr (*EndDialog)(StageDialogRef dialog);
    /* The size that fits the widget's text: its width on one line, and the height that it needs in its frame's width,
     * or on one line where that is 0. Of a picture, one of the plug-in's, its own size. */
    AIErr (*GetFittingSize)(SPPluginRef self, const StageWidget* widget, AIRealPoint* size);
} StageSuite;

DESCRIBE_SUITE(StageSuite)

#endif
