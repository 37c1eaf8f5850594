// Tiles of a QImage that cairo paints into.
#include "app/Scene.h"

#include <QElapsedTimer>

#include <algorithm>
#include <cmath>
#include <memory>

#include "app/PathPainter.h"

namespace easel::app {

namespace {

using Surface = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;
using Cairo = std::unique_ptr<cairo_t, decltype(&cairo_destroy)>;

constexpr double kFarthestPixel = 1e6; // what lies beyond is no place that Qt can hold

/// A painter on a part of an image, in the units of the document.
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

/// Whole tiles that hold the rectangle.
QRect tilesAround(const QRect& rectangle, int tile) {
    if (rectangle.isEmpty()) return {};
    const int left = rectangle.left() / tile * tile;
    const int top = rectangle.top() / tile * tile;
    const int right = (rectangle.right() / tile + 1) * tile;
    const int bottom = (rectangle.bottom() / tile + 1) * tile;
    return {left, top, right - left, bottom - top};
}

} // namespace

// Port

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

// Scene

void Scene::show(model::Document* document) {
    document_ = document;
    image_.fill(Qt::transparent);
    dropTruth();
    invalidateAll();
}

void Scene::setPort(const Port& port) {
    if (port == port_ || port.size.isEmpty()) return;
    QImage image(port.size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    const Port before = port_;
    port_ = port;
    invalidateAll();
    if (!image_.isNull()) {
        QPainter painter(&image);
        const QPointF corner = port.place(before.origin);
        const double scale = port.pixels / before.pixels;
        painter.drawImage(QRectF(corner, QSizeF(before.size) * scale), image_);
    }
    image_ = std::move(image);
}

void Scene::invalidate(const model::Box& box) {
    const QRect all(QPoint(0, 0), port_.size);
    invalid_ += tilesAround(port_.rectangle(box) & all, kTile) & all;
    spoilTruth(box);
}

void Scene::invalidateAll() { invalid_ = QRect(QPoint(0, 0), port_.size); }

QRegion Scene::refine(int milliseconds) {
    QRegion painted;
    if (!document_ || image_.isNull()) return painted;
    QElapsedTimer clock;
    clock.start();
    while (!invalid_.isEmpty() && clock.elapsed() < milliseconds) {
        const QPoint middle(port_.size.width() / 2, port_.size.height() / 2);
        QRect nearest;
        int best = 0;
        for (const QRect& part : invalid_) {
            const QPoint inside(std::clamp(middle.x(), part.left(), part.right()),
                                std::clamp(middle.y(), part.top(), part.bottom()));
            const int distance = (inside - middle).manhattanLength();
            if (!nearest.isNull() && distance >= best) continue;
            best = distance;
            nearest = QRect(inside.x() / kTile * kTile, inside.y() / kTile * kTile, kTile, kTile);
        }
        const QRect tile = nearest & QRect(QPoint(0, 0), port_.size);
        paintTile(tile);
        invalid_ -= tile;
        painted += tile;
    }
    return painted;
}

void Scene::paintTile(const QRect& tile) {
    const Cairo cairo = painterOn(image_, tile, port_);
    model::Box box = port_.box(tile);
    const double reach = watch_.farthestReach();
    box = {box.left - reach, box.top - reach, box.right + reach, box.bottom + reach};
    for (const model::Node* const node : document_->shownIn(box))
        if (!watch_.isLifted(*node)) app::paint(cairo.get(), *node, 1 / port_.pixels);
}

void Scene::paintLive(QPainter& painter, const QRect& pixels) const {
    if (watch_.live().empty()) return;
    QRect around;
    for (const model::Node* const node : watch_.live()) {
        for (const model::Node* at = node; at; at = model::nextWithin(*node, *at))
            around |= port_.rectangle(paintedBox(at->content()));
    }
    around &= pixels & QRect(QPoint(0, 0), port_.size);
    if (around.isEmpty()) return;
    QImage over(around.size(), QImage::Format_ARGB32_Premultiplied);
    Port part = port_;
    part.origin = {port_.origin.x + around.x() / port_.pixels, port_.origin.y + around.y() / port_.pixels};
    part.size = around.size();
    const Cairo cairo = painterOn(over, QRect(QPoint(0, 0), around.size()), part);
    for (const model::Node* const node : watch_.live()) app::paint(cairo.get(), *node, 1 / port_.pixels);
    painter.drawImage(around.topLeft(), over);
}

// Truth

void Scene::setTruth(QImage image, const Port& port) {
    truth_ = std::move(image);
    truthPort_ = port;
    spoilt_.erase(spoilt_.begin(), spoilt_.begin() + static_cast<std::ptrdiff_t>(spoiltBefore_));
    spoiltBefore_ = 0;
}

void Scene::dropTruth() {
    truth_ = {};
    spoilt_.clear();
    spoiltBefore_ = 0;
}

void Scene::spoilTruth(const model::Box& box) {
    if (!box.isEmpty()) spoilt_.push_back(box);
}

QRect Scene::pageRectangle() const { return port_.rectangle({0, 0, document_->width(), document_->height()}); }

void Scene::paint(QPainter& painter, const QRect& pixels) const {
    if (!document_) return;
    if (!hasTruth()) return painter.drawImage(pixels.topLeft(), image_, pixels);
    QRegion known = QRegion(pageRectangle()) & pixels;
    for (const model::Box& box : spoilt_) known -= port_.rectangle(box);
    painter.save();
    painter.setClipRegion(QRegion(pixels) - known);
    painter.drawImage(pixels.topLeft(), image_, pixels);
    painter.setClipRegion(known);
    const QPointF corner = port_.place(truthPort_.origin);
    const double scale = port_.pixels / truthPort_.pixels;
    if (scale == 1)
        painter.drawImage(corner.toPoint(), truth_);
    else
        painter.drawImage(QRectF(corner, QSizeF(truthPort_.size) * scale), truth_);
    painter.restore();
}

} // namespace easel::app
