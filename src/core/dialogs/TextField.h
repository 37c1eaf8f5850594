// One line of text in a dialog that the user edits.
#pragma once

#include "core/dialogs/Label.h"

namespace kzo::core {

class TextField : public Widget {
  public:
    TextField() = default; ///< empty
    using Widget::Widget;
    TextField(const Point& origin, const std::string& text, double width);

    void setBold(bool bold);
    void setItalic(bool italic);
    void setAlignment(TextAlignment alignment);
    void setSelectionRange(const SelectionRange& range);
    [[nodiscard]] SelectionRange selectionRange() const; ///< as the user has it, while the dialog shows
    void setLabel(const Label& label);                   ///< a click on it puts the focus into this field

    /// The value is committed: by Return or Tab, or because the focus went elsewhere. Runs only where the text is
    /// another than it was set to or last committed. A click on the dialog's default or cancel button commits nothing:
    /// its callback reads the text.
    [[nodiscard]] Callback* valueChangedCallback() const;
    void setValueChangedCallback(const Callback& callback);
    /// Every keystroke.
    [[nodiscard]] Callback* valueChangingCallback() const;
    void setValueChangingCallback(const Callback& callback);
    /// The character of the latest keystroke, in UTF-8: "\x7f" for the Delete keys, one from U+F700 on for keys without
    /// a character. Empty before the first.
    [[nodiscard]] std::string lastCharTyped() const;
};

} // namespace kzo::core
