// A push button in a dialog, with a title or a picture.
#pragma once

#include "core/dialogs/Widget.h"

namespace kzo::core {

/// Return clicks the default button, Escape and the dialog's close button the cancel button. A click leaves the focus
/// in the field that has it.
class Button : public Widget {
  public:
    Button() = default; ///< empty
    using Widget::Widget;
    Button(const Point& origin, const std::string& text, double width);
    Button(const Point& origin, const WidgetImages& images); ///< as large as the normal one

    [[nodiscard]] ButtonStyle style() const; ///< Plain at first
    void setStyle(ButtonStyle style);
    [[nodiscard]] WidgetImages images() const;
    void setImages(const WidgetImages& images); ///< in place of the title, which then is for who hears the window read

    [[nodiscard]] Callback* clickCallback() const;
    void setClickCallback(const Callback& callback);
    [[nodiscard]] Callback* doubleClickCallback() const; // in place of the second click's
    void setDoubleClickCallback(const Callback& callback);
    void click(); ///< as if the user did; nothing where it is disabled or hidden
};

} // namespace kzo::core
