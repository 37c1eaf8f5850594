// Enumerations of dialogs and their widgets. Their values are the host's.
#pragma once

#include <cstddef>
#include <cstdint>

namespace kzo::core {

enum class WidgetType { None = 0, Label = 1, TextField = 2, Checkbox = 3, Button = 4 };

/// What Return and Escape do: they click the default and the cancel button.
enum class ButtonStyle { Plain = 1, Default = 2, Cancel = 3 };

enum class CheckboxState { Unchecked = 0, Checked = 1 };

enum class TextAlignment { Left = 1, Center = 2, Right = 3 };

/// The characters of a text from `start` up to `end`, which is not in it; none where both are equal.
struct SelectionRange {
    std::size_t start = 0;
    std::size_t end = 0;

    bool operator==(const SelectionRange&) const = default;
};

/// Pictures that a label or a button shows in place of its text: PNG resources of the plug-in, a pixel a point, with
/// those for dense displays beside them (17000.png, 17000@2x.png). 0: as the normal one.
struct WidgetImages {
    std::int16_t normal = 0;   ///< 0: none, the text shows
    std::int16_t rollover = 0; ///< while the pointer is over the widget
    std::int16_t pressed = 0;  ///< while the mouse button is held down on it

    bool operator==(const WidgetImages&) const = default;
};

} // namespace kzo::core
