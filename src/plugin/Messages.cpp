// Reading of the host's records.
#include "plugin/Messages.h"

#include "hostapi/AIMenuSuite.h"
#include "hostapi/AINotifierSuite.h"
#include "hostapi/AITimerSuite.h"
#include "hostapi/AIToolSuite.h"

namespace kzo::plugin {

MessageHead::MessageHead(const void* record)
    : self(static_cast<const SPMessageData*>(record)->self), basic(static_cast<const SPMessageData*>(record)->basic) {}

NotifyMessage::NotifyMessage(const void* record)
    : notifier(static_cast<const AINotifierMessage*>(record)->notifier),
      type(static_cast<const AINotifierMessage*>(record)->type ? static_cast<const AINotifierMessage*>(record)->type
                                                               : "") {}

MenuMessage::MenuMessage(const void* record) : item(static_cast<const AIMenuMessage*>(record)->menuItem) {}

TimerMessage::TimerMessage(const void* record) : timer(static_cast<const AITimerMessage*>(record)->timer) {}

ToolMessage::ToolMessage(const void* record)
    : tool(static_cast<const AIToolMessage*>(record)->tool),
      cursor(static_cast<const AIToolMessage*>(record)->cursor),
      modifiers(core::ModifierKeys(static_cast<const AIToolMessage*>(record)->modifiers)) {}

} // namespace kzo::plugin
