// A button for a colour: shows it, and its menu offers some, none, and any other.
#pragma once

#include <QColor>
#include <QToolButton>

#include <functional>
#include <optional>

namespace easel::app {

class Swatch final : public QToolButton {
  public:
    /// `title` is what the colour is of.
    Swatch(const QString& title, QWidget* parent);

    /// Told of the user's choice; none paints nothing.
    std::function<void(std::optional<QColor> color)> chosen;
    void setColor(std::optional<QColor> color);

  private:
    void fillMenu();
    void chooseOther();

    QString title_;
    std::optional<QColor> color_;
};

} // namespace easel::app
