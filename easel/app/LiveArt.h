// The art that a gesture changes, painted over the kept picture where it stands in paint order: what lies above it is
// kept in small tiles, and laid on top of it again.
#pragma once

#include <QImage>
#include <QPainter>
#include <QRegion>

#include <cstdint>
#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "app/MovedArt.h"
#include "app/Pieces.h"
#include "app/Port.h"
#include "app/Watch.h"

namespace easel::app {

/// Tiles are made a few milliseconds at a time; until one is there, live art shows above all in it.
class LiveArt {
  public:
    explicit LiveArt(const Watch& watch) : watch_(watch) {}

    /// Another document or another port: what is kept is of no use.
    void show(model::Document* document, const Port& port);
    /// Whatever is kept of these boxes is of no use.
    void invalidate(const std::vector<model::Box>& boxes);
    /// Takes what the watch says is live now.
    void update();
    [[nodiscard]] bool isAny() const { return !runs_.empty(); }

    /// The true pictures that are to be made for the gesture now; nothing when that is the same as the last time.
    [[nodiscard]] std::optional<std::vector<Piece>> takeWantedPieces();
    /// One of them, of a run, which is painted from now on instead of what it shows.
    void setPiece(const Piece& piece, QImage image);

    /// Makes tiles for about this long. Returns where.
    QRegion refine(int milliseconds);
    [[nodiscard]] bool isComplete() const { return wanted_.empty(); }

    /// Paints it over what the port shows without live art, within this part of it.
    void paint(QPainter& painter, const QRect& pixels);
    /// Whether art that has been moved did not show exactly where it lies. It does when it is painted next.
    bool sharpen();

  private:
    static constexpr int kTile = 64;            // pixels
    static constexpr std::size_t kMostRuns = 8; // beyond, all live art lies where the topmost does
    static constexpr std::size_t kMuch = 300;   // objects; more are not painted anew as long as they only move

    struct Run : LiveRun {
        MovedArt moved{}; ///< where there is much
    };
    /// What is known of a run from true pictures.
    struct Truth {
        QImage art;                        ///< as it was before the gesture
        Port port;                         ///< of it
        std::optional<model::Point> moved; ///< since; unless more has happened to it
        QImage above;                      ///< all of the view
    };
    using Place = std::pair<int, int>; // column and row of a tile
    /// What lies between each run and the next, or above all; null images for nothing.
    using Tile = std::vector<QImage>;

    void findRuns();
    void wantTiles();
    void makeTile(Place place);
    [[nodiscard]] QRect pixelsOf(Place place) const;
    template <class Act> void forTilesIn(const QRect& pixels, Act act) const;
    /// Whole pixels of the port around it.
    [[nodiscard]] QRect rectangleOf(const std::vector<model::Node*>& art) const;
    [[nodiscard]] QImage picture(const QRect& part) const;
    void paintTiles(QPainter& painter, std::size_t run, const QRect& part) const;
    void forgetTruths();
    void findMoves();
    /// Where the true picture of a run's art lies now; nothing when it is of no use.
    [[nodiscard]] QRect placeOfTruth(std::size_t run) const;

    const Watch& watch_;
    model::Document* document_ = nullptr;
    Port port_;
    std::vector<model::Node*> live_; ///< when the runs were found
    std::uint64_t arrangement_ = 0;
    std::vector<Run> runs_;     ///< the bottommost first
    std::vector<Truth> truths_; ///< of the runs
    bool wantsPieces_ = false;  ///< other runs than those that the last pieces were wanted for, or another port
    std::vector<const model::Node*> piecesOf_; ///< what they were wanted for
    std::map<Place, Tile> tiles_;
    std::vector<Place> wanted_;
};

} // namespace easel::app
