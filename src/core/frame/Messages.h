// The host's messages as typed objects, one class a family. They are there while the message is being handled.
#pragma once

#include <vector>

#include "core/frame/NotifierType.h"
#include "core/values/ArtboardPoint.h"
#include "core/values/ArtboardRect.h"
#include "core/values/FrameEnumerations.h"
#include "core/values/MessageType.h"

struct AIAnnotator;
struct AIDocumentView;
struct AIDrawingContext;
struct AINotifier;
struct AITimer;
struct AITool;
struct SPPlugin;
struct _t_MenuItemOpaque;

namespace kzo::core {

class Annotator;

/// Any message. What it says was read on arrival and stays, whatever the host does with its record meanwhile. A handler
/// that has something to tell the host writes it into the host's own record.
class Message {
  public:
    Message(const MessageRow& row, void* record);
    virtual ~Message() = default;
    Message(const Message&) = delete;
    Message& operator=(const Message&) = delete;

    [[nodiscard]] MessageType type() const { return row_.type; }
    [[nodiscard]] std::string_view caller() const { return row_.caller; }
    [[nodiscard]] std::string_view selector() const { return row_.selector; }
    [[nodiscard]] SPPlugin* spPluginRef() const { return self_; } ///< whom the message is for
    [[nodiscard]] void* record() const { return record_; }        ///< the host's record

  private:
    const MessageRow& row_;
    void* record_;
    SPPlugin* self_;
};

// Families that the host interface describes further

class MenuMessage : public Message {
  public:
    MenuMessage(const MessageRow& row, void* record);

    [[nodiscard]] _t_MenuItemOpaque* aiMenuItemHandle() const { return item_; } ///< null when all items are meant

  private:
    _t_MenuItemOpaque* item_;
};

class TimerMessage : public Message {
  public:
    TimerMessage(const MessageRow& row, void* record);

    [[nodiscard]] AITimer* aiTimerHandle() const { return timer_; }

  private:
    AITimer* timer_;
};

/// An annotator's message: its callback finds it as `Dispatcher::lastMessage`.
class AnnotatorMessage : public Message {
  public:
    AnnotatorMessage(const MessageRow& row, void* record);

    [[nodiscard]] Annotator annotator() const; ///< empty for one that is not ours
    [[nodiscard]] AIDrawingContext* context() const {
        return context_;
    } ///< for an AnnotationDrawer; null in "AI Invalidate"
    [[nodiscard]] AIDocumentView* docView() const { return view_; } ///< which view is being drawn
    /// The view was scrolled with the mouse button down.
    [[nodiscard]] bool triggeredByDragScroll() const { return triggeredByDragScroll_; }
    [[nodiscard]] bool showEdges() const { return showEdges_; } ///< the view shows outlines of what is selected
    [[nodiscard]] const std::vector<ArtboardRect>& invalidationRects() const {
        return rects_;
    } ///< what has to be drawn anew

  private:
    AIAnnotator* annotator_;
    AIDrawingContext* context_;
    AIDocumentView* view_;
    bool triggeredByDragScroll_;
    bool showEdges_;
    std::vector<ArtboardRect> rects_;
};

class NotifyMessage : public Message {
  public:
    NotifyMessage(const MessageRow& row, void* record);

    [[nodiscard]] AINotifier* aiNotifierHandle() const { return notifier_; }
    [[nodiscard]] NotifierType notifierType() const { return type_; } ///< None for an event that is not in our table

  private:
    AINotifier* notifier_;
    NotifierType type_;
};

class ToolMessage : public Message {
  public:
    ToolMessage(const MessageRow& row, void* record);

    [[nodiscard]] AITool* aiToolHandle() const { return tool_; }
    [[nodiscard]] ArtboardPoint cursorLoc() const { return cursor_; }
    [[nodiscard]] ModifierKeys modifierKeys() const { return modifiers_; }
    /// Of a mouse-up: the gesture is taken back, say by Escape, with all that is done in this message.
    [[nodiscard]] bool gestureTakenBack() const { return takenBack_; }

  private:
    AITool* tool_;
    ArtboardPoint cursor_;
    ModifierKeys modifiers_;
    bool takenBack_;
};

// Families, and single kinds of live effects, of which the head is all that is known

template <auto FamilyOrKind> class MessageOf : public Message {
  public:
    using Message::Message;
};

using ActionMessage = MessageOf<MessageFamily::Action>;
using AdapterMessage = MessageOf<MessageFamily::Adapter>;
using ClipboardMessage = MessageOf<MessageFamily::Clipboard>;
using CustomArtMessage = MessageOf<MessageFamily::CustomArt>;
using FileFormatMessage = MessageOf<MessageFamily::FileFormat>;
using FilterMessage = MessageOf<MessageFamily::Filter>;
using LayerListMessage = MessageOf<MessageFamily::LayerList>;
using ObjectSetMessage = MessageOf<MessageFamily::ObjectSet>;
using PluginMessage = MessageOf<MessageFamily::Plugin>;
using PreferencesMessage = MessageOf<MessageFamily::Preferences>;
using ToolboxMessage = MessageOf<MessageFamily::Toolbox>;
using TransformAgainMessage = MessageOf<MessageFamily::TransformAgain>;
using WorkspaceMessage = MessageOf<MessageFamily::Workspace>;

using LiveEffectAdjustColorsMessage = MessageOf<MessageType::LiveEffectAdjustColors>;
using LiveEffectConvertColorSpaceMessage = MessageOf<MessageType::LiveEffectConvertColorSpace>;
using LiveEffectEditParametersMessage = MessageOf<MessageType::LiveEffectEditParameters>;
using LiveEffectGetSVGFilterMessage = MessageOf<MessageType::LiveEffectGetSVGFilter>;
using LiveEffectGoLiveMessage = MessageOf<MessageType::LiveEffectGoLive>;
using LiveEffectHandleMergeMessage = MessageOf<MessageType::LiveEffectHandleMerge>;
using LiveEffectInputTypeMessage = MessageOf<MessageType::LiveEffectInputType>;
using LiveEffectInterpolateParametersMessage = MessageOf<MessageType::LiveEffectInterpolateParameters>;
using LiveEffectIsCompatibleMessage = MessageOf<MessageType::LiveEffectIsCompatible>;
using LiveEffectScaleParametersMessage = MessageOf<MessageType::LiveEffectScaleParameters>;

} // namespace kzo::core
