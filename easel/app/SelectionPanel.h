// Place, size and paint of what is selected.
#pragma once

#include <QDoubleSpinBox>
#include <QLabel>
#include <QToolButton>
#include <QWidget>

#include "app/Actions.h"

namespace easel::app {

class SelectionPanel final : public QWidget {
  public:
    explicit SelectionPanel(Actions& actions);

    void refresh();

  private:
    QDoubleSpinBox& addField(const char* name, const char* label, int row, int column);
    void chooseColor(bool stroke);

    Actions& actions_;
    QLabel& title_;
    QDoubleSpinBox* x_ = nullptr;
    QDoubleSpinBox* y_ = nullptr;
    QDoubleSpinBox* width_ = nullptr;
    QDoubleSpinBox* height_ = nullptr;
    QDoubleSpinBox* stroke_ = nullptr;
    QToolButton* fillColor_ = nullptr;
    QToolButton* strokeColor_ = nullptr;
    model::Box box_; ///< of the selection, as shown
    bool filling_ = false;
};

} // namespace easel::app
