// Fields for numbers. Escape takes back what was typed in one, and the wheel turns no value without a click.
#pragma once

#include <QComboBox>
#include <QDoubleSpinBox>

#include <functional>
#include <optional>

namespace easel::app {

/// A number with a point or a comma; lengths may be given in mm, cm and in. What is none is shown as such, and refused
/// as a whole.
class NumberField final : public QDoubleSpinBox {
  public:
    NumberField(double least, double most, QWidget* parent);

    /// Called when the user ends an entry with Return, or gives it up.
    std::function<void()> left;
    /// Told in words of what was typed and is no number.
    std::function<void(const QString& why)> refused;
    void showNumber(std::optional<double> number); ///< none: the field is empty

    QValidator::State validate(QString& text, int& place) const override;
    void fixup(QString& text) const override;
    double valueFromText(const QString& text) const override;
    QString textFromValue(double value) const override;

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    StepEnabled stepEnabled() const override;

  private:
    [[nodiscard]] std::optional<double> numberIn(QString text) const;

    double least_;
    double most_;
};

/// How large the drawing is shown, in percent.
class ZoomField final : public QComboBox {
  public:
    explicit ZoomField(QWidget* parent);

    /// Told of what the user has chosen or typed; nothing where that is no zoom, or was given up.
    std::function<void(std::optional<double> zoom)> entered;
    std::function<void(double notches)> wheeled;
    /// Unless the user types one.
    void showZoom(double zoom);

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
};

} // namespace easel::app
