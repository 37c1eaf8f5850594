// Text or a picture in a dialog that the user cannot change.
#pragma once

#include "core/dialogs/Widget.h"

namespace kzo::core {

class TextField;

/// A long text is wrapped at the label's width; as long as its height was not set, a label is as high as its text,
/// though it ends where the next widget below begins.
class Label : public Widget {
  public:
    Label() = default; ///< empty
    using Widget::Widget;
    Label(const Point& origin, const std::string& text, double width);
    Label(const Point& origin, const WidgetImages& images); ///< as large as the normal one

    [[nodiscard]] WidgetImages images() const;
    void setImages(const WidgetImages& images); ///< in place of the text, which then is for who hears the window read
    void setBold(bool bold);
    void setItalic(bool italic);
    void setAlignment(TextAlignment alignment);
    /// A click on the label puts the focus into the field.
    void setTextField(const TextField& field);

    [[nodiscard]] Callback* clickCallback() const;
    void setClickCallback(const Callback& callback);
    [[nodiscard]] Callback* doubleClickCallback() const; // in place of the second click's
    void setDoubleClickCallback(const Callback& callback);
};

} // namespace kzo::core
