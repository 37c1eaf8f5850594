#include "plugin/platform/cocoa/Views.h"

@implementation KZO_CLASS (Content)

- (BOOL)isFlipped {
    return YES;
}

@end

@implementation KZO_CLASS (Panel)

- (void)setListener:(kzo::plugin::cocoa::Listener*)listener {
    _listener = listener;
}

- (BOOL)canBecomeKeyWindow {
    return YES;
}

- (void)sendEvent:(NSEvent*)event {
    if ([event type] == NSEventTypeKeyDown && _listener && _listener->keyPressed(event)) return;
    [super sendEvent:event];
    if (_listener) _listener->eventHandled();
}

@end

@implementation KZO_CLASS (Text)

- (void)setListener:(kzo::plugin::cocoa::Listener*)listener {
    _listener = listener;
}

- (void)mouseDown:(NSEvent*)event {
    (void)event; // the click is complete when the button comes up
}

- (void)mouseUp:(NSEvent*)event {
    const NSPoint place = [self convertPoint:[event locationInWindow] fromView:nil];
    if (_listener && NSPointInRect(place, [self bounds])) _listener->clicked(self, [event clickCount] == 2);
}

@end

@implementation KZO_CLASS (Delegate)

- (id)initWithListener:(kzo::plugin::cocoa::Listener*)listener {
    self = [super init];
    if (self) _listener = listener;
    return self;
}

- (void)clicked:(id)sender {
    _listener->clicked(sender, false);
}

- (void)controlTextDidChange:(NSNotification*)notification {
    _listener->typed([notification object]);
}

- (BOOL)windowShouldClose:(id)sender {
    (void)sender;
    _listener->closeAsked();
    return NO;
}

@end
