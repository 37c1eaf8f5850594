// Modifier keys: the message's come first, so that a host that maps keys anew is followed.
#include "core/frame/Keys.h"

#include "plugin/frame/Dispatcher.h"
#include "plugin/platform/Platform.h"

namespace kzo::core {

ModifierKeys modifierKeysPressed() {
    const plugin::Executing* const tool = plugin::Dispatcher::executingTool();
    return tool ? tool->toolMessage->modifiers : plugin::platform().keys().held();
}

} // namespace kzo::core
