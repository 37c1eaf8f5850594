// A picture of much art, which shows the art again where all of it has been moved by one way.
#pragma once

#include <QImage>
#include <QPainter>

#include <cstddef>
#include <vector>

#include "app/Port.h"
#include "model/Node.h"

namespace easel::app {

/// Painting thousands of paths takes longer than a picture may; seeing whether they have moved does not. What has been
/// moved by a part of a pixel shows at the nearest whole one until it is sharpened.
class MovedArt {
  public:
    /// Takes what the art, which lies in paint order, is like now; paints it anew unless it has only been moved.
    void take(const std::vector<model::Node*>& art, const Port& port);
    /// Has it painted anew where it does not lie exactly. Returns whether that is so.
    bool sharpen();

    /// Pixels of the port around it, those outside included.
    [[nodiscard]] QRect rectangle() const { return around_.translated(shift_); }
    /// Over what shows the port from that pixel on.
    void paint(QPainter& painter, QPoint corner) const {
        painter.drawImage(reach_.topLeft() + shift_ - corner, image_);
    }

  private:
    /// What of an object its picture depends on, besides the outlines.
    struct Look {
        model::Shared<model::Style> style;
        double opacity;
        std::size_t outlines;

        bool operator==(const Look&) const = default;
    };
    struct Shape {
        std::vector<Look> looks;
        model::OutlineList outlines; ///< of all of them
    };
    [[nodiscard]] static Shape shapeOf(const std::vector<model::Node*>& art);
    void paintAnew(const std::vector<model::Node*>& art, Shape shape, const Port& port);

    Port port_;
    Shape shape_;          ///< when it was painted
    bool mayMove_ = false; ///< nothing that stays masks it
    QRect around_;         ///< all of it
    QRect reach_;          ///< what of that the image shows
    QImage image_;
    QPoint shift_; ///< since it was painted
    bool isRounded_ = false;
};

} // namespace easel::app
