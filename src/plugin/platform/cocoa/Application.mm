#include "plugin/platform/cocoa/Application.h"

#include "plugin/platform/cocoa/Compat.h"

namespace kzo::plugin::cocoa {

#ifndef __APPLE__

namespace {

/// What windows need on X11 without a window manager, and all modifier keys, without which no shortcut works.
NSDictionary* defaults() {
    return [NSDictionary dictionaryWithObjectsAndKeys:@"YES", @"GSSuppressAppIcon", @"NO",
                                                      @"GSX11HandlesWindowDecorations", @"Inter-Regular", @"NSFont",
                                                      @"Inter-SemiBold", @"NSBoldFont", @"12", @"NSFontSize",
                                                      @"Control_L", @"GSFirstCommandKey", @"Control_R",
                                                      @"GSSecondCommandKey", @"Alt_L", @"GSFirstAlternateKey", @"Alt_R",
                                                      @"GSSecondAlternateKey", @"Super_L", @"GSFirstControlKey",
                                                      @"Super_R", @"GSSecondControlKey", nil];
}

} // namespace

#endif

bool ensureApplication() {
    if (NSApp) return true;
#ifndef __APPLE__
    const bool made = guarded([] {
        static char name[] = "host"; // with the real arguments, files among them would be opened
        static char* arguments[] = {name, nullptr};
        static char* nothing[] = {nullptr};
        [NSProcessInfo initializeWithArguments:arguments count:1 environment:nothing];
        [[NSUserDefaults standardUserDefaults] registerDefaults:defaults()];
        [NSApplication sharedApplication];
        [NSApp finishLaunching];
    });
    return made && NSApp;
#else
    return false;
#endif
}

NSString* toCocoa(const std::string& text) {
    NSString* const made = [NSString stringWithUTF8String:text.c_str()];
    return made ? made : @"";
}

std::string fromCocoa(NSString* text) {
    const char* const bytes = [text UTF8String];
    return bytes ? bytes : "";
}

} // namespace kzo::plugin::cocoa
