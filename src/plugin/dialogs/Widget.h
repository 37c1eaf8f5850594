// A widget of whatever kind: what it is and shows, and the callbacks of its owner. What happens to it, and when which
// callback runs, its dialog decides.
#pragma once

#include <memory>
#include <string>

#include "core/values/Callback.h"
#include "plugin/platform/Windows.h"

namespace kzo::plugin {

class ModalDialog;

class Widget : public std::enable_shared_from_this<Widget> {
  public:
    /// A height of 0 is the platform's for this kind and text.
    Widget(core::WidgetType type, const geo::Point& origin, const std::string& text, double width);

    [[nodiscard]] WidgetId handle() const { return id_; }
    [[nodiscard]] const WidgetState& state() const { return state_; }
    [[nodiscard]] core::WidgetType type() const { return state_.type; }
    [[nodiscard]] bool is(core::WidgetType type) const { return state_.type == type; }
    [[nodiscard]] bool canBeUsed() const { return state_.visible && state_.enabled; }

    // What it shows. A dialog that is open shows it at once.
    [[nodiscard]] geo::Rect frame() const { return state_.frame; }
    void setFrame(const geo::Rect& frame);
    void setOrigin(const geo::Point& origin);
    void setWidth(double width); ///< a height that was never set follows
    void setText(const std::string& text);
    void setTooltip(const std::string& tooltip);
    void setVisible(bool visible);
    void setEnabled(bool enabled);
    void setChecked(bool checked);
    void setBold(bool bold);
    void setItalic(bool italic);
    void setAlignment(core::TextAlignment alignment);
    void setStyle(core::ButtonStyle style);
    void setImages(const core::WidgetImages& images); ///< takes their size, as far as none was given
    void setSelection(const core::SelectionRange& selection);
    [[nodiscard]] core::SelectionRange selection() const; ///< as the user has it
    [[nodiscard]] geo::Size idealSize() const;
    void update() { tell(); } ///< shows it again

    // The focus, which only fields can have
    void focus();
    void blur();
    [[nodiscard]] bool hasFocus() const;

    /// As if the user clicked; nothing on what is disabled or hidden.
    void click();

    // Callbacks: a keystroke; the value is committed; clicks
    core::CallbackSlot changing;
    core::CallbackSlot changed;
    core::CallbackSlot clicked;
    core::CallbackSlot doubleClicked;

    std::weak_ptr<Widget> linked; ///< the field of a label, and the label of a field
    std::string lastTyped;        ///< the character of the latest keystroke, in UTF-8

    [[nodiscard]] const std::weak_ptr<ModalDialog>& window() const { return window_; }

  private:
    friend class ModalDialog;

    template <class Value> void change(Value& value, const Value& to);
    void fitHeight();
    void tell();
    void giveUpFocus(); ///< of what can be used no longer

    WidgetId id_;
    WidgetState state_;
    bool heightSet_ = false;
    std::string reported_;    ///< the text that its owner knows of: set by it, or reported to it as changed
    bool beingTyped_ = false; ///< its callback for keystrokes runs
    std::weak_ptr<ModalDialog> window_;
};

/// The widgets that the user did something to last, for callbacks that serve several; null before the first.
struct LastWidgets {
    std::weak_ptr<Widget> changed;
    std::weak_ptr<Widget> changing;
    std::weak_ptr<Widget> clicked;
};
[[nodiscard]] LastWidgets& lastWidgets();

} // namespace kzo::plugin
