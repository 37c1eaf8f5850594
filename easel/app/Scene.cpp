// Tiles of a QImage that cairo paints into.
#include "app/Scene.h"

#include <QElapsedTimer>

#include <algorithm>
#include <utility>

#include "app/PathPainter.h"

namespace easel::app {

namespace {

constexpr int kTile = 128; // pixels

/// Whole tiles that hold the boxes, of which there may be very many.
QRegion tilesAround(const std::vector<model::Box>& boxes, const Port& port) {
    const QRect all(QPoint(0, 0), port.size);
    const int columns = all.right() / kTile + 1;
    const int rows = all.bottom() / kTile + 1;
    std::vector<std::vector<bool>> touched(static_cast<std::size_t>(rows),
                                           std::vector<bool>(static_cast<std::size_t>(columns)));
    for (const model::Box& box : boxes) {
        const QRect part = port.rectangle(box) & all;
        if (part.isEmpty()) continue;
        for (int row = part.top() / kTile; row <= part.bottom() / kTile; ++row)
            for (int column = part.left() / kTile; column <= part.right() / kTile; ++column)
                touched[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)] = true;
    }
    QRegion tiles;
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column)
            if (touched[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)])
                tiles += QRect(column * kTile, row * kTile, kTile, kTile) & all;
    return tiles;
}

} // namespace

// Scene

void Scene::show(model::Document* document) {
    document_ = document;
    image_.fill(Qt::transparent);
    live_.show(document_, port_);
    dropTruth();
    needsRest_ = false;
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

void Scene::invalidate(const std::vector<model::Box>& boxes) {
    if (boxes.empty() || port_.size.isEmpty()) return;
    invalid_ += tilesAround(boxes, port_);
    live_.invalidate(boxes);
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

QRegion Scene::takeLive(int milliseconds) {
    live_.update();
    return live_.refine(milliseconds);
}

// Truth

void Scene::setTruth(QImage image, const Port& port) {
    truth_ = {std::move(image), port, std::exchange(spoiltSince_, {})};
    requested_.reset();
}

void Scene::dropTruth() {
    truth_ = {};
    rest_ = {};
    spoiltSince_ = {};
    requested_.reset();
}

void Scene::noteRequest() {
    requested_ = port_;
    spoiltSince_ = {};
}

void Scene::spoilTruth(const std::vector<model::Box>& boxes) {
    if (hasTruth()) truth_.spoilt += tilesAround(boxes, truth_.port);
    if (requested_) spoiltSince_ += tilesAround(boxes, *requested_);
}

std::optional<std::vector<Piece>> Scene::takeWantedPieces() {
    auto wanted = live_.takeWantedPieces();
    if (!wanted) return wanted;
    needsRest_ = !wanted->empty() && wanted->front().kind == Piece::Kind::Rest;
    if (!needsRest_) rest_ = {};
    return wanted;
}

void Scene::setPiece(const Piece& piece, QImage image) {
    if (piece.kind == Piece::Kind::Rest)
        rest_ = {std::move(image), piece.port, {}};
    else
        live_.setPiece(piece, std::move(image));
}

bool Scene::settle(bool changed) {
    const bool showsAll = hasTruth() && live_.isAny() && (!needsRest_ || !rest_.image.isNull());
    if (changed && live_.isAny()) { // until it is painted with the rest
        QPainter painter(&image_);
        paintLive(painter, image_.rect());
    }
    if (changed && showsAll) {
        QImage image(port_.size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        paint(painter, image.rect());
        paintLive(painter, image.rect());
        painter.end();
        truth_ = {std::move(image), port_, {}, true};
        requested_.reset(); // what is asked for is of before
    }
    rest_ = {};
    needsRest_ = false;
    return showsAll || !changed;
}

QRect Scene::pageRectangle() const { return port_.rectangle({0, 0, document_->width(), document_->height()}); }

/// Where the truth shows: as far as it reaches, but where it is spoilt.
QRegion Scene::knownTruth() const {
    const Truth& truth = shownTruth();
    const auto shown = [&](const QRect& part) { return port_.rectangle(truth.port.box(part)); };
    QRegion known = pageRectangle();
    known &= shown(QRect(QPoint(0, 0), truth.port.size)).adjusted(1, 1, -1, -1); // without half a pixel at its edge
    for (const QRect& tile : truth.spoilt) known -= shown(tile);
    return known;
}

void Scene::paint(QPainter& painter, const QRect& pixels) const {
    if (!document_) return;
    const Truth& truth = shownTruth();
    if (truth.image.isNull()) return painter.drawImage(pixels.topLeft(), image_, pixels);
    const QRegion known = knownTruth() & pixels;
    painter.save();
    painter.setClipRegion(QRegion(pixels) - known);
    painter.drawImage(pixels.topLeft(), image_, pixels);
    painter.setClipRegion(known);
    const QPointF corner = port_.place(truth.port.origin);
    const double scale = port_.pixels / truth.port.pixels;
    if (scale == 1)
        painter.drawImage(corner.toPoint(), truth.image);
    else
        painter.drawImage(QRectF(corner, QSizeF(truth.port.size) * scale), truth.image);
    painter.restore();
}

} // namespace easel::app
