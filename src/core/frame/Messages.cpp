// What the typed messages read from the host's records, on arrival.
#include "core/frame/Messages.h"

#include "core/frame/Annotator.h"
#include "plugin/frame/BasePlugin.h"
#include "plugin/frame/Messages.h"

namespace kzo::core {

Message::Message(const MessageRow& row, void* record)
    : row_(row), record_(record), self_(plugin::MessageHead(record).self) {}

MenuMessage::MenuMessage(const MessageRow& row, void* record)
    : Message(row, record), item_(plugin::MenuMessage(record).item) {}

TimerMessage::TimerMessage(const MessageRow& row, void* record)
    : Message(row, record), timer_(plugin::TimerMessage(record).timer) {}

AnnotatorMessage::AnnotatorMessage(const MessageRow& row, void* record) : Message(row, record) {
    const plugin::AnnotatorMessage said(record);
    annotator_ = said.annotator;
    context_ = said.context;
    view_ = said.view;
    triggeredByDragScroll_ = said.triggeredByDragScroll;
    showEdges_ = said.showEdges;
    rects_ = said.invalidationRects();
}

Annotator AnnotatorMessage::annotator() const {
    plugin::BasePlugin* const frame = plugin::frame();
    return frame ? Annotator(frame->registered<plugin::Annotator>().find(annotator_)) : Annotator();
}

NotifyMessage::NotifyMessage(const MessageRow& row, void* record) : Message(row, record) {
    const plugin::NotifyMessage said(record);
    notifier_ = said.notifier;
    type_ = core::notifierType(said.type);
}

ToolMessage::ToolMessage(const MessageRow& row, void* record) : Message(row, record) {
    const plugin::ToolMessage said(record);
    tool_ = said.tool;
    cursor_ = said.cursor;
    modifiers_ = said.modifiers;
    takenBack_ = said.takenBack;
}

} // namespace kzo::core
