// The kept picture of the document in front at one view: painted in tiles, a few milliseconds at a time, and shown as
// far as it has come. Lies on nothing: desk and page are the canvas's.
#pragma once

#include <QImage>
#include <QPainter>
#include <QRegion>

#include <functional>
#include <vector>

#include "app/Watch.h"
#include "model/Document.h"

namespace easel::app {

/// Which part of a document a window shows, and how: `pixels` of the window a point, its top left corner at `origin`.
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
};

class Scene {
  public:
    explicit Scene(Watch& watch) : watch_(watch) {}

    /// Shows this document from now on; the picture begins anew.
    void show(model::Document* document);
    /// The old picture is scaled into the new view until it is painted.
    void setPort(const Port& port);
    [[nodiscard]] const Port& port() const { return port_; }

    void invalidate(const model::Box& box); ///< in the document
    void invalidateAll();

    /// Paints invalid tiles for about this long, nearest to the middle first. Returns what has been painted.
    QRegion refine(int milliseconds);
    [[nodiscard]] bool isComplete() const { return invalid_.isEmpty(); }

    /// The picture, as it is now.
    [[nodiscard]] const QImage& image() const { return image_; }
    /// What the running gesture changes, over the picture.
    void paintLive(QPainter& painter, const QRect& pixels) const;

    /// The true looks of art that cairo does not draw, made elsewhere; of this view when it was asked for.
    void setTruth(QImage image, const Port& port);
    void dropTruth();
    /// The truth is out of date at these places from now on.
    void spoilTruth(const model::Box& box);
    [[nodiscard]] bool hasTruth() const { return !truth_.isNull(); }
    /// Paints the picture, and the truth where it is known, within the page.
    void paint(QPainter& painter, const QRect& pixels) const;
    /// What was spoilt before a truth was asked for is in it.
    void noteRequest() { spoiltBefore_ = spoilt_.size(); }

  private:
    static constexpr int kTile = 128; // pixels

    void paintTile(const QRect& tile);
    [[nodiscard]] QRect pageRectangle() const;

    Watch& watch_;
    model::Document* document_ = nullptr;
    Port port_;
    QImage image_;
    QRegion invalid_; // of whole tiles
    QImage truth_;
    Port truthPort_;
    std::vector<model::Box> spoilt_;
    std::size_t spoiltBefore_ = 0;
};

} // namespace easel::app
