// A button for a colour: shows it, and its menu offers some, none, and any other.
#pragma once

#include <QColor>
#include <QToolButton>

#include <functional>
#include <optional>

namespace easel::app {

/// What something is painted with.
struct Paint {
    enum Kind { None, Plain, Served, Mixed }; ///< of a gradient or pattern; not the same for all that is meant
    Kind kind = None;
    QColor color{};

    bool operator==(const Paint&) const = default;
};

class Swatch final : public QToolButton {
  public:
    /// `title` is what the colour is of.
    Swatch(const QString& title, QWidget* parent);

    /// Told of the user's choice; none paints nothing.
    std::function<void(std::optional<QColor> color)> chosen;
    void setPaint(const Paint& paint);

  private:
    void fillMenu();
    void chooseOther();

    QString title_;
    Paint paint_;
};

} // namespace easel::app
