// A ruler beside the canvas, in points of the drawing, with a mark where the mouse is.
#pragma once

#include <QWidget>

#include "app/Canvas.h"

namespace easel::app {

class Ruler final : public QWidget {
  public:
    static constexpr int kBreadth = 20; // widget pixels

    Ruler(const Canvas& canvas, Qt::Orientation orientation);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    const Canvas& canvas_;
    bool lies_;
};

} // namespace easel::app
