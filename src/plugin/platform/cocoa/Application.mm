// Makes the application object where the host has none, and converts texts.
#include "plugin/platform/cocoa/Application.h"

#ifndef __APPLE__
#include <csignal>
#include <iterator>
#endif

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

/// What the host does on signals stays its own: GNUstep's window back end puts handlers in their place.
class KeptSignals {
  public:
    KeptSignals() {
        for (std::size_t i = 0; i < std::size(kNumbers); ++i) sigaction(kNumbers[i], nullptr, &kept_[i]);
    }
    ~KeptSignals() {
        for (std::size_t i = 0; i < std::size(kNumbers); ++i) sigaction(kNumbers[i], &kept_[i], nullptr);
    }
    KeptSignals(const KeptSignals&) = delete;
    KeptSignals& operator=(const KeptSignals&) = delete;

  private:
    static constexpr int kNumbers[] = {SIGHUP, SIGINT, SIGTERM};
    struct sigaction kept_[std::size(kNumbers)] = {};
};

} // namespace

#endif

bool ensureApplication() {
    if (NSApp) return true;
#ifndef __APPLE__
    const KeptSignals kept;
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
