// AppKit by its present names, on both platforms, and names of classes that no other product has: all bundles in a
// process share one table of classes, in which the first of a name wins silently.
#pragma once

#import <AppKit/AppKit.h>

#ifndef __APPLE__
#define NSEventTypeKeyDown NSKeyDown
#define NSEventTypeLeftMouseUp NSLeftMouseUp
#define NSEventModifierFlagShift NSShiftKeyMask
#define NSEventModifierFlagControl NSControlKeyMask
#define NSEventModifierFlagOption NSAlternateKeyMask
#define NSEventModifierFlagCommand NSCommandKeyMask
#define NSButtonTypeSwitch NSSwitchButton
#define NSButtonTypeMomentaryPushIn NSMomentaryPushInButton
#define NSButtonTypeMomentaryChange NSMomentaryChangeButton
#define NSBezelStyleRounded NSRoundedBezelStyle
#define NSTextAlignmentLeft NSLeftTextAlignment
#define NSTextAlignmentCenter NSCenterTextAlignment
#define NSTextAlignmentRight NSRightTextAlignment
#endif

// Set by the build: the product's own.
#ifndef KZO_CLASS_PREFIX
#error "KZO_CLASS_PREFIX is not set"
#endif
#define KZO_JOIN_TOKENS(prefix, name) prefix##name
#define KZO_JOIN(prefix, name) KZO_JOIN_TOKENS(prefix, name)
#define KZO_CLASS(name) KZO_JOIN(KZO_CLASS_PREFIX, name)
