// The application object, which a host with windows of its own has made already.
#pragma once

#include <string>
#include <utility>

#include "plugin/platform/cocoa/Guard.h"

#ifdef __OBJC__
@class NSString;
#endif

namespace kzo::plugin::cocoa {

/// Whether windows can be shown here; makes the application object where there is none yet.
[[nodiscard]] bool ensureApplication();

/// Runs the work with a pool of its own; false when it raised an Objective-C exception, which is logged.
template <class Work> bool guarded(Work work) {
    return kzoGuarded([](void* context) { (*static_cast<Work*>(context))(); }, &work) != 0;
}

#ifdef __OBJC__
[[nodiscard]] NSString* toCocoa(const std::string& text);
[[nodiscard]] std::string fromCocoa(NSString* text);
#endif

} // namespace kzo::plugin::cocoa
