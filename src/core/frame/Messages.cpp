// What the typed messages read from the host's records.
#include "core/frame/Messages.h"

#include "core/frame/Annotator.h"
#include "plugin/frame/BasePlugin.h"
#include "plugin/frame/Messages.h"

namespace kzo::core {

SPPlugin* Message::spPluginRef() const { return plugin::MessageHead(record_).self; }

_t_MenuItemOpaque* MenuMessage::aiMenuItemHandle() const { return plugin::MenuMessage(record()).item; }
AITimer* TimerMessage::aiTimerHandle() const { return plugin::TimerMessage(record()).timer; }

Annotator AnnotatorMessage::annotator() const {
    plugin::BasePlugin* const frame = plugin::frame();
    return frame ? Annotator(frame->annotators().find(plugin::AnnotatorMessage(record()).annotator)) : Annotator();
}

AIDrawingContext* AnnotatorMessage::context() const { return plugin::AnnotatorMessage(record()).context; }
AIDocumentView* AnnotatorMessage::docView() const { return plugin::AnnotatorMessage(record()).view; }
bool AnnotatorMessage::triggeredByDragScroll() const {
    return plugin::AnnotatorMessage(record()).triggeredByDragScroll;
}
bool AnnotatorMessage::showEdges() const { return plugin::AnnotatorMessage(record()).showEdges; }

std::vector<ArtboardRect> AnnotatorMessage::invalidationRects() const {
    std::vector<ArtboardRect> rects;
    for (const plugin::ArtboardRect& rect : plugin::AnnotatorMessage(record()).invalidationRects())
        rects.emplace_back(rect);
    return rects;
}

AINotifier* NotifyMessage::aiNotifierHandle() const { return plugin::NotifyMessage(record()).notifier; }
NotifierType NotifyMessage::notifierType() const { return core::notifierType(plugin::NotifyMessage(record()).type); }

AITool* ToolMessage::aiToolHandle() const { return plugin::ToolMessage(record()).tool; }
ArtboardPoint ToolMessage::cursorLoc() const { return ArtboardPoint(plugin::ToolMessage(record()).cursor); }
ModifierKeys ToolMessage::modifierKeys() const { return plugin::ToolMessage(record()).modifiers; }

} // namespace kzo::core
