// The views of a window, which tell what happens to them by their tags, the ids of widgets.
#pragma once

#include "plugin/platform/cocoa/Compat.h"

namespace kzo::plugin::cocoa {

/// Who hears of it. Called from within event handlers: nothing may be thrown.
class Listener {
  public:
    virtual void typed(NSTextField* field) = 0;
    virtual void clicked(NSControl* control, bool twice) = 0;
    virtual bool keyPressed(NSEvent* event) = 0; ///< whether it was one that nobody else is to get
    virtual void eventHandled() = 0;
    virtual void closeAsked() = 0;

  protected:
    ~Listener() = default;
};

} // namespace kzo::plugin::cocoa

/// Places count from the top left corner.
@interface KZO_CLASS (Content) : NSView
@end

@interface KZO_CLASS (Panel) : NSPanel {
    kzo::plugin::cocoa::Listener* _listener;
}
- (void)setListener:(kzo::plugin::cocoa::Listener*)listener;
@end

/// A text that cannot be changed, though clicked.
@interface KZO_CLASS (Text) : NSTextField {
    kzo::plugin::cocoa::Listener* _listener;
}
- (void)setListener:(kzo::plugin::cocoa::Listener*)listener;
@end

/// A picture that can be clicked, with another one while the pointer is over it, and one while it is held down.
@interface KZO_CLASS (Picture) : NSButton {
    NSImage* _normal;
    NSImage* _rollover;
    NSTrackingRectTag _tracked;
}
- (void)setNormal:(NSImage*)normal rollover:(NSImage*)rollover pressed:(NSImage*)pressed;
@end

/// The delegate of a window and its fields, and the target of its buttons.
@interface KZO_CLASS (Delegate) : NSObject {
    kzo::plugin::cocoa::Listener* _listener;
}
- (id)initWithListener:(kzo::plugin::cocoa::Listener*)listener;
- (void)clicked:(id)sender; ///< a button, perhaps twice
- (void)checked:(id)sender; ///< a checkbox
@end
