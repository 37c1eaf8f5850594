/* Objective-C exceptions, stopped where C++ cannot: its own handlers do not know them on every platform. */
#ifndef PLUGIN_PLATFORM_COCOA_GUARD_H
#define PLUGIN_PLATFORM_COCOA_GUARD_H

#ifdef __cplusplus
extern "C" {
#endif

/* Runs the work with a pool of its own, and returns whether it came to its end without an Objective-C exception. */
int kzoGuarded(void (*work)(void* context), void* context);

#ifdef __cplusplus
}
#endif

#endif
