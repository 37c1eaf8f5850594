// Place, size and paint of what is selected.
#pragma once

#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QLabel>
#include <QWidget>

#include <functional>

#include "app/Actions.h"
#include "app/Swatch.h"

namespace easel::app {

class SelectionPanel final : public QWidget {
  public:
    explicit SelectionPanel(Actions& actions);

    void refresh();
    std::function<void()> entered; ///< called when the user ends an entry with Return

  private:
    struct Field {
        const char* name;
        const char* label;  ///< as it stands beside the field
        const char* spoken; ///< by a screen reader
        int row;
        int column;
    };
    QDoubleSpinBox& addField(const Field& field, QGridLayout& grid);
    Swatch& addSwatch(const char* name, const char* title, QGridLayout& grid, int row);
    void connectFields();
    void resize(bool across, double size);
    void setStrokeWidth(double width);
    void setColor(bool stroke, const std::optional<QColor>& color);

    Actions& actions_;
    QLabel& title_;
    QDoubleSpinBox* x_ = nullptr;
    QDoubleSpinBox* y_ = nullptr;
    QDoubleSpinBox* width_ = nullptr;
    QDoubleSpinBox* height_ = nullptr;
    QDoubleSpinBox* stroke_ = nullptr;
    QDoubleSpinBox* opacity_ = nullptr;
    Swatch* strokeColor_ = nullptr;
    Swatch* fillColor_ = nullptr;
    model::Box box_;         ///< of the selection, as shown
    bool isStroked_ = false; ///< something that is selected
    bool filling_ = false;
};

} // namespace easel::app
