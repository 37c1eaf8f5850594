// Text in a dialog that the user cannot change.
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

    void setBold(bool bold);
    void setItalic(bool italic);
    void setAlignment(TextAlignment alignment);
    /// A click on the label puts the focus into the field.
    void setTextField(const TextField& field);

    [[nodiscard]] Callback* clickCallback() const;
    void setClickCallback(const Callback& callback);
    [[nodiscard]] Callback* doubleClickCallback() const; // after that of the clicks
    void setDoubleClickCallback(const Callback& callback);
};

} // namespace kzo::core
