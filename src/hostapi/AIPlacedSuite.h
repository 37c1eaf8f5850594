/* The placed suite: pictures that are in files of their own. New placed art (NewArt) shows nothing until it has a file.
 */
#ifndef HOSTAPI_AIPLACEDSUITE_H
#define HOSTAPI_AIPLACEDSUITE_H

#include "hostapi/AIRasterSuite.h"
#include "hostapi/SPTypes.h"

#define kAIPlacedSuite "AI Placed Suite"
#define kAIPlacedSuiteVersion 13

typedef struct AIPlacedSuite {
    /* The file's absolute path; as the drawing says it, where that is no file. kBadParameterErr, of all: art of another
     * kind. */
    AIErr (*GetPlacedFilePath)(AIArtHandle placed, const char** path);
    /* Shows another file in the same place; the first one, in its own size at the page's top left, a point a pixel.
     * kRefusedErr: no picture (PNG, JPEG, GIF) is there. */
    AIErr (*SetPlacedFilePath)(AIArtHandle placed, const char* path);
    /* As of raster art; the size is known once the file or the link has been set or updated. */
    AIErr (*GetPlacedSize)(AIArtHandle placed, AIRasterSize* size);
    AIErr (*GetPlacedMatrix)(AIArtHandle placed, AIRealMatrix* matrix);
    AIErr (*SetPlacedMatrix)(AIArtHandle placed, const AIRealMatrix* matrix);
    /* Takes the picture into the drawing: the art is raster art from then on. kRefusedErr: as above. */
    AIErr (*EmbedPlaced)(AIArtHandle placed);
    /* Looks at the files of this art, whatever its kind, and of all that is in it. kRefusedErr: one of them is no
     * picture, or not there; the others are up to date. */
    AIErr (*UpdateLinks)(AIArtHandle art);
} AIPlacedSuite;

DESCRIBE_SUITE(AIPlacedSuite)

#endif
