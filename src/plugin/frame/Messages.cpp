// Reading of the host's records, and what is given back in them.
#include "plugin/frame/Messages.h"

#include <algorithm>

#include "hostapi/AIAnnotatorSuite.h"
#include "hostapi/AIMenuSuite.h"
#include "hostapi/AINotifierSuite.h"
#include "hostapi/AITimerSuite.h"
#include "hostapi/AIToolSuite.h"
#include "hostapi/StageSuite.h"
#include "plugin/document/Convert.h"
#include "plugin/platform/Platform.h"

namespace kzo::plugin {

MessageHead::MessageHead(const void* record)
    : self(static_cast<const SPMessageData*>(record)->self), basic(static_cast<const SPMessageData*>(record)->basic) {}

NotifyMessage::NotifyMessage(const void* record)
    : notifier(static_cast<const AINotifierMessage*>(record)->notifier),
      type(static_cast<const AINotifierMessage*>(record)->type ? static_cast<const AINotifierMessage*>(record)->type
                                                               : "") {}

MenuMessage::MenuMessage(const void* record) : item(static_cast<const AIMenuMessage*>(record)->menuItem) {}

TimerMessage::TimerMessage(const void* record) : timer(static_cast<const AITimerMessage*>(record)->timer) {}

AnnotatorMessage::AnnotatorMessage(const void* record) {
    const auto& host = *static_cast<const AIAnnotatorMessage*>(record);
    annotator = host.annotator;
    context = host.context;
    view = host.view;
    triggeredByDragScroll = host.triggeredByDragScroll != 0;
    showEdges = host.showEdges != 0;
    rects_ = host.invalidationRects;
    rectCount_ = rects_ ? std::max(host.invalidationRectCount, 0) : 0;
}

std::vector<core::ArtboardRect> AnnotatorMessage::invalidationRects() const {
    return host::fromHost<core::ArtboardRect>(std::vector<AIRealRect>(rects_, rects_ + rectCount_));
}

InputMessage::InputMessage(const void* record) : code(static_cast<const StageInputMessage*>(record)->code) {}

ToolMessage::ToolMessage(const void* record)
    : tool(static_cast<const AIToolMessage*>(record)->tool),
      cursor(host::fromHost<core::ArtboardPoint>(static_cast<const AIToolMessage*>(record)->cursor)),
      modifiers(modifierKeys(static_cast<const AIToolMessage*>(record)->modifiers)),
      takenBack((static_cast<const AIToolMessage*>(record)->flags & kAIGestureTakenBack) != 0) {}

void ToolMessage::holdCursor(void* record, const core::ArtboardPoint& at) {
    static_cast<AIToolMessage*>(record)->cursor = host::toHost(at);
}

} // namespace kzo::plugin
