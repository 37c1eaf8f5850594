/* The art suite: the document's tree of objects, whatever their kind.
 *
 * The first child of a group is its topmost. Each layer has one group that holds all its art; that group has no parent.
 */
#ifndef HOSTAPI_AIARTSUITE_H
#define HOSTAPI_AIARTSUITE_H

#include "hostapi/SPTypes.h"

#define kAIArtSuite "AI Art Suite"
#define kAIArtSuiteVersion 20

/* Kinds of art. */
enum {
    kUnknownArt = 0,
    kGroupArt = 1,
    kPathArt = 2,
    kCompoundPathArt = 3,
    kPlacedArt = 7,
    kRasterArt = 9,
    kPluginGroupArt = 10,
    kMeshArt = 11,
    kTextFrameArt = 12,
    kSymbolArt = 13,
    kForeignArt = 14,
    kLegacyTextArt = 15
};

/* Where new or moved art goes, seen from the prepositional art. "Above all" and "below all" mean the top and bottom of
 * the prepositional art's layer; without one, of the current layer. */
enum {
    kPlaceAbove = 1,
    kPlaceBelow = 2,
    kPlaceInsideOnTop = 3,
    kPlaceInsideOnBottom = 4,
    kPlaceAboveAll = 5,
    kPlaceBelowAll = 6
};

/* User attributes, a bit set. Fully selected means: with all its points. Clipped means: only what lies inside a mask
 * shows of the art and of all it holds, and nothing else of it is hit; a clipped group is a clip group. */
enum { kArtSelected = 1, kArtLocked = 2, kArtHidden = 4, kArtFullySelected = 8, kArtClipped = 16 };

/* What of the art counts for its bounds beside its outlines, a bit set: strokes as far as they reach, control points;
 * but not what is hidden, not selected, or has neither fill nor stroke. */
enum {
    kStrokeBounds = 1,
    kControlBounds = 2,
    kExcludeHiddenBounds = 4,
    kExcludeUnselectedBounds = 8,
    kExcludeUnpaintedBounds = 16
};

typedef struct AIArtSuite {
    /* Makes an empty object: a group, a mesh without patches, placed art without a file, or a path with no points,
     * open, in the document's default style. kBadParameterErr: a kind that cannot be made, or a paint order that the
     * prepositional art does not allow. */
    AIErr (*NewArt)(int16_t type, int16_t paintOrder, AIArtHandle prep, AIArtHandle* newArt);
    /* Removes an object and all it holds. kRefusedErr: the group of a layer. */
    AIErr (*DisposeArt)(AIArtHandle art);
    /* Whether the handle denotes art in an open document. Never fails on a handle. */
    AIErr (*ValidArt)(AIArtHandle art, AIBoolean* valid);
    AIErr (*GetArtType)(AIArtHandle art, int16_t* type);
    /* The attributes among `which` that are set. */
    AIErr (*GetArtUserAttr)(AIArtHandle art, int32_t which, int32_t* attributes);
    /* Makes the attributes in `which` those in `attributes`. Selecting a group selects all in it. Masks cannot be given
     * or taken; kArtClipped is passed over. */
    AIErr (*SetArtUserAttr)(AIArtHandle art, int32_t which, int32_t attributes);
    /* Relatives; null where there is none. */
    AIErr (*GetArtParent)(AIArtHandle art, AIArtHandle* parent);
    AIErr (*GetArtFirstChild)(AIArtHandle art, AIArtHandle* child);
    AIErr (*GetArtSibling)(AIArtHandle art, AIArtHandle* sibling);
    AIErr (*GetArtPriorSibling)(AIArtHandle art, AIArtHandle* sibling);
    /* Copies an object with all it holds; the copy is not selected. Puts an object elsewhere. kRefusedErr: the group of
     * a layer, or a place in the object itself. */
    AIErr (*DuplicateArt)(AIArtHandle art, int16_t paintOrder, AIArtHandle prep, AIArtHandle* copy);
    AIErr (*ReorderArt)(AIArtHandle art, int16_t paintOrder, AIArtHandle prep);
    AIErr (*DisposeArtChildren)(AIArtHandle art);
    /* A text that no other object has had, and that undo brings back with the object. */
    AIErr (*GetArtUID)(AIArtHandle art, const char** uid);
    AIErr (*GetArtLastChild)(AIArtHandle art, AIArtHandle* child);
    AIErr (*CountArtChildren)(AIArtHandle art, int32_t* count);
    /* Whether it is the group that holds all art of a layer. */
    AIErr (*IsArtLayerGroup)(AIArtHandle art, AIBoolean* isLayerGroup);
    /* Whether neither it nor anything around it is locked or hidden. */
    AIErr (*IsArtEditable)(AIArtHandle art, AIBoolean* editable);
    /* Where the art would lie after a transform. All zero for what takes no place. */
    AIErr (*GetArtTransformBounds)(AIArtHandle art, const AIRealMatrix* matrix, int32_t flags, AIRealRect* bounds);
    /* The group that holds all art of a layer; a null layer means the current one. */
    AIErr (*GetFirstArtOfLayer)(AILayerHandle layer, AIArtHandle* group);
    /* Finds out the bounds of this art and of all in it, as far as that has not been done. */
    AIErr (*UpdateArtBounds)(AIArtHandle art);
} AIArtSuite;

DESCRIBE_SUITE(AIArtSuite)

#endif
