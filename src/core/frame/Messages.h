// The host's messages as typed objects, one class a family. They are there while the message is being handled.
#pragma once

#include <vector>

#include "core/frame/MessageType.h"
#include "core/frame/NotifierType.h"
#include "core/values/ArtboardPoint.h"
#include "core/values/ArtboardRect.h"
#include "core/values/Enumerations.h"

struct AIDocumentView;
struct AIDrawingContext;
struct AINotifier;
struct AITimer;
struct AITool;
struct SPPlugin;
struct _t_MenuItemOpaque;

namespace kzo::core {

class Annotator;

/// Any message. A handler that has something to tell the host writes it into the host's own record.
class Message {
  public:
    Message(const MessageRow& row, void* record) : row_(row), record_(record) {}
    virtual ~Message() = default;
    Message(const Message&) = delete;
    Message& operator=(const Message&) = delete;

    [[nodiscard]] MessageType type() const { return row_.type; }
    [[nodiscard]] std::string_view caller() const { return row_.caller; }
    [[nodiscard]] std::string_view selector() const { return row_.selector; }
    [[nodiscard]] SPPlugin* spPluginRef() const;           ///< whom the message is for
    [[nodiscard]] void* record() const { return record_; } ///< the host's record

  private:
    const MessageRow& row_;
    void* record_;
};

// Families that the host interface describes further

class MenuMessage : public Message {
  public:
    using Message::Message;

    [[nodiscard]] _t_MenuItemOpaque* aiMenuItemHandle() const; ///< null when all items are meant
};

class TimerMessage : public Message {
  public:
    using Message::Message;

    [[nodiscard]] AITimer* aiTimerHandle() const;
};

/// An annotator's message: its callback finds it as `Dispatcher::lastMessage`.
class AnnotatorMessage : public Message {
  public:
    using Message::Message;

    [[nodiscard]] Annotator annotator() const;        ///< empty for one that is not ours
    [[nodiscard]] AIDrawingContext* context() const;  ///< for an AnnotationDrawer; null in "AI Invalidate"
    [[nodiscard]] AIDocumentView* docView() const;    ///< which view is being drawn
    [[nodiscard]] bool triggeredByDragScroll() const; ///< the view was scrolled with the mouse button down
    [[nodiscard]] bool showEdges() const;             ///< the view shows outlines of what is selected
    [[nodiscard]] std::vector<ArtboardRect> invalidationRects() const; ///< what has to be drawn anew
};

class NotifyMessage : public Message {
  public:
    using Message::Message;

    [[nodiscard]] AINotifier* aiNotifierHandle() const;
    [[nodiscard]] NotifierType notifierType() const; ///< None for an event that is not in our table
};

class ToolMessage : public Message {
  public:
    using Message::Message;

    [[nodiscard]] AITool* aiToolHandle() const;
    [[nodiscard]] ArtboardPoint cursorLoc() const;
    [[nodiscard]] ModifierKeys modifierKeys() const;
};

// Families of which the head is all that is known

class ActionMessage : public Message {
  public:
    using Message::Message;
};

class ClipboardMessage : public Message {
  public:
    using Message::Message;
};

class FileFormatMessage : public Message {
  public:
    using Message::Message;
};

class FilterMessage : public Message {
  public:
    using Message::Message;
};

class LayerListMessage : public Message {
  public:
    using Message::Message;
};

class ObjectSetMessage : public Message {
  public:
    using Message::Message;
};

class CustomArtMessage : public Message {
  public:
    using Message::Message;
};

class PreferencesMessage : public Message {
  public:
    using Message::Message;
};

class ToolboxMessage : public Message {
  public:
    using Message::Message;
};

class TransformAgainMessage : public Message {
  public:
    using Message::Message;
};

class WorkspaceMessage : public Message {
  public:
    using Message::Message;
};

class PluginMessage : public Message {
  public:
    using Message::Message;
};

class AdapterMessage : public Message {
  public:
    using Message::Message;
};

// Live effects: a class for each selector

class LiveEffectEditParametersMessage : public Message {
  public:
    using Message::Message;
};

class LiveEffectGoLiveMessage : public Message {
  public:
    using Message::Message;
};

class LiveEffectInterpolateParametersMessage : public Message {
  public:
    using Message::Message;
};

class LiveEffectInputTypeMessage : public Message {
  public:
    using Message::Message;
};

class LiveEffectConvertColorSpaceMessage : public Message {
  public:
    using Message::Message;
};

class LiveEffectScaleParametersMessage : public Message {
  public:
    using Message::Message;
};

class LiveEffectHandleMergeMessage : public Message {
  public:
    using Message::Message;
};

class LiveEffectGetSVGFilterMessage : public Message {
  public:
    using Message::Message;
};

class LiveEffectAdjustColorsMessage : public Message {
  public:
    using Message::Message;
};

class LiveEffectIsCompatibleMessage : public Message {
  public:
    using Message::Message;
};

} // namespace kzo::core
