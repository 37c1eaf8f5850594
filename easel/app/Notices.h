// What the window says of itself: notices above the drawing, and the line of the status bar.
#pragma once

#include <QLabel>
#include <QWidget>

#include <array>
#include <functional>

namespace easel::app {

/// Lines that stay until they are true no more or the user has read them.
class Notices final : public QWidget {
  public:
    enum Kind { FileChanged, NotKept, Picture };

    explicit Notices(QWidget* parent);

    /// In the place of what was told of this kind before. With a button, what it does.
    void tell(Kind kind, const QString& text, const QString& button = {}, std::function<void()> what = {});
    void drop(Kind kind);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    static constexpr std::size_t kKinds = 3;
    std::array<QWidget*, kKinds> rows_{};
};

/// A line of plain text, cut where there is no room for it; the tool tip has all of it then.
class Hint final : public QLabel {
  public:
    using QLabel::QLabel;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace easel::app
