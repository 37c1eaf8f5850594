// A titled box in a dialog that is checked or not.
#pragma once

#include "core/dialogs/Widget.h"

namespace kzo::core {

class Checkbox : public Widget {
  public:
    using StateType = CheckboxState;

    Checkbox() = default; ///< empty
    using Widget::Widget;
    Checkbox(const Point& origin, const std::string& text, double width, StateType state);

    [[nodiscard]] StateType state() const;
    void setState(StateType state); ///< without the callback
    void setChecked(bool checked);
    [[nodiscard]] bool checked() const;

    [[nodiscard]] Callback* clickCallback() const; // the state is the new one already
    void setClickCallback(const Callback& callback);
    void click(); ///< as if the user did; nothing where it is disabled or hidden
};

} // namespace kzo::core
