/* What the stage suite and its messages speak of: cursors, input, alerts, dialogs.
 *
 * The document's window fills the screen. Screen coordinates are screen units, x right, y down, from the window's top
 * left corner; at zoom 1 a unit is a point of the document. */
#ifndef HOSTAPI_STAGE_H
#define HOSTAPI_STAGE_H

#include "hostapi/SPMessages.h"

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

/* A dialog of a plug-in's that the host shows. Places and sizes are points from the top left corner of its content, y
 * down. Texts are UTF-8. */
typedef struct _t_StageDialogOpaque* StageDialogRef;

enum { kStageLabel = 1, kStageTextField = 2, kStageCheckbox = 3, kStageButton = 4 };
/* A click on the default button is what Return does, one on the cancel button what Escape does: plug-ins see to it. */
enum { kStagePlainButton = 1, kStageDefaultButton = 2, kStageCancelButton = 3 };
enum { kStageAlignLeft = 1, kStageAlignCenter = 2, kStageAlignRight = 3 };

/* A widget, whole. Texts of labels are wrapped at the widget's width; other widgets have one line. In place of its text
 * a label or a button may show PNG pictures among the plug-in's resources, by number, a pixel a point: one, another
 * while the mouse pointer is over it, and another while its button is held down there. */
typedef struct StageWidget {
    int32_t id;   /* the plug-in's own number for it, above 0 and of its own within the dialog */
    int32_t kind; /* kStageLabel ... */
    AIRealRect frame;
    const char* text;
    const char* tooltip;
    AIBoolean visible;
    AIBoolean enabled;
    AIBoolean checked; /* of a checkbox */
    AIBoolean bold;
    AIBoolean italic;
    int16_t image; /* 0 for none: the text shows, as where the resource is no picture */
    int16_t rolloverImage;
    int16_t pressedImage;
    int32_t alignment;      /* of a label's or a field's text */
    int32_t style;          /* of a button */
    int32_t linked;         /* the field that a label is for; 0 for none */
    int32_t tabPlace;       /* of a field, which one the Tab key leads to: from 1; 0 for none. Plug-ins see to it */
    int32_t selectionStart; /* of a field's text, in characters; -1: as the user has it, at the end of another text */
    int32_t selectionEnd;
} StageWidget;

#define kSelectorStageDialogEvent "Dialog Event"

/* What the user does to a dialog. */
enum {
    /* Pressed a key in a field, or pasted: `text` is all of the field's now, changed or not, `typed` what came in,
     * "\x7f" for either of the Delete keys; keys without a character, such as the arrows, have one of the private use
     * area, from U+F700 on. */
    kStageTyping = 1,
    /* Ended the editing of a field, which keeps the focus. */
    kStageCommit = 2,
    kStageClick = 3,       /* on any widget; a checkbox has its new state already */
    kStageDoubleClick = 4, /* in place of the second click */
    kStageFocusMoved = 5,  /* to a field, or with `widget` 0 to none; not when the plug-in moved it, nor when another
                              window came in front */
    kStageDialogKey = 6,   /* pressed a key of those below, of which the host itself makes nothing */
    kStageClose = 7        /* asked the dialog to go, say by its close button */
};
enum { kStageReturnKey = 1, kStageEscapeKey = 2, kStageTabKey = 3, kStageBackTabKey = 4 };

/* Comes while the plug-in waits in RunDialog, and at no other time. */
typedef struct StageDialogMessage {
    SPMessageData d;
    StageDialogRef dialog;
    int32_t event;  /* kStageTyping ... */
    int32_t widget; /* its id */
    int32_t key;    /* kStageReturnKey ... */
    AIBoolean checked;
    const char* text;  /* null where the event has none */
    const char* typed; /* null where the event has none */
} StageDialogMessage;

#endif
