// Tiles of a QImage that cairo paints into.
#include "app/Scene.h"

#include <QElapsedTimer>

#include <algorithm>

#include "app/PathPainter.h"

namespace easel::app {

namespace {

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

// Scene

void Scene::show(model::Document* document) {
    document_ = document;
    image_.fill(Qt::transparent);
    live_.show(document_, port_);
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
    live_.show(document_, port_);
}

void Scene::invalidate(const model::Box& box) {
    const QRect all(QPoint(0, 0), port_.size);
    invalid_ += tilesAround(port_.rectangle(box) & all, kTile) & all;
    live_.invalidate(box);
    spoilTruth(box);
}

void Scene::invalidateAll() { invalid_ = QRect(QPoint(0, 0), port_.size); }

QRegion Scene::refine(int milliseconds) {
    if (!document_ || image_.isNull()) return {};
    QElapsedTimer clock;
    clock.start();
    QRegion painted = live_.refine(milliseconds); // what a hand moves comes first
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
    for (const model::Node* const node : document_->shownIn(watch_.paintedWithin(port_.box(tile))))
        if (!watch_.isLifted(*node)) app::paint(cairo.get(), *node, 1 / port_.pixels);
}

void Scene::paintLive(QPainter& painter, const QRect& pixels) const {
    const QRect around = live_.rectangle() & pixels;
    if (!around.isEmpty()) painter.drawImage(around.topLeft(), live_.picture(around));
}

QRegion Scene::takeLive(int milliseconds) {
    live_.update();
    return live_.refine(milliseconds);
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
