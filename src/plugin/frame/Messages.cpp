// Reading of the host's records, and what is given back in them.
#include "plugin/frame/Messages.h"

#include <algorithm>

#include "hostapi/AIAnnotatorSuite.h"
#include "hostapi/AIMenuSuite.h"
#include "hostapi/AINotifierSuite.h"
#include "hostapi/AITimer.h"
#include "hostapi/AITool.h"
#include "hostapi/Stage.h"
#include "plugin/document/Convert.h"
#include "plugin/platform/Convert.h"

namespace kzo::plugin {

namespace {

template <class Record> const Record& as(const void* record) { return *static_cast<const Record*>(record); }

} // namespace

MessageHead::MessageHead(const void* record)
    : self(as<SPMessageData>(record).self), basic(as<SPMessageData>(record).basic) {}

NotifyMessage::NotifyMessage(const void* record)
    : notifier(as<AINotifierMessage>(record).notifier),
      type(as<AINotifierMessage>(record).type ? as<AINotifierMessage>(record).type : "") {}

MenuMessage::MenuMessage(const void* record) : item(as<AIMenuMessage>(record).menuItem) {}

TimerMessage::TimerMessage(const void* record) : timer(as<AITimerMessage>(record).timer) {}

AnnotatorMessage::AnnotatorMessage(const void* record) {
    const auto& said = as<AIAnnotatorMessage>(record);
    annotator = said.annotator;
    context = said.context;
    view = said.view;
    triggeredByDragScroll = host::fromHost<bool>(said.triggeredByDragScroll);
    showEdges = host::fromHost<bool>(said.showEdges);
    rects_ = said.invalidationRects;
    rectCount_ = rects_ ? std::max(said.invalidationRectCount, 0) : 0;
}

std::vector<core::ArtboardRect> AnnotatorMessage::invalidationRects() const {
    return host::fromHost<core::ArtboardRect>(std::vector<AIRealRect>(rects_, rects_ + rectCount_));
}

InputMessage::InputMessage(const void* record) : code(as<StageInputMessage>(record).code) {}

ToolMessage::ToolMessage(const void* record)
    : tool(as<AIToolMessage>(record).tool),
      cursor(host::fromHost<core::ArtboardPoint>(as<AIToolMessage>(record).cursor)),
      modifiers(host::fromHost<core::ModifierKeys>(as<AIToolMessage>(record).modifiers)),
      takenBack((as<AIToolMessage>(record).flags & kAIGestureTakenBack) != 0) {}

void ToolMessage::holdCursor(void* record, const core::ArtboardPoint& at) {
    static_cast<AIToolMessage*>(record)->cursor = host::toHost(at);
}

} // namespace kzo::plugin
