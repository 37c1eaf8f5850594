// Which part of a document shows, and where its points lie among the pixels.
#pragma once

#include <cairo.h>

#include <QImage>
#include <QPointF>
#include <QRect>
#include <QSize>

#include <memory>

#include "model/Types.h"

namespace easel::app {

/// A window on a document: `pixels` of the window a point, its top left corner at `origin`.
struct Port {
    model::Point origin;
    double pixels = 1;
    QSize size; ///< in pixels

    bool operator==(const Port&) const = default;

    [[nodiscard]] model::Box box(const QRect& rectangle) const; ///< of the document
    [[nodiscard]] QRect rectangle(const model::Box& box) const; ///< whole pixels around it
    [[nodiscard]] QPointF place(model::Point point) const {     ///< in pixels
        return {(point.x - origin.x) * pixels, (point.y - origin.y) * pixels};
    }
    /// Whether the same pixels show both.
    [[nodiscard]] bool isNear(model::Point a, model::Point b) const;
    /// A window on a part of it.
    [[nodiscard]] Port part(const QRect& rectangle) const;
};

using Cairo = std::unique_ptr<cairo_t, decltype(&cairo_destroy)>;

/// Paints on a part of an image that shows what the port shows, in the units of the document. The part is cleared.
[[nodiscard]] Cairo painterOn(QImage& image, const QRect& part, const Port& port);

} // namespace easel::app
