// A window of AppKit: widgets as views, the modal loop, and events on their way up.
#include "plugin/platform/cocoa/CocoaWindow.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "hostapi/SPPluginsSuite.h"
#include "plugin/host/HostCall.h"
#include "plugin/platform/Background.h"
#include "plugin/platform/Guarded.h"
#include "plugin/platform/Platform.h"
#include "plugin/platform/cocoa/Application.h"
#include "utils/Scope.h"
#include "utils/Utf8.h"

namespace kzo::plugin::cocoa {

namespace {

using core::WidgetType;

constexpr double kFontSize = 12;
constexpr double kLeastFontSize = 9;
constexpr double kBesideCheckbox = 24; // the box, and a gap
constexpr double kBesideTitle = 16;    // the ends of a button

NSRect rectOf(const geo::Rect& frame) {
    return NSMakeRect(frame.origin.x, frame.origin.y, frame.size.width, frame.size.height);
}

/// Characters of the text up to this unit of its encoding.
std::size_t characters(NSString* text, NSUInteger units) {
    return utils::characterCount(fromCocoa([text substringToIndex:units]));
}

/// The other way: a character beyond the first plane takes two units.
NSUInteger units(NSString* text, std::size_t characters) {
    NSUInteger at = 0;
    for (; characters > 0 && at < [text length]; --characters) {
        const unichar unit = [text characterAtIndex:at];
        at += unit >= 0xD800 && unit <= 0xDBFF ? 2 : 1;
    }
    return std::min(at, [text length]);
}

WindowEvent::Key keyOf(NSEvent* event) {
    NSString* const typed = [event characters];
    const NSUInteger others = NSEventModifierFlagControl | NSEventModifierFlagOption | NSEventModifierFlagCommand;
    if ([typed length] != 1 || ([event modifierFlags] & others) != 0) return WindowEvent::Key::None;
    const bool shifted = ([event modifierFlags] & NSEventModifierFlagShift) != 0;
    switch ([typed characterAtIndex:0]) {
    case 0x0D:
    case 0x03: return WindowEvent::Key::Return;
    case 0x1B: return WindowEvent::Key::Escape;
    case 0x09: return shifted ? WindowEvent::Key::BackTab : WindowEvent::Key::Tab;
    case 0x19: return WindowEvent::Key::BackTab;
    default: return WindowEvent::Key::None;
    }
}

/// Both Delete keys are one character; the rest is as the keyboard has it.
std::string typedBy(NSEvent* event) {
    constexpr unichar kForwardDelete = 0xF728;
    NSString* const typed = [event characters];
    const unichar first = [typed length] == 1 ? [typed characterAtIndex:0] : 0;
    return first == 0x08 || first == 0x7F || first == kForwardDelete ? "\x7f" : fromCocoa(typed);
}

/// Whether pressing the key may leave the text of a field as it is, and is told all the same.
bool mayChangeNothing(NSEvent* event, const std::string& typed) {
    NSString* const characters = [event characters];
    const unichar first = [characters length] == 1 ? [characters characterAtIndex:0] : 0;
    const bool isFunctionKey = first >= 0xF700 && first <= 0xF8FF;
    return typed == "\x7f" || isFunctionKey;
}

/// The picture of this number among the plug-in's resources, a pixel a point; nil where there is none.
NSImage* resourceImage(std::int16_t number) {
    if (number == 0) return nil;
    const auto bundle = host::get<&SPPluginsSuite::GetPluginFilePath, std::string>(host::self);
    const std::string file = bundle + "/Contents/Resources/" + std::to_string(number) + ".png";
    NSImage* const image = [[[NSImage alloc] initWithContentsOfFile:toCocoa(file)] autorelease];
    NSSize size = NSZeroSize; // of the picture for displays of the least resolution
    NSEnumerator* const pictures = [[image representations] objectEnumerator];
    while (NSImageRep* const picture = [pictures nextObject])
        if (size.width == 0 || [picture pixelsWide] < size.width)
            size = NSMakeSize([picture pixelsWide], [picture pixelsHigh]);
    if (size.width == 0) return nil;
    [image setSize:size];
    return image;
}

/// Without a selection of its own the caret stands at the end.
void show(NSText* editor, const FieldText& field) {
    NSString* const text = toCocoa(field.text);
    const bool isNew = ![[editor string] isEqualToString:text];
    if (isNew) [editor setString:text];
    if (isNew) [editor setSelectedRange:NSMakeRange([text length], 0)];
    if (!field.selection) return;
    const NSUInteger start = units(text, field.selection->start);
    [editor setSelectedRange:NSMakeRange(start, units(text, field.selection->end) - start)];
}

} // namespace

NSFont* fontOf(const WidgetState& state) {
    NSFont* const font = state.bold ? [NSFont boldSystemFontOfSize:kFontSize] : [NSFont systemFontOfSize:kFontSize];
    return state.italic ? [[NSFontManager sharedFontManager] convertFont:font toHaveTrait:NSItalicFontMask] : font;
}

NSImage* imageOf(const WidgetState& state) {
    const bool mayHave = state.type == WidgetType::Label || state.type == WidgetType::Button;
    return mayHave ? resourceImage(state.images.normal) : nil;
}

CocoaWindow::CocoaWindow(WindowOwner& owner) : owner_(owner) {
    delegate_ = [[KZO_CLASS(Delegate) alloc] initWithListener:this];
    panel_ = [[KZO_CLASS(Panel) alloc] initWithContentRect:NSMakeRect(0, 0, 100, 100)
                                                 styleMask:NSWindowStyleMaskTitled | NSWindowStyleMaskClosable
                                                   backing:NSBackingStoreBuffered
                                                     defer:NO];
    [panel_ setReleasedWhenClosed:NO];
    [panel_ setAcceptsMouseMovedEvents:YES]; // pictures change under the pointer
    [panel_ setDelegate:(id)delegate_];
    [panel_ setListener:this];
    NSView* const content = [[KZO_CLASS(Content) alloc] initWithFrame:NSMakeRect(0, 0, 100, 100)];
    [panel_ setContentView:content];
    [content release];
}

CocoaWindow::~CocoaWindow() {
    guarded([this] {
        [panel_ setListener:nullptr];
        [panel_ setDelegate:nil];
        [panel_ orderOut:nil];
        [panel_ release];
        [delegate_ release];
    });
}

void CocoaWindow::setFrame(const std::string& title, const geo::Size& content) {
    guarded([&] {
        [panel_ setTitle:toCocoa(title)];
        [panel_ setContentSize:NSMakeSize(content.width, content.height)];
    });
}

// Controls

NSControl* CocoaWindow::control(WidgetId id) const { return (NSControl*)[[panel_ contentView] viewWithTag:id]; }

NSControl* CocoaWindow::newControl(const WidgetState& state) {
    const NSRect frame = rectOf(state.frame);
    if (imageOf(state)) {
        KZO_CLASS(Picture)* const picture = [[KZO_CLASS(Picture) alloc] initWithFrame:frame];
        [[picture cell] setRefusesFirstResponder:YES];
        [picture setTarget:delegate_];
        [picture setAction:@selector(clicked:)];
        return picture;
    }
    if (state.type == WidgetType::Label) {
        KZO_CLASS(Text)* const label = [[KZO_CLASS(Text) alloc] initWithFrame:frame];
        [label setListener:this];
        [label setEditable:NO];
        [label setSelectable:NO];
        [label setBezeled:NO];
        [label setDrawsBackground:NO];
        [[label cell] setWraps:YES];
        return label;
    }
    if (state.type == WidgetType::TextField) {
        NSTextField* const field = [[NSTextField alloc] initWithFrame:frame];
        [field setDelegate:(id)delegate_];
        [[field cell] setWraps:NO];
        [[field cell] setScrollable:YES];
        return field;
    }
    NSButton* const button = [[NSButton alloc] initWithFrame:frame];
    [button setButtonType:state.type == WidgetType::Checkbox ? NSButtonTypeSwitch : NSButtonTypeMomentaryPushIn];
    if (state.type == WidgetType::Button) [button setBezelStyle:NSBezelStyleRounded];
    [[button cell] setRefusesFirstResponder:YES]; // the field that is edited keeps the focus
    [button setTarget:delegate_];
    [button setAction:state.type == WidgetType::Checkbox ? @selector(checked:) : @selector(clicked:)];
    return button;
}

/// The widget's control, made where there is none yet, and anew where a picture takes the place of a text.
NSControl* CocoaWindow::controlFor(WidgetId id, const WidgetState& state) {
    NSControl* const known = control(id);
    const bool wasPicture = [known isKindOfClass:[KZO_CLASS(Picture) class]];
    if (known && (state.images == shownImages_[id] || wasPicture == (imageOf(state) != nil))) return known;
    [known removeFromSuperview];
    shownImages_.erase(id);
    NSControl* const made = [newControl(state) autorelease];
    [made setTag:id];
    [[panel_ contentView] addSubview:made];
    return made;
}

void CocoaWindow::showImages(NSControl* control, const WidgetState& state) {
    core::WidgetImages& shown = shownImages_[static_cast<WidgetId>([control tag])];
    if (shown == state.images) return;
    shown = state.images;
    if (![control isKindOfClass:[KZO_CLASS(Picture) class]]) return;
    NSImage* const normal = imageOf(state);
    NSImage* const rollover = resourceImage(state.images.rollover);
    NSImage* const pressed = resourceImage(state.images.pressed);
    [(KZO_CLASS(Picture)*)control setNormal:normal
                                   rollover:rollover ? rollover : normal
                                    pressed:pressed ? pressed : normal];
}

namespace {

/// The font in which a title on one line fits into its frame, as far as it can still be read.
NSFont* fontFitting(const WidgetState& state) {
    NSFont* font = fontOf(state);
    const double around = state.type == WidgetType::Checkbox ? kBesideCheckbox : kBesideTitle;
    for (double size = kFontSize - 0.5; size >= kLeastFontSize; size -= 0.5) {
        NSDictionary* const looks = [NSDictionary dictionaryWithObject:font forKey:NSFontAttributeName];
        if ([toCocoa(state.text) sizeWithAttributes:looks].width + around <= state.frame.size.width) break;
        font = [[NSFontManager sharedFontManager] convertFont:font toSize:size];
    }
    return font;
}

} // namespace

void CocoaWindow::setText(NSControl* control, const WidgetState& state) {
    NSString* const text = toCocoa(state.text);
    if ([control isKindOfClass:[KZO_CLASS(Picture) class]]) return [(NSButton*)control setTitle:text]; // not seen
    if (state.type == WidgetType::Button || state.type == WidgetType::Checkbox) {
        NSColor* const color =
            dark_ && state.type == WidgetType::Checkbox ? [NSColor whiteColor] : [NSColor controlTextColor];
        NSMutableParagraphStyle* const lines = [[NSMutableParagraphStyle new] autorelease];
        if (state.type == WidgetType::Button) [lines setAlignment:NSTextAlignmentCenter];
        NSDictionary* const looks =
            [NSDictionary dictionaryWithObjectsAndKeys:lines, NSParagraphStyleAttributeName, fontFitting(state),
                                                       NSFontAttributeName, color, NSForegroundColorAttributeName, nil];
        NSAttributedString* const title = [[NSAttributedString alloc] initWithString:text attributes:looks];
        [(NSButton*)control setAttributedTitle:title];
        [title release];
        return;
    }
    if (state.type == WidgetType::Label)
        [(NSTextField*)control setTextColor:dark_ ? [NSColor whiteColor] : [NSColor controlTextColor]];
    NSText* const editor = editorOf(control);
    FieldText field{static_cast<WidgetId>([control tag]), state.text, state.selection};
    if (!editor) {
        [control setStringValue:text];
    } else if (typing_) {
        // The editor still has to place its caret behind what was typed; all else waits until it has.
        if (late_ && late_->widget == field.widget && late_->text == field.text && !field.selection)
            field.selection = late_->selection;
        late_ = std::move(field);
    } else {
        show(editor, field);
    }
}

namespace {

/// Setting them, even to what they are, can end the editing of a field.
void setLook(NSControl* view, const WidgetState& state) {
    constexpr NSTextAlignment kAlignments[] = {NSTextAlignmentLeft, NSTextAlignmentLeft, NSTextAlignmentCenter,
                                               NSTextAlignmentRight};
    const NSTextAlignment alignment = kAlignments[static_cast<int>(state.alignment)];
    const bool isText = state.type == WidgetType::Label || state.type == WidgetType::TextField;
    if (![[view font] isEqual:fontOf(state)]) [view setFont:fontOf(state)];
    if (isText && [view alignment] != alignment) [view setAlignment:alignment];
}

} // namespace

void CocoaWindow::setWidget(WidgetId id, const WidgetState& state) {
    guarded([&] {
        NSControl* const view = controlFor(id, state);
        setLook(view, state);
        showImages(view, state);
        if (!NSEqualRects([view frame], rectOf(state.frame))) [view setFrame:rectOf(state.frame)];
        setText(view, state);
        if ([view isHidden] == state.visible) [view setHidden:!state.visible];
        if ([view isEnabled] != state.enabled) [view setEnabled:state.enabled];
        [view setToolTip:state.tooltip.empty() ? nil : toCocoa(state.tooltip)];
        if (state.type == WidgetType::Checkbox)
            [(NSButton*)view setState:state.checked ? NSControlStateValueOn : NSControlStateValueOff];
        [view setNeedsDisplay:YES];
    });
}

void CocoaWindow::removeWidget(WidgetId id) {
    shownImages_.erase(id);
    guarded([&] { [control(id) removeFromSuperview]; });
}

void CocoaWindow::setBrightness(double brightness) {
    dark_ = brightness < 0.5;
    guarded([&] { paint(brightness); });
}

void CocoaWindow::paint(double brightness) {
    [panel_ setBackgroundColor:dark_ ? [NSColor colorWithCalibratedWhite:brightness / 2 + 0.15 alpha:1]
                                     : [NSColor windowBackgroundColor]];
    NSEnumerator* const views = [[[panel_ contentView] subviews] objectEnumerator];
    while (NSControl* const view = [views nextObject])
        if ([view isKindOfClass:[KZO_CLASS(Text) class]])
            [(NSTextField*)view setTextColor:dark_ ? [NSColor whiteColor] : [NSColor controlTextColor]];
    [[panel_ contentView] setNeedsDisplay:YES];
}

// The focus

/// Where the text of the control is edited now; nil where it is not.
NSText* CocoaWindow::editorOf(NSControl* control) const {
    NSText* const editor = [panel_ fieldEditor:NO forObject:control];
    return editor && [panel_ firstResponder] == editor && (id)[editor delegate] == control ? editor : nil;
}

WidgetId CocoaWindow::focused() const {
    id responder = [panel_ firstResponder];
    if ([responder isKindOfClass:[NSText class]]) responder = [responder delegate];
    return [responder isKindOfClass:[NSTextField class]] ? static_cast<WidgetId>([responder tag]) : kNoWidget;
}

void CocoaWindow::setFocus(WidgetId id) {
    focused_ = id; // before it happens, so that it is no news
    guarded([&] { [panel_ makeFirstResponder:id == kNoWidget ? nil : control(id)]; });
}

core::SelectionRange CocoaWindow::selection(WidgetId id) const {
    core::SelectionRange selected;
    guarded([&] {
        NSText* const editor = editorOf(control(id));
        if (!editor) return;
        const NSRange range = [editor selectedRange];
        selected = {characters([editor string], range.location), characters([editor string], NSMaxRange(range))};
    });
    return selected;
}

// What the user does

void CocoaWindow::tell(const WindowEvent& event) {
    NSAutoreleasePool* pool = [NSAutoreleasePool new];
    guardedFromLoop([&] { owner_.handle(event); });
    [pool release];
}

void CocoaWindow::eventHandled() {
    // A key that left the text as it was, such as an arrow, is a keystroke too.
    const WidgetId field = focused();
    if (std::exchange(keyWaits_, false) && field != kNoWidget) typed((NSTextField*)control(field));
    if (late_) {
        const FieldText late = *std::exchange(late_, std::nullopt);
        if (NSText* const editor = editorOf(control(late.widget))) show(editor, late);
    }
    lookAtFocus();
}

void CocoaWindow::lookAtFocus() {
    const WidgetId now = focused();
    if (now == focused_) return;
    focused_ = now;
    tell({.kind = WindowEvent::Kind::FocusMoved, .widget = now, .text = {}, .typed = {}});
}

void CocoaWindow::typed(NSTextField* field) {
    keyWaits_ = false;
    lookAtFocus();
    NSText* const editor = editorOf(field);
    const utils::Temporary isTyping(typing_, true);
    tell({.kind = WindowEvent::Kind::Typing,
          .widget = static_cast<WidgetId>([field tag]),
          .text = fromCocoa(editor ? [editor string] : [field stringValue]),
          .typed = lastTyped_});
}

void CocoaWindow::clicked(NSControl* control, bool twice) {
    lookAtFocus();
    const bool checked =
        [control isKindOfClass:[NSButton class]] && [(NSButton*)control state] == NSControlStateValueOn;
    tell({.kind = twice ? WindowEvent::Kind::DoubleClick : WindowEvent::Kind::Click,
          .widget = static_cast<WidgetId>([control tag]),
          .checked = checked,
          .text = {},
          .typed = {}});
}

bool CocoaWindow::keyPressed(NSEvent* event) {
    const WindowEvent::Key key = keyOf(event);
    if (key == WindowEvent::Key::None) {
        lastTyped_ = typedBy(event);
        keyWaits_ = mayChangeNothing(event, lastTyped_);
        return false;
    }
    lookAtFocus();
    tell({.kind = WindowEvent::Kind::Key, .key = key, .text = {}, .typed = {}});
    return true;
}

void CocoaWindow::closeAsked() { tell({.kind = WindowEvent::Kind::Close, .text = {}, .typed = {}}); }

// The modal loop

bool CocoaWindow::run() {
    NSWindow* const before = [NSApp keyWindow];
    NSModalSession session = nullptr;
    const bool whole = guarded([&] {
        [panel_ center];
        [NSApp activateIgnoringOtherApps:YES];
        session = [NSApp beginModalSessionForWindow:panel_];
        [panel_ makeKeyAndOrderFront:nil];
        printPlaces();
        loop(session);
    });
    // Also after an exception: nothing else in the application could be clicked any more.
    guarded([&] {
        if (session) [NSApp endModalSession:session];
        [panel_ orderOut:nil];
        [before makeKeyWindow];
    });
    return whole;
}

void CocoaWindow::loop(NSModalSession session) {
    while (!stopped_ && [NSApp runModalSession:session] == NSModalResponseContinue) {
        NSAutoreleasePool* pool = [NSAutoreleasePool new];
        if (!stopped_)
            [[NSRunLoop currentRunLoop] runMode:NSModalPanelRunLoopMode
                                     beforeDate:[NSDate dateWithTimeIntervalSinceNow:0.05]];
        guardedFromLoop([] { static_cast<void>(background::move(std::chrono::milliseconds(0))); });
        [pool release];
    }
}

/// For whoever drives the window from outside: where on the screen the middle of each control is, y from the top, in a
/// file that the environment variable KZO_PLACES names.
void CocoaWindow::printPlaces() const {
    const char* const name = std::getenv("KZO_PLACES");
    std::FILE* const file = name ? std::fopen(name, "a") : nullptr;
    if (!file) return;
    const auto print = [&](const char* kind, NSView* view, NSString* label) {
        NSString* const text = [label stringByReplacingOccurrencesOfString:@"\n" withString:@" "];
        const NSRect place = [panel_ convertRectToScreen:[view convertRect:[view bounds] toView:nil]];
        std::fprintf(file, "%s\t%.0f\t%.0f\t%s\n", kind, NSMidX(place), NSMaxY([[panel_ screen] frame]) - NSMidY(place),
                     fromCocoa(text).c_str());
    };
    std::fprintf(file, "window\t%s\n", fromCocoa([panel_ title]).c_str());
    NSEnumerator* const views = [[[panel_ contentView] subviews] objectEnumerator];
    while (NSControl* const view = [views nextObject]) {
        if ([view isKindOfClass:[NSButton class]])
            print("button", view, [(NSButton*)view title]);
        else
            print([(NSTextField*)view isEditable] ? "field" : "label", view, [view stringValue]);
    }
    // The frame's only button: the window can be closed, and nothing else.
    NSEnumerator* const frame = [[[[panel_ contentView] superview] subviews] objectEnumerator];
    while (NSView* const view = [frame nextObject])
        if ([view isKindOfClass:[NSButton class]]) print("close", view, @"close");
    std::fputs("end\n", file);
    std::fclose(file);
}

} // namespace kzo::plugin::cocoa
