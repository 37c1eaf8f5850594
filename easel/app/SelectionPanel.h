// Place, size and paint of what is selected.
#pragma once

#include <QGridLayout>
#include <QLabel>
#include <QWidget>

#include <functional>

#include "app/Actions.h"
#include "app/Fields.h"
#include "app/Swatch.h"

namespace easel::app {

class SelectionPanel final : public QWidget {
  public:
    explicit SelectionPanel(Actions& actions);

    void refresh();
    std::function<void()> entered;                   ///< called when the user has ended an entry, or chosen a colour
    std::function<void(const QString& why)> refused; ///< told of an entry that cannot be taken

  private:
    struct Field {
        const char* name;
        const char* label;  ///< as it stands beside the field
        const char* spoken; ///< by a screen reader
        int row;
        int column;
        double least;
        double most;
    };
    NumberField& addField(const Field& field, QGridLayout& grid);
    Swatch& addSwatch(const char* name, const char* title, QGridLayout& grid, int row);
    void connectFields();
    void resize(bool across, double size);
    void setStrokeWidth(double width);
    void setColor(bool stroke, const std::optional<QColor>& color);

    Actions& actions_;
    QLabel& title_;
    NumberField* x_ = nullptr;
    NumberField* y_ = nullptr;
    NumberField* width_ = nullptr;
    NumberField* height_ = nullptr;
    NumberField* stroke_ = nullptr;
    NumberField* opacity_ = nullptr;
    Swatch* strokeColor_ = nullptr;
    Swatch* fillColor_ = nullptr;
    model::Box box_;         ///< of the selection, as shown
    bool isStroked_ = false; ///< something that is selected
    bool filling_ = false;
};

} // namespace easel::app
