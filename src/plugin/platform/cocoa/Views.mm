// Makes and updates the view of each kind of widget.
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

@implementation KZO_CLASS (Picture)

- (id)initWithFrame:(NSRect)frame {
    self = [super initWithFrame:frame];
    if (!self) return nil;
    [self setButtonType:NSButtonTypeMomentaryChange];
    [self setBordered:NO];
    [self setImagePosition:NSImageOnly];
    return self;
}

- (void)dealloc {
    [_normal release];
    [_rollover release];
    [super dealloc];
}

- (void)setNormal:(NSImage*)normal rollover:(NSImage*)rollover pressed:(NSImage*)pressed {
    [_normal autorelease];
    [_rollover autorelease];
    _normal = [normal retain];
    _rollover = [rollover retain];
    [self setImage:normal];
    [self setAlternateImage:pressed];
}

- (void)stopTracking {
    if (_tracked) [self removeTrackingRect:_tracked];
    _tracked = 0;
}

- (void)track {
    [self stopTracking];
    if ([self window]) _tracked = [self addTrackingRect:[self bounds] owner:self userData:nil assumeInside:NO];
}

- (void)viewWillMoveToWindow:(NSWindow*)window {
    [self stopTracking];
    [super viewWillMoveToWindow:window];
}

- (void)viewDidMoveToWindow {
    [super viewDidMoveToWindow];
    [self track];
}

- (void)setFrame:(NSRect)frame {
    [super setFrame:frame];
    [self track];
}

- (void)mouseEntered:(NSEvent*)event {
    (void)event;
    [self setImage:_rollover];
}

- (void)mouseExited:(NSEvent*)event {
    (void)event;
    [self setImage:_normal];
}

@end

@implementation KZO_CLASS (Delegate)

- (id)initWithListener:(kzo::plugin::cocoa::Listener*)listener {
    self = [super init];
    if (self) _listener = listener;
    return self;
}

- (void)clicked:(id)sender {
    NSEvent* const event = [NSApp currentEvent];
    _listener->clicked(sender, [event type] == NSEventTypeLeftMouseUp && [event clickCount] == 2);
}

- (void)checked:(id)sender {
    _listener->clicked(sender, false); // each click turns it over
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
