/* The stage suite: services of the platform, played by a host that runs without a display.
 *
 * The document's window fills the screen. Screen coordinates are screen units, x right, y down, from the window's top
 * left corner; at zoom 1 a unit is a point of the document. */
#ifndef HOSTAPI_STAGESUITE_H
#define HOSTAPI_STAGESUITE_H

#include "hostapi/SPMessages.h"

#define kStageSuite "Stage Suite"
#define kStageSuiteVersion 1

/* A cursor: one of the host's own by number, or an image among the resources of a plug-in. */
typedef struct StageCursor {
    int32_t number;      /* of the host's cursor; 0 for an image, and where no cursor has been set */
    SPPluginRef plugin;  /* whose resource the image is; null for a cursor of the host */
    int16_t resource;    /* number of the image; 0 for a cursor of the host */
    AIRealPoint hotSpot; /* the spot that points, in screen units from the image's top left corner */
    AIReal scale;        /* pixels of the image for a screen unit */
} StageCursor;

/* What the user's hand does with the mouse button. */
enum { kStageMouseDown = 1, kStageMouseUp = 2 };

#define kCallerStage "Stage"
#define kSelectorStageKeyPressed "Key Pressed"
#define kSelectorStageMousePressed "Mouse Pressed"

enum { kStageLeftButton = 1, kStageRightButton = 2, kStageOtherButton = 3 };

/* A key or a mouse button was pressed, wherever in the application. Goes to plug-ins that monitor input, before the
 * host acts on it. */
typedef struct StageInputMessage {
    SPMessageData d;
    int32_t code; /* of the key, as the platform's keyboards number them; or of the button */
} StageInputMessage;

/* Alerts by their kind. */
enum { kStageMessageAlert = 1, kStageErrorAlert = 2, kStageConfirmAlert = 3, kStageQuestionAlert = 4 };

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
     * waits for the user: `chosen` counts from 0. kBadParameterErr: another kind, or another number of buttons. */
    AIErr (*ShowAlert)(int32_t kind, const char* text, const char* const* buttons, int32_t count, int32_t* chosen);
    AIErr (*Beep)(void);
    /* The folder that plug-ins keep the user's preferences in, which exists. The text is valid until the application
     * ends. */
    AIErr (*GetPreferencesFolder)(const char** path);
} StageSuite;

DESCRIBE_SUITE(StageSuite)

#endif
