// Modifier keys: the message's come first, so that a host that maps keys anew is followed.
#include "core/frame/Keys.h"

#include "core/app/Plugin.h"
#include "plugin/frame/BasePlugin.h"
#include "plugin/platform/Platform.h"

namespace kzo::core {

ModifierKeys modifierKeysPressed() {
    const Plugin* const plugin = Plugin::instance();
    const plugin::ToolMessage* const message = plugin ? plugin->impl().dispatcher().lastToolMessage() : nullptr;
    return message ? message->modifiers : plugin::platform().modifierKeys();
}

} // namespace kzo::core
