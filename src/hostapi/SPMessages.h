/* The head that every message record begins with, and the messages of a plug-in's life.
 *
 * The entry is `int32 PluginMain(const char* caller, const char* selector, void* message)`; `message` points to a
 * record that extends SPMessageData. A result other than 0 is an error code, except where a family says otherwise. */
#ifndef HOSTAPI_SPMESSAGES_H
#define HOSTAPI_SPMESSAGES_H

#include "hostapi/SPBasic.h"

#define kSPInterfaceCaller "SP Interface"
#define kSPInterfaceStartupSelector "Startup"
#define kSPInterfaceShutdownSelector "Shutdown"
#define kSPInterfaceAboutSelector "About"

#define kSPAccessCaller "SP Access"
#define kSPAccessReloadSelector "Reload"
#define kSPAccessUnloadSelector "Unload"

/* Value of SPMessageData::SPCheck in every record. */
enum { kSPValidMessageData = 0x53504D44 };

typedef struct SPMessageData {
    int32_t SPCheck;
    SPPluginRef self;
    void* globals;
    const SPBasicSuite* basic;
} SPMessageData;

typedef SPErr (*SPEntry)(const char* caller, const char* selector, void* message);

#define kSPEntryName "PluginMain"

#endif
