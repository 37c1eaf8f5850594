// The kept picture of the document in front at one view: painted in tiles, a few milliseconds at a time, and shown as
// far as it has come. Lies on nothing: desk and page are the canvas's.
#pragma once

#include <QImage>
#include <QPainter>
#include <QRegion>

#include <optional>
#include <vector>

#include "app/LiveArt.h"
#include "app/Port.h"
#include "app/Watch.h"
#include "model/Document.h"

namespace easel::app {

class Scene {
  public:
    explicit Scene(Watch& watch) : watch_(watch), live_(watch) {}

    /// Shows this document from now on; the picture begins anew.
    void show(model::Document* document);
    /// The old picture is scaled into the new view until it is painted.
    void setPort(const Port& port);
    [[nodiscard]] const Port& port() const { return port_; }

    void invalidate(const std::vector<model::Box>& boxes); ///< in the document
    void invalidateAll();

    /// Paints invalid tiles for about this long, nearest to the middle first. Returns what has been painted.
    QRegion refine(int milliseconds);
    [[nodiscard]] bool isComplete() const { return !document_ || (invalid_.isEmpty() && live_.isComplete()); }

    /// The picture, as it is now.
    [[nodiscard]] const QImage& image() const { return image_; }
    /// Takes what the running gesture changes now, and sees for about this long to what lies above it. Returns where.
    QRegion takeLive(int milliseconds);
    /// What the running gesture changes, over the picture and in paint order.
    void paintLive(QPainter& painter, const QRect& pixels) { live_.paint(painter, pixels); }
    [[nodiscard]] bool sharpenLive() { return live_.sharpen(); } ///< as LiveArt does

    /// The true looks of art that cairo does not draw, made elsewhere; of this view when it was asked for.
    void setTruth(QImage image, const Port& port);
    void dropTruth();
    /// The truth is out of date at these places from now on. While a gesture runs it never is: what that leaves as it
    /// is has a picture of its own, and until that is there the last one shows.
    void spoilTruth(const std::vector<model::Box>& boxes);
    [[nodiscard]] bool hasTruth() const { return !truth_.image.isNull(); }
    /// Whether there is one of this view by the renderer, in which nothing is out of date.
    [[nodiscard]] bool isTruthNew() const {
        return hasTruth() && truth_.port == port_ && truth_.spoilt.isEmpty() && !truth_.isStandIn;
    }
    /// True pictures that a running gesture needs; nothing when these are the same as the last time.
    [[nodiscard]] std::optional<std::vector<Piece>> takeWantedPieces();
    void setPiece(const Piece& piece, QImage image);
    /// A gesture ends, which has changed something or not: what shows is the truth until there is another one. Returns
    /// false where too little of that shows.
    bool settle(bool changed);
    /// Paints the picture, and the truth where it is known, within the page.
    void paint(QPainter& painter, const QRect& pixels) const;
    /// A truth is asked for: what has been spoilt until now is in it.
    void noteRequest();

  private:
    /// A true picture, where it is not out of date.
    struct Truth {
        QImage image;
        Port port;
        QRegion spoilt;         ///< of whole tiles of the port
        bool isStandIn = false; ///< what a gesture showed when it ended, which may lack what the renderer draws
    };

    void paintTile(const QRect& tile);
    [[nodiscard]] QRect pageRectangle() const;
    [[nodiscard]] const Truth& shownTruth() const { return live_.isAny() && !rest_.image.isNull() ? rest_ : truth_; }
    [[nodiscard]] QRegion knownTruth() const;

    Watch& watch_;
    LiveArt live_;
    model::Document* document_ = nullptr;
    Port port_;
    QImage image_;
    QRegion invalid_; // of whole tiles
    Truth truth_;
    Truth rest_;             ///< without what the running gesture changes
    bool needsRest_ = false; ///< since something that the truth shows changes
    std::optional<Port> requested_;
    QRegion spoiltSince_; ///< the request, in whole tiles of its port
};

} // namespace easel::app
