// Enumerations of dialogs and their widgets. Their values are the host's.
#pragma once

#include <cstddef>

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

} // namespace kzo::core
