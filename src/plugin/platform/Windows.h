// The seam below dialogs: a modal window with controls, as a platform shows it. All that a dialog does is decided above
// (plugin/dialogs): a window shows widgets as they are handed over, and tells what the user does to them.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "core/values/DialogEnumerations.h"
#include "geo/Rect.h"

namespace kzo::plugin {

using WidgetId = std::int32_t; ///< above 0
inline constexpr WidgetId kNoWidget = 0;

/// What a widget is and shows. Frames are points from the top left corner of the window's content, y down; texts are
/// valid UTF-8 without control characters, except for the line breaks of labels.
struct WidgetState {
    core::WidgetType type = core::WidgetType::None;
    geo::Rect frame;
    std::string text;
    std::string tooltip;
    bool visible = true;
    bool enabled = true;
    bool checked = false;
    bool bold = false;
    bool italic = false;
    core::TextAlignment alignment = core::TextAlignment::Left;
    core::ButtonStyle style = core::ButtonStyle::Plain;
    core::WidgetImages images;                     ///< of a label or button, all of them given or none
    WidgetId linked = kNoWidget;                   ///< the field that a label is for
    std::int32_t tabPlace = 0;                     ///< of a field, from 1, whether it can be used now or not
    std::optional<core::SelectionRange> selection; ///< of a field; none: as the user has it
};

/// What the user does. A window tells nothing of what it is told itself, say where the focus goes.
struct WindowEvent {
    enum class Kind {
        Typing = 1,      ///< `text` is the field's now, changed or not, `typed` the keystroke
        Commit = 2,      ///< the editing of a field has ended, though the focus stays
        Click = 3,       ///< a checkbox has its new state already
        DoubleClick = 4, ///< in place of the second click
        FocusMoved = 5,  ///< to `widget`, or to none
        Key = 6,
        Close = 7
    };
    enum class Key { None = 0, Return = 1, Escape = 2, Tab = 3, BackTab = 4 };

    Kind kind = Kind::Close;
    WidgetId widget = kNoWidget;
    Key key = Key::None;
    bool checked = false;
    std::string text;
    std::string typed;
};

class WindowOwner {
  public:
    virtual void handle(const WindowEvent& event) = 0;

  protected:
    ~WindowOwner() = default;
};

/// One window, gone with this object.
class Window {
  public:
    Window() = default;
    virtual ~Window() = default;
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    virtual void setFrame(const std::string& title, const geo::Size& content) = 0;
    virtual void setWidget(WidgetId id, const WidgetState& state) = 0; ///< a new one, or a changed one
    virtual void removeWidget(WidgetId id) = 0;
    virtual void setFocus(WidgetId id) = 0; ///< to a field, all of its text selected; kNoWidget: to none
    [[nodiscard]] virtual core::SelectionRange selection(WidgetId id) const = 0;
    virtual bool run() = 0; ///< shows it until `stop`; false where it cannot be shown
    virtual void stop() = 0;
    virtual void setBrightness(double brightness) = 0; ///< of the interface, 0 dark to 1 light
};

class Windows {
  public:
    /// Null where no window can be had.
    [[nodiscard]] virtual std::unique_ptr<Window> make(WindowOwner& owner) = 0;
    /// The width that the text takes on one line, with what is around it, and the height that it needs in the width of
    /// its frame; on one line where that is 0. Of a picture its own size. A picture that cannot be had does not count.
    [[nodiscard]] virtual geo::Size fittingSize(const WidgetState& state) const = 0;
    [[nodiscard]] virtual double brightness() const = 0; ///< of the interface, 0 dark to 1 light
    /// What the host tells of a window, by its message's record; for windows that the host shows.
    virtual void handleMessage(const void* /*record*/) {}

  protected:
    ~Windows() = default;
};

} // namespace kzo::plugin
