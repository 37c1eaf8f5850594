// What the renderer's process shows of a drawing: when it is asked for, and what becomes of it.
#include <exception>
#include <utility>
#include <vector>

#include "app/Canvas.h"
#include "svg/Writer.h"

namespace easel::app {

namespace {

constexpr std::size_t kMostTrueObjects = 50'000;

} // namespace

/// Whether true pictures of the drawing are made. Says once that they are not where they would show more.
bool Canvas::wantsTruth() {
    std::size_t objects = 0;
    bool isPlain = true;
    for (const model::Node* at = &document()->root(); at; at = model::nextWithin(document()->root(), *at)) {
        if (hasLooks(*at)) isPlain = false;
        if (++objects > kMostTrueObjects && (sizeIsKnown_ || !isPlain)) break;
    }
    // What was read may have looks that we do not know of.
    if (objects <= kMostTrueObjects) return !isPlain || document()->root().origin() != 0;
    if (!std::exchange(sizeIsKnown_, true) && !isPlain && tell)
        tell("This drawing has more than 50,000 objects: gradients, text and images of it show in plain colours, or "
             "as boxes");
    return false;
}

TruePictures::Order Canvas::orderOf(Piece piece, std::uint64_t number) const {
    return {text_, document()->width(), document()->height(), std::move(piece), number};
}

void Canvas::takeTruth(const TruePictures::Order& order, const QImage& image) {
    const Port& port = order.piece.port;
    if (order.piece.kind != Piece::Kind::Whole) {
        if (order.number != lastPieces_) return;
        --piecesDue_;
        scene_.setPiece(order.piece, image);
        if (!scene_.isComplete()) refineTimer_.start(0, this);
        return update();
    }
    if (order.number != lastOrder_) return; // of what is not shown any more
    scene_.setTruth(image, port);
    truthIsDue_ = truthTimer_.isActive() || port != scene_.port();
    update();
    if (port != scene_.port()) truthTimer_.start(restMilliseconds, this);
}

void Canvas::missTruth(const TruePictures::Order& order, const std::string& why) {
    if (order.piece.kind != Piece::Kind::Whole) { // the last picture of all shows on
        if (order.number == lastPieces_) --piecesDue_;
        return;
    }
    if (order.number != lastOrder_) return;
    truthFails_ = true;
    truthIsDue_ = false;
    scene_.dropTruth();
    update();
    if (tell) tell("Some art shows as boxes: the drawing cannot be drawn: " + why);
}

bool Canvas::updateText() {
    try {
        const std::uint64_t changes = document()->journal().changeCount();
        if (!text_ || changes != textChanges_) text_ = std::make_shared<const std::string>(svg::write(*document()));
        textChanges_ = changes;
        return true;
    } catch (const std::exception& error) {
        truthFails_ = true;
        if (tell) tell(error.what());
        return false;
    }
}

/// While a gesture runs, of the document as it was before.
void Canvas::askForTruth() {
    truthIsDue_ = false;
    if (dragging() && scene_.sharpenLive()) update();
    if (!document() || truthFails_ || scene_.port().size.isEmpty()) return;
    if (dragging() && (!textIsOfBefore_ || scene_.isTruthNew())) return;
    if (!wantsTruth()) {
        ++lastOrder_; // what was asked for before is out of date
        return scene_.dropTruth();
    }
    if (!dragging() && !updateText()) return;
    scene_.noteRequest();
    truthIsDue_ = true;
    truths_.ask(orderOf({.kind = Piece::Kind::Whole, .port = scene_.port()}, ++lastOrder_));
}

/// The gesture has ended that they were asked for: what waits for them comes sooner.
void Canvas::dropPieces() {
    ++lastPieces_;
    piecesDue_ = 0;
    truths_.askPieces({});
}

/// For the running gesture.
void Canvas::askForPieces() {
    if (!dragging() || !textIsOfBefore_) return;
    const auto wanted = scene_.takeWantedPieces();
    if (!wanted) return;
    ++lastPieces_;
    piecesDue_ = wanted->size();
    std::vector<TruePictures::Order> orders;
    for (const Piece& piece : *wanted) orders.push_back(orderOf(piece, lastPieces_));
    truths_.askPieces(std::move(orders));
}

} // namespace easel::app
