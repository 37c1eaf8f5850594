// What the typed messages read from the host's records.
#include "core/Messages.h"

#include "plugin/Messages.h"

namespace kzo::core {

SPPlugin* Message::spPluginRef() const { return plugin::MessageHead(record_).self; }

_t_MenuItemOpaque* MenuMessage::aiMenuItemHandle() const { return plugin::MenuMessage(record()).item; }
AITimer* TimerMessage::aiTimerHandle() const { return plugin::TimerMessage(record()).timer; }

AINotifier* NotifyMessage::aiNotifierHandle() const { return plugin::NotifyMessage(record()).notifier; }
NotifierType NotifyMessage::notifierType() const { return core::notifierType(plugin::NotifyMessage(record()).type); }

AITool* ToolMessage::aiToolHandle() const { return plugin::ToolMessage(record()).tool; }
ArtboardPoint ToolMessage::cursorLoc() const { return ArtboardPoint(plugin::ToolMessage(record()).cursor); }
ModifierKeys ToolMessage::modifierKeys() const { return plugin::ToolMessage(record()).modifiers; }

} // namespace kzo::core
