// What the host's message records say, as plain records of our own: read once on arrival, valid while the message is
// being handled.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "core/values/ArtboardPoint.h"
#include "core/values/ArtboardRect.h"
#include "core/values/FrameEnumerations.h"

struct AIAnnotator;
struct AIDocumentView;
struct AIDrawingContext;
struct AINotifier;
struct AIRealRect;
struct AITimer;
struct AITool;
struct SPBasicSuite;
struct SPPlugin;
struct _t_MenuItemOpaque;

namespace kzo::plugin {

/// The head of every message.
struct MessageHead {
    explicit MessageHead(const void* record);

    SPPlugin* self;
    const SPBasicSuite* basic;
};

struct NotifyMessage {
    explicit NotifyMessage(const void* record);

    AINotifier* notifier;
    std::string_view type;
};

struct MenuMessage {
    explicit MenuMessage(const void* record);

    _t_MenuItemOpaque* item; ///< null when all items are meant
};

struct TimerMessage {
    explicit TimerMessage(const void* record);

    AITimer* timer;
};

struct AnnotatorMessage {
    explicit AnnotatorMessage(const void* record);

    AIAnnotator* annotator;
    AIDrawingContext* context; ///< null when the message is not about drawing
    AIDocumentView* view;
    bool triggeredByDragScroll;
    bool showEdges;
    [[nodiscard]] std::vector<core::ArtboardRect> invalidationRects() const;

  private:
    const AIRealRect* rects_;
    std::int32_t rectCount_;
};

struct InputMessage {
    explicit InputMessage(const void* record);

    std::int32_t code; ///< of the key or the button
};

struct ToolMessage {
    explicit ToolMessage(const void* record);

    /// Tells the host where the tool holds the cursor, in its record.
    static void holdCursor(void* record, const core::ArtboardPoint& at);

    AITool* tool;
    core::ArtboardPoint cursor;
    core::ModifierKeys modifiers;
    bool takenBack; ///< the gesture is, instead of ended
};

/// Callers, selectors and notifier types that the framework itself acts on.
namespace message {
inline constexpr std::string_view kAccess = "SP Access";
inline constexpr std::string_view kInterface = "SP Interface";
inline constexpr std::string_view kStartup = "Startup";
inline constexpr std::string_view kShutdown = "Shutdown";
inline constexpr std::string_view kAbout = "About";
inline constexpr std::string_view kNotifier = "AI Notifier";
inline constexpr std::string_view kMenu = "AI Menu";
inline constexpr std::string_view kTimer = "AI Timer";
inline constexpr std::string_view kAnnotation = "AI Annotation";
inline constexpr std::string_view kGo = "AI Go";
inline constexpr std::string_view kUpdate = "AI Update";
inline constexpr std::string_view kTool = "AI Tool";
inline constexpr std::string_view kStage = "Stage";
inline constexpr std::string_view kKeyPressed = "Key Pressed";
inline constexpr std::string_view kMousePressed = "Mouse Pressed";
inline constexpr std::string_view kDialogEvent = "Dialog Event";
inline constexpr std::string_view kApplicationStarted = "AI Application Started Notifier";
inline constexpr std::string_view kApplicationShutdown = "AI Application Shutdown Notifier";
inline constexpr std::string_view kBrightnessChanged = "AI UI Brightness Changed Notifier";
} // namespace message

} // namespace kzo::plugin
