/* The basic suite, which comes with every message: the way to all other suites, and to host memory. */
#ifndef HOSTAPI_SPBASIC_H
#define HOSTAPI_SPBASIC_H

#include <stddef.h>

#include "hostapi/SPTypes.h"

#define kSPBasicSuite "SP Basic Suite"
#define kSPBasicSuiteVersion 4

typedef struct SPBasicSuite {
    /* Returns the suite's table and keeps it in use until released. kSPSuiteNotFoundErr: no such name and version. */
    SPErr (*AcquireSuite)(const char* name, int32_t version, const void** suite);
    /* Gives one acquisition back. kBadParameterErr: the suite is not acquired. */
    SPErr (*ReleaseSuite)(const char* name, int32_t version);
    /* Allocates `size` bytes; kOutOfMemoryErr leaves `block` as it was. */
    SPErr (*AllocateBlock)(size_t size, void** block);
    /* Frees a block from AllocateBlock. kBadParameterErr: no such block, or already freed. */
    SPErr (*FreeBlock)(void* block);
} SPBasicSuite;

#endif
