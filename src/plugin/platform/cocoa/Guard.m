/* Stops exceptions of Objective-C, and logs them. */
#import "plugin/platform/cocoa/Guard.h"

#import <Foundation/Foundation.h>

int kzoGuarded(void (*work)(void* context), void* context) {
    NSAutoreleasePool* pool = [NSAutoreleasePool new];
    int whole = 1;
    @try {
        work(context);
    } @catch (NSException* exception) {
        NSLog(@"%@: %@", [exception name], [exception reason]);
        whole = 0;
    }
    [pool release];
    return whole;
}
