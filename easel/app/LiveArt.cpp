// Runs of live art, and tiles of what lies above each. A tile is laid on live art alone, not beside it: there the
// kept picture has it already.
#include "app/LiveArt.h"

#include <QElapsedTimer>
#include <QPainter>

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "app/PathPainter.h"

namespace easel::app {

namespace {

using model::Document;
using model::Node;

constexpr std::size_t kMostRectangles = 64; // beyond, places are not told apart

bool showsSomething(const Node& node) { return !node.hidden() && (!node.isContainer() || node.firstChild()); }

bool liesAtOrAbove(const Node& node, const Node& other) {
    return node.isWithin(other) || Document::comparePaintOrder(node, other) < 0;
}

} // namespace

void LiveArt::show(Document* document, const Port& port) {
    if (document != document_) live_.clear();
    document_ = document;
    port_ = port;
    forgetTruths();
    tiles_.clear();
    update();
}

void LiveArt::invalidate(const std::vector<model::Box>& boxes) {
    if (boxes.size() > kMostRectangles) return tiles_.clear();
    for (const model::Box& box : boxes) {
        const QRect pixels = port_.rectangle(box);
        std::erase_if(tiles_, [&](const auto& tile) { return pixelsOf(tile.first).intersects(pixels); });
    }
}

void LiveArt::update() {
    if (!document_ || watch_.live().empty()) {
        wanted_.clear();
        live_.clear();
        runs_.clear();
        forgetTruths();
        tiles_.clear();
        return;
    }
    if (live_ != watch_.live() || arrangement_ != document_->arrangement()) findRuns();
    findMoves();
    wantTiles();
}

/// From the topmost down, since the ceiling of live art right below other live art is that one's.
void LiveArt::findRuns() {
    live_ = watch_.live();
    arrangement_ = document_->arrangement();
    std::unordered_map<const Node*, const Node*> ceilings;
    const auto ceilingOf = [&](const Node& live) -> const Node* {
        for (const Node* at = &live; at; at = at->parent()) {
            for (const Node* above = at->previous(); above; above = above->previous()) {
                const auto known = ceilings.find(above);
                if (known != ceilings.end()) return known->second;
                if (!watch_.isLifted(*above) && showsSomething(*above)) return above;
            }
        }
        return nullptr;
    };
    std::vector<Run> runs;
    for (auto node = live_.rbegin(); node != live_.rend(); ++node) {
        const Node* const ceiling = ceilings[*node] = ceilingOf(**node);
        if (runs.empty() || runs.back().ceiling != ceiling) runs.push_back({{ceiling, {}}});
        runs.back().art.push_back(*node);
    }
    std::reverse(runs.begin(), runs.end());
    for (Run& run : runs) std::reverse(run.art.begin(), run.art.end());
    if (runs.size() > kMostRuns) runs = {Run{{runs.back().ceiling, live_}}};
    const auto sameCeiling = [](const Run& a, const Run& b) { return a.ceiling == b.ceiling; };
    if (!std::equal(runs.begin(), runs.end(), runs_.begin(), runs_.end(), sameCeiling)) tiles_.clear();
    runs_ = std::move(runs);
    if (truths_.size() != runs_.size()) truths_.clear(); // of others
    wantsPieces_ = true;
}

// True pictures

void LiveArt::forgetTruths() {
    truths_.clear();
    piecesOf_.clear();
    wantsPieces_ = true;
}

std::optional<std::vector<Piece>> LiveArt::takeWantedPieces() {
    if (!document_ || !std::exchange(wantsPieces_, false) || runs_.empty()) return std::nullopt;
    // A tool may make its art anew with each drag: that changes nothing in the rest.
    std::vector<const Node*> what;
    for (const Run& run : runs_) {
        what.push_back(run.ceiling);
        for (const Node* const art : run.art)
            if (!watch_.isNew(*art)) what.push_back(art);
    }
    if (what == piecesOf_ && truths_.size() == runs_.size()) return std::nullopt;
    piecesOf_ = std::move(what);
    truths_.assign(runs_.size(), {});
    return piecesOf(*document_, watch_, {runs_.begin(), runs_.end()}, port_);
}

void LiveArt::setPiece(const Piece& piece, QImage image) {
    if (piece.run >= truths_.size()) return; // the runs are others since it was asked for
    Truth& truth = truths_[piece.run];
    if (piece.kind == Piece::Kind::Art) {
        truth.art = std::move(image);
        truth.port = piece.port;
        findMoves();
    } else {
        truth.above = std::move(image);
        tiles_.clear();
        wantTiles();
    }
}

/// The art of a run shows as its true picture as long as all of it is moved together.
void LiveArt::findMoves() {
    for (std::size_t i = 0; i < truths_.size(); ++i) {
        if (truths_[i].art.isNull()) continue;
        const auto first = watch_.movedBy(*runs_[i].art.front());
        const auto goesAlong = [&](const Node* art) {
            const auto move = watch_.movedBy(*art);
            return move && port_.isNear(*move, *first);
        };
        const bool together = first && std::all_of(runs_[i].art.begin(), runs_[i].art.end(), goesAlong);
        truths_[i].moved = together ? first : std::nullopt;
    }
}

QRect LiveArt::placeOfTruth(std::size_t run) const {
    if (run >= truths_.size() || !truths_[run].moved) return {};
    const Truth& truth = truths_[run];
    const QPointF corner = port_.place({truth.port.origin.x + truth.moved->x, truth.port.origin.y + truth.moved->y});
    return {corner.toPoint(), truth.art.size()};
}

void LiveArt::wantTiles() {
    wanted_.clear();
    if (runs_.empty() || !runs_.front().ceiling) return; // the lowest has nothing above
    const auto want = [&](const QRect& pixels) {
        forTilesIn(pixels & QRect(QPoint(0, 0), port_.size), [&](Place place) {
            if (!tiles_.contains(place)) wanted_.push_back(place);
        });
    };
    if (live_.size() > kMostRectangles) return want(rectangleOf(live_));
    for (Node* const art : live_) want(rectangleOf({art}));
    for (std::size_t i = 0; i < truths_.size(); ++i) want(placeOfTruth(i));
    std::sort(wanted_.begin(), wanted_.end());
    wanted_.erase(std::unique(wanted_.begin(), wanted_.end()), wanted_.end());
}

QRegion LiveArt::refine(int milliseconds) {
    QRegion made;
    QElapsedTimer clock;
    clock.start();
    while (!wanted_.empty() && clock.elapsed() < milliseconds) {
        const Place place = wanted_.back();
        wanted_.pop_back();
        makeTile(place);
        made += pixelsOf(place);
    }
    return made;
}

void LiveArt::makeTile(Place place) {
    Tile& tile = tiles_[place];
    const QRect pixels = pixelsOf(place);
    const Port port = port_.part(pixels);
    std::vector<std::vector<const Node*>> between(runs_.size() + 1);
    std::size_t below = 0; // runs that lie below the node
    for (const Node* const node : document_->shownIn(watch_.paintedWithin(port_.box(pixels)))) {
        if (watch_.isLifted(*node)) continue;
        while (below < runs_.size() && runs_[below].ceiling && liesAtOrAbove(*node, *runs_[below].ceiling)) ++below;
        between[below].push_back(node);
    }
    if (below == 0) return; // nothing lies above
    tile.resize(runs_.size());
    for (std::size_t i = 0; i < runs_.size(); ++i) {
        if (between[i + 1].empty()) continue;
        if (i < truths_.size() && !truths_[i].above.isNull()) {
            tile[i] = truths_[i].above.copy(pixels);
            continue;
        }
        tile[i] = QImage(pixels.size(), QImage::Format_ARGB32_Premultiplied);
        const Cairo cairo = painterOn(tile[i], QRect(QPoint(0, 0), pixels.size()), port);
        for (const Node* const node : between[i + 1]) app::paint(cairo.get(), *node, 1 / port.pixels);
    }
}

QRect LiveArt::pixelsOf(Place place) const {
    return QRect(place.first * kTile, place.second * kTile, kTile, kTile) & QRect(QPoint(0, 0), port_.size);
}

template <class Act> void LiveArt::forTilesIn(const QRect& pixels, Act act) const {
    if (pixels.isEmpty()) return;
    for (int row = pixels.top() / kTile; row <= pixels.bottom() / kTile; ++row)
        for (int column = pixels.left() / kTile; column <= pixels.right() / kTile; ++column) act(Place(column, row));
}

QRect LiveArt::rectangleOf(const std::vector<Node*>& art) const {
    QRect around;
    for (const Node* const top : art)
        for (const Node* at = top; at; at = model::nextWithin(*top, *at))
            around |= port_.rectangle(paintedBox(at->content()));
    return around & QRect(QPoint(0, 0), port_.size);
}

void LiveArt::paint(QPainter& painter, const QRect& pixels) {
    const bool isMuch = live_.size() > kMuch;
    QRect around;
    for (std::size_t i = 0; i < runs_.size(); ++i) {
        Run& run = runs_[i];
        const QRect truth = placeOfTruth(i);
        if (isMuch && truth.isEmpty()) run.moved.take(run.art, port_);
        around |= !truth.isEmpty() ? truth : isMuch ? run.moved.rectangle() : rectangleOf(run.art);
    }
    around &= pixels;
    if (around.isEmpty()) return;
    if (!isMuch || runs_.size() > 1 || runs_.front().ceiling || !placeOfTruth(0).isEmpty())
        painter.drawImage(around.topLeft(), picture(around));
    else
        runs_.front().moved.paint(painter, {});
}

bool LiveArt::sharpen() {
    bool isAny = false;
    for (Run& run : runs_) isAny |= run.moved.sharpen();
    return isAny;
}

QImage LiveArt::picture(const QRect& part) const {
    QImage over(part.size(), QImage::Format_ARGB32_Premultiplied);
    const Cairo cairo = painterOn(over, over.rect(), port_.part(part));
    for (std::size_t i = 0; i < runs_.size(); ++i) {
        const QRect truth = placeOfTruth(i);
        const bool isMuch = live_.size() > kMuch;
        const bool isAnew = !isMuch && truth.isEmpty();
        if (isAnew)
            for (const Node* const art : runs_[i].art) app::paint(cairo.get(), *art, 1 / port_.pixels);
        if (isAnew && !runs_[i].ceiling) continue;
        cairo_surface_flush(cairo_get_target(cairo.get()));
        QPainter painter(&over);
        if (!truth.isEmpty())
            painter.drawImage(truth.topLeft() - part.topLeft(), truths_[i].art);
        else if (isMuch)
            runs_[i].moved.paint(painter, part.topLeft());
        painter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
        if (runs_[i].ceiling) paintTiles(painter, i, part);
        painter.end();
        cairo_surface_mark_dirty(cairo_get_target(cairo.get()));
    }
    return over;
}

/// What lies above a run, within a part.
void LiveArt::paintTiles(QPainter& painter, std::size_t run, const QRect& part) const {
    forTilesIn(part, [&](Place place) {
        const auto tile = tiles_.find(place);
        if (tile == tiles_.end() || tile->second.empty() || tile->second[run].isNull()) return;
        painter.drawImage(pixelsOf(place).topLeft() - part.topLeft(), tile->second[run]);
    });
}

} // namespace easel::app
