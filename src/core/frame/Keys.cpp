// Modifier keys: the message's come first, so that a host that maps keys anew is followed.
#include "core/frame/Keys.h"

#include "plugin/frame/BasePlugin.h"
#include "plugin/platform/Platform.h"

namespace kzo::core {

ModifierKeys modifierKeysPressed() {
    plugin::BasePlugin* const frame = plugin::frame();
    const plugin::ToolMessage* const message = frame ? frame->dispatcher().lastToolMessage() : nullptr;
    return message ? message->modifiers : plugin::platform().modifierKeys();
}

} // namespace kzo::core
