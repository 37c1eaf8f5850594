// Places in the order of nodes, by which a drawing that is read again tells what is what.
#include "app/Pieces.h"

#include <algorithm>
#include <limits>
#include <unordered_map>
#include <utility>

#include "svg/ElementLook.h"
#include "svg/FileError.h"
#include "svg/Reader.h"
#include "svg/Writer.h"

namespace easel::app {

namespace {

using model::Document;
using model::Node;

constexpr std::size_t kNowhere = std::numeric_limits<std::size_t>::max();
constexpr std::size_t kMostLookedAt = 1000; // objects of a run
constexpr double kMargin = 32;              // pixels, for what filters add to art

/// Whether the renderer shows it otherwise than PathPainter.
bool isLooking(const Document& document, const Node& art) {
    for (const Node* at = &art; at; at = at->parent())
        if (hasLooks(*at)) return true;
    const svg::ElementLook look(document, art);
    return look.opacity(svg::Name::FillOpacity) < 1 || look.opacity(svg::Name::StrokeOpacity) < 1 || look.hasMarkers();
}

/// Around the run with what it may cast around itself, at most a view's size beyond the view.
Port portOf(const LiveRun& run, const Watch& watch, const Port& port) {
    QRect around;
    for (const Node* const art : run.art)
        for (const Node* at = art; at; at = model::nextWithin(*art, *at))
            around |= port.rectangle(paintedBox(watch.before(*at)));
    const int across = around.width() / 2 + static_cast<int>(kMargin);
    const int down = around.height() / 2 + static_cast<int>(kMargin);
    const QSize size = port.size;
    around = around.adjusted(-across, -down, across, down) &
             QRect(QPoint(0, 0), size).adjusted(-size.width(), -size.height(), size.width(), size.height());
    return port.part(around);
}

/// Where things are in the order of nodes, those left out that the gesture has made.
class Order {
  public:
    Order(Document& document, const Watch& watch, const std::vector<LiveRun>& runs) : runs_(runs) {
        std::unordered_map<const Node*, std::size_t> runOf;
        for (std::size_t i = 0; i < runs.size(); ++i)
            for (const Node* const art : runs[i].art) runOf.emplace(art, i);
        reach_.resize(runs.size());
        const Node& root = document.root();
        for (const Node* at = &root; at; at = model::nextWithin(root, *at)) {
            if (watch.isNew(*at)) continue;
            const auto run = runOf.find(at);
            owners_.push_back(run == runOf.end() ? kNowhere : run->second);
            for (std::size_t i = 0; i < runs.size(); ++i)
                if (runs[i].ceiling && at->isWithin(*runs[i].ceiling)) reach_[i] = owners_.size();
        }
    }

    [[nodiscard]] std::size_t size() const { return owners_.size(); }
    [[nodiscard]] bool isLive(std::size_t place) const { return owners_[place] != kNowhere; }
    [[nodiscard]] bool isOf(std::size_t run, std::size_t place) const { return owners_[place] == run; }
    [[nodiscard]] bool anyLive() const {
        return std::any_of(owners_.begin(), owners_.end(), [](std::size_t run) { return run != kNowhere; });
    }
    [[nodiscard]] bool anyOf(std::size_t run) const {
        return std::find(owners_.begin(), owners_.end(), run) != owners_.end();
    }
    /// Above the run, and not above the next one.
    [[nodiscard]] bool isAbove(std::size_t run, std::size_t place) const {
        const bool aboveNext = run + 1 < runs_.size() && place < reach_[run + 1];
        return !isLive(place) && place < reach_[run] && !aboveNext;
    }

  private:
    const std::vector<LiveRun>& runs_;
    std::vector<std::size_t> owners_; // the run of each node, or nowhere
    std::vector<std::size_t> reach_;  // behind the last node of the run's ceiling
};

} // namespace

bool hasLooks(const Node& node) {
    const model::Content& content = node.content();
    const bool isServed =
        content.style && !(content.style->fillServer().empty() && content.style->strokeServer().empty());
    return content.extras || isServed || node.type() == model::NodeType::Opaque;
}

std::vector<Piece> piecesOf(Document& document, const Watch& watch, const std::vector<LiveRun>& runs,
                            const Port& port) {
    const Order order(document, watch, runs);
    std::vector<Piece> pieces;
    const auto add = [&](Piece::Kind kind, std::size_t run, const Port& of, const auto& shows) {
        Piece piece{kind, run, of, std::vector<bool>(order.size())};
        for (std::size_t i = 0; i < order.size(); ++i) piece.shown[i] = shows(i);
        pieces.push_back(std::move(piece));
    };
    if (order.anyLive()) add(Piece::Kind::Rest, 0, port, [&](std::size_t i) { return !order.isLive(i); });
    for (std::size_t run = 0; run < runs.size(); ++run) {
        const std::vector<Node*>& art = runs[run].art;
        const auto last = art.begin() + static_cast<std::ptrdiff_t>(std::min(art.size(), kMostLookedAt));
        const bool looks = std::any_of(art.begin(), last, [&](const Node* each) { return isLooking(document, *each); });
        const Port own = portOf(runs[run], watch, port);
        if (looks && order.anyOf(run) && !own.size.isEmpty())
            add(Piece::Kind::Art, run, own, [&](std::size_t i) { return order.isOf(run, i); });
        if (runs[run].ceiling) add(Piece::Kind::Above, run, port, [&](std::size_t i) { return order.isAbove(run, i); });
    }
    return pieces;
}

Cutter::Cutter(const std::string& svg) : document_(svg::read(svg, "the drawing")) {
    Node& root = document_->root();
    for (Node* at = &root; at; at = model::nextWithin(root, *at)) nodes_.push_back(at);
}

std::string Cutter::cut(const std::vector<bool>& shown) {
    if (shown.size() != nodes_.size()) throw svg::FileError("the drawing is another when it is read again");
    std::vector<Node*> hidden;
    for (std::size_t i = 0; i < nodes_.size(); ++i) {
        Node& node = *nodes_[i];
        const bool isDrawn = (node.isOutlined() || node.type() == model::NodeType::Opaque) && !node.isSubpath();
        if (isDrawn && !shown[i] && !node.hidden()) hidden.push_back(&node);
    }
    for (Node* const node : hidden) document_->setHidden(*node, true);
    std::string text = svg::write(*document_);
    for (Node* const node : hidden) document_->setHidden(*node, false);
    return text;
}

} // namespace easel::app
