/* Scalar types, points, handles and error codes that every suite and message record shares.
 *
 * Coordinates are points (1/72 inch) in the document, x right (`h`), y down (`v`). Every operation of a suite returns
 * an error code, 0 for success; after an error the output arguments are as they were. Handles are opaque and belong to
 * the host. Text is UTF-8; a text that the host hands out lives until the next call of the same operation. */
#ifndef HOSTAPI_SPTYPES_H
#define HOSTAPI_SPTYPES_H

#include <stdint.h>

typedef int32_t SPErr;
typedef SPErr AIErr;
typedef uint8_t AIBoolean;
typedef double AIReal;

typedef struct AIRealPoint {
    AIReal h;
    AIReal v;
} AIRealPoint;

typedef struct AIRealRect {
    AIReal left;
    AIReal top;
    AIReal right;
    AIReal bottom;
} AIRealRect;

/* A point (x, y) goes to (a x + c y + tx, b x + d y + ty). */
typedef struct AIRealMatrix {
    AIReal a, b, c, d, tx, ty;
} AIRealMatrix;

typedef struct SPPlugin* SPPluginRef;
typedef struct ArtObject* AIArtHandle;
typedef struct AILayer* AILayerHandle;
typedef struct AIDocument* AIDocumentHandle;
typedef struct AIDocumentView* AIDocumentViewHandle;
typedef struct AIArtboard* AIArtboardHandle;
typedef struct AITool* AIToolHandle;
typedef struct AINotifier* AINotifierHandle;
typedef struct AIPluginGroup* AIPluginGroupHandle;
typedef struct AITimer* AITimerHandle;
typedef struct AIAnnotator* AIAnnotatorHandle;
typedef struct AIDrawingContext* AIDrawingContextHandle;
typedef struct AITextRange* AITextRangeRef;
typedef struct _t_MenuGroupOpaque* AIMenuGroup;
typedef struct _t_MenuItemOpaque* AIMenuItemHandle;

/* Error codes are four characters, readable in a trace. */
enum {
    kNoErr = 0,
    kBadParameterErr = 0x5061726D, /* "Parm": an argument is out of range or null */
    kUnknownHandleErr =
        0x48216E64,              /* "H!nd": the handle was never given out, is of another kind, or its object is gone */
    kNoDocumentErr = 0x446F6321, /* "Doc!": no document is open */
    kPreferenceNotFoundErr = 0x50214E46, /* "P!NF": no preference of this name and kind */
    kRefusedErr = 0x52667573,            /* "Rfus": the object's state forbids the change */
    kOutOfMemoryErr = 0x4D656D21,        /* "Mem!" */
    kOutsideMessageErr = 0x4D736721,     /* "Msg!": called while no message to this plug-in is being handled */
    kSPSuiteNotFoundErr = 0x53214664,    /* "S!Fd": no suite of this name and version */
    kSPPluginNotFoundErr = 0x50214664,   /* "P!Fd": no plug-in of this name */
    kInternalErr = 0x496E7421            /* "Int!": the host failed; its log says how */
};

/* Modifier keys of an event, a bit set. */
enum { kAIShiftKey = 1, kAIOptionKey = 2, kAIControlKey = 4, kAICommandKey = 8 };

/* Tells both sides, in C++, the name and version by which a suite's table is acquired. Stands once, below the table. */
#ifdef __cplusplus
template <class Table> struct SuiteTraits;
#define DESCRIBE_SUITE(Table)                                                                                          \
    template <> struct SuiteTraits<Table> {                                                                            \
        static constexpr const char* kName = k##Table;                                                                 \
        static constexpr int32_t kVersion = k##Table##Version;                                                         \
    };
#else
#define DESCRIBE_SUITE(Table)
#endif

#endif
