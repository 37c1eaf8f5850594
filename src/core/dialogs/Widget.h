// What all widgets of a dialog have in common.
#pragma once

#include <string>

#include "core/Handle.h"
#include "core/values/Callback.h"
#include "core/values/DialogEnumerations.h"
#include "core/values/Rect.h"

namespace kzo::plugin {
class Widget;
}

namespace kzo::core {

class ModalDialog;

extern template class Handle<plugin::Widget>;

/// Places and sizes are points from the top left corner of the dialog's content, y down. Texts are UTF-8; of a very
/// long one the beginning is kept, and control characters become blanks. Places and sizes that are not finite change
/// nothing. Empty handles do nothing and return false, 0,
/// empty texts or null.
class Widget : public Handle<plugin::Widget> {
  public:
    Widget() = default; ///< empty
    using Handle::Handle;

    [[nodiscard]] WidgetType type() const;
    [[nodiscard]] ModalDialog window() const; ///< that it was added to; empty before

    // Place
    [[nodiscard]] Rect frame() const;
    void setFrame(const Rect& frame); ///< from then on the height is kept; until then it follows the text
    void setOrigin(const Point& origin);
    void setSize(const Size& size);
    void setWidth(double width);
    void setHeight(double height);
    void offset(double dx, double dy);
    [[nodiscard]] double idealWidth() const;  ///< for the text on one line
    [[nodiscard]] double idealHeight() const; ///< for the text in the widget's width

    // What it shows
    [[nodiscard]] std::string text() const; ///< of a field: as typed so far
    void setText(const std::string& text);
    [[nodiscard]] std::string tooltip() const;
    void setTooltip(const std::string& tooltip);
    [[nodiscard]] bool visible() const;
    void setVisible(bool visible);
    [[nodiscard]] bool enabled() const;
    void setEnabled(bool enabled);
    void update(); ///< shows it again

    // The focus: which field the keys go to; no other kind of widget takes it, or has any to give up. Before the
    // dialog shows these say where it will be at first.
    void focus();
    void blur(); ///< ends the editing, which is a commit
    [[nodiscard]] bool hasFocus() const;

    // For callbacks that serve several widgets; empty before the first
    [[nodiscard]] static Widget lastValueChangedWidget();
    [[nodiscard]] static Widget lastValueChangingWidget();
    [[nodiscard]] static Widget lastClickedWidget();

  protected:
    Widget(WidgetType type, const Point& origin, const std::string& text, double width);
};

} // namespace kzo::core
