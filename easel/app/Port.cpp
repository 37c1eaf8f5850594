// Points to pixels and back.
#include "app/Port.h"

#include <algorithm>
#include <cmath>

namespace easel::app {

namespace {

using Surface = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;

constexpr double kFarthestPixel = 1e6; // what lies beyond is no place that Qt can hold

} // namespace

model::Box Port::box(const QRect& rectangle) const {
    const auto x = [&](int pixel) { return origin.x + pixel / pixels; };
    const auto y = [&](int pixel) { return origin.y + pixel / pixels; };
    return {x(rectangle.x()), y(rectangle.y()), x(rectangle.x() + rectangle.width()),
            y(rectangle.y() + rectangle.height())};
}

QRect Port::rectangle(const model::Box& box) const {
    if (box.isEmpty()) return {};
    const auto near = [](double pixel) { return static_cast<int>(std::clamp(pixel, -kFarthestPixel, kFarthestPixel)); };
    const QPointF topLeft = place({box.left, box.top});
    const QPointF bottomRight = place({box.right, box.bottom});
    // One pixel more, for edges that are smoothed.
    const QPoint from(near(std::floor(topLeft.x()) - 1), near(std::floor(topLeft.y()) - 1));
    const QPoint to(near(std::ceil(bottomRight.x()) + 1), near(std::ceil(bottomRight.y()) + 1));
    return {from, to};
}

bool Port::isNear(model::Point a, model::Point b) const {
    constexpr double kNear = 0.01; // pixels
    return std::abs(a.x - b.x) * pixels < kNear && std::abs(a.y - b.y) * pixels < kNear;
}

Port Port::part(const QRect& rectangle) const {
    return {{origin.x + rectangle.x() / pixels, origin.y + rectangle.y() / pixels}, pixels, rectangle.size()};
}

Cairo painterOn(QImage& image, const QRect& part, const Port& port) {
    unsigned char* const bits = image.scanLine(part.y()) + qsizetype{4} * part.x();
    const Surface surface(cairo_image_surface_create_for_data(bits, CAIRO_FORMAT_ARGB32, part.width(), part.height(),
                                                              static_cast<int>(image.bytesPerLine())),
                          cairo_surface_destroy);
    Cairo cairo(cairo_create(surface.get()), cairo_destroy);
    cairo_set_operator(cairo.get(), CAIRO_OPERATOR_CLEAR);
    cairo_paint(cairo.get());
    cairo_set_operator(cairo.get(), CAIRO_OPERATOR_OVER);
    cairo_translate(cairo.get(), -part.x(), -part.y());
    cairo_scale(cairo.get(), port.pixels, port.pixels);
    cairo_translate(cairo.get(), -port.origin.x, -port.origin.y);
    return cairo;
}

} // namespace easel::app
