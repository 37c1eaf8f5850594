/* The mesh suite: a grid of patches, each with a colour. The patches are paths, the children of the art: row by row,
 * the top left one first. A mesh whose patches have been taken out or added to has as many rows as are whole. */
#ifndef HOSTAPI_AIMESHSUITE_H
#define HOSTAPI_AIMESHSUITE_H

#include "hostapi/AIPathStyleSuite.h"
#include "hostapi/SPTypes.h"

#define kAIMeshSuite "AI Mesh Suite"
#define kAIMeshSuiteVersion 7

enum { kAIMostMeshPatches = 10000 };

typedef struct AIMeshSize {
    int32_t rows;
    int32_t columns;
} AIMeshSize;

typedef struct AIMeshSuite {
    /* kBadParameterErr, of all: art of another kind. */
    AIErr (*GetMeshSize)(AIArtHandle mesh, AIMeshSize* size);
    /* Replaces all patches by equal white ones in `bounds`. kBadParameterErr also: no rows or columns, or too many
     * patches; bounds without extent. */
    AIErr (*InitMesh)(AIArtHandle mesh, int32_t rows, int32_t columns, const AIRealRect* bounds);
    /* kBadParameterErr also: a row or a column that there is not; a colour out of range. */
    AIErr (*GetMeshColor)(AIArtHandle mesh, int32_t row, int32_t column, AIColor* color);
    AIErr (*SetMeshColor)(AIArtHandle mesh, int32_t row, int32_t column, const AIColor* color);
} AIMeshSuite;

DESCRIBE_SUITE(AIMeshSuite)

#endif
