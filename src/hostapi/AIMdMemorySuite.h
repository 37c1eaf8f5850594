/* The memory handle suite: relocatable blocks in which the host returns lists. */
#ifndef HOSTAPI_AIMDMEMORYSUITE_H
#define HOSTAPI_AIMDMEMORYSUITE_H

#include <stddef.h>

#include "hostapi/SPTypes.h"

#define kAIMdMemorySuite "AI MdMemory Suite"
#define kAIMdMemorySuiteVersion 4

typedef void** AIMdMemoryHandle;

typedef struct AIMdMemorySuite {
    AIErr (*MdMemoryNewHandle)(size_t size, AIMdMemoryHandle* handle);
    /* kBadParameterErr: no such handle, or already disposed. */
    AIErr (*MdMemoryDisposeHandle)(AIMdMemoryHandle handle);
} AIMdMemorySuite;

DESCRIBE_SUITE(AIMdMemorySuite)

#endif
