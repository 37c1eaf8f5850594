/* The document suite: the document in front. Every operation returns kNoDocumentErr when none is open. */
#ifndef HOSTAPI_AIDOCUMENTSUITE_H
#define HOSTAPI_AIDOCUMENTSUITE_H

#include "hostapi/SPTypes.h"

#define kAIDocumentSuite "AI Document Suite"
#define kAIDocumentSuiteVersion 15

enum { kAIGrayColorModel = 0, kAIRGBColorModel = 1, kAICMYKColorModel = 2 };

enum { kAIInches = 0, kAICentimeters = 1, kAIPoints = 2, kAIPicas = 3, kAIMillimeters = 4, kAIPixels = 6 };

/* The page, in points. */
typedef struct AIDocumentSetup {
    AIReal width;
    AIReal height;
} AIDocumentSetup;

/* Lines of the grid. */
typedef struct AIGrid {
    AIReal spacing; /* points */
    int32_t subdivisions;
    AIBoolean visible;
    AIBoolean snaps;
} AIGrid;

/* What new text gets where nothing else is asked for. */
typedef struct AITextStyle {
    const char* font; /* a family's name; empty for the host's default */
    AIReal size;      /* points */
    int16_t justification;
} AITextStyle;

typedef struct AIDocumentSuite {
    AIErr (*GetDocument)(AIDocumentHandle* document);
    /* Of its file; empty when it has none. The path is absolute. */
    AIErr (*GetDocumentFileName)(const char** name);
    AIErr (*GetDocumentFilePath)(const char** path);
    /* Whether it has changed since it was opened or saved. */
    AIErr (*GetDocumentModified)(AIBoolean* modified);
    AIErr (*SetDocumentModified)(AIBoolean modified);
    AIErr (*GetDocumentColorModel)(int16_t* model);
    AIErr (*GetDocumentRulerUnits)(int16_t* units);
    AIErr (*GetDocumentSetup)(AIDocumentSetup* setup);
    AIErr (*GetDocumentMaxBounds)(AIRealRect* bounds); /* art can lie nowhere else */
    AIErr (*GetGrid)(AIGrid* grid);
    AIErr (*SetGrid)(const AIGrid* grid); /* kBadParameterErr: a spacing or a number of parts that is not positive */
    AIErr (*GetTextStyle)(AITextStyle* style);
    AIErr (*SetTextStyle)(const AITextStyle* style); /* kBadParameterErr: a size that is not positive, no such value */
    /* Once the message is handled: takes the last step back, or makes it again; kRefusedErr when there is none. */
    AIErr (*Undo)(void);
    AIErr (*Redo)(void);
    /* Tells subscribers of the changes so far; draws what annotators have in the view, once the message is handled. */
    AIErr (*SyncDocument)(void);
    AIErr (*RedrawDocument)(void);
    /* Writes it to its file. kRefusedErr: it has none, or it cannot be written. */
    AIErr (*SaveDocument)(void);
    /* Once the message is handled, with what has not been saved. */
    AIErr (*CloseDocument)(void);
    /* The text being edited, or null; what else has focus loses it. kBadParameterErr: no text. */
    AIErr (*GetTextFocus)(AIArtHandle* text);
    AIErr (*SetTextFocus)(AIArtHandle text);
    AIErr (*LoseTextFocus)(void);
    /* The window as the platform knows it; null where there is no display. */
    AIErr (*GetDocumentWindow)(void** window);
} AIDocumentSuite;

DESCRIBE_SUITE(AIDocumentSuite)

#endif
