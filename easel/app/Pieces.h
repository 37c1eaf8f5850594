// Pictures of a drawing in pieces, for gestures: of what a gesture leaves as it is, of each run of art that it changes,
// and of what lies above that. The renderer's process makes them of the drawing as it was before.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "app/Port.h"
#include "app/Watch.h"
#include "model/Document.h"

namespace easel::app {

/// Live art with nothing else between.
struct LiveRun {
    const model::Node* ceiling; ///< what comes right above, not live; null for nothing
    std::vector<model::Node*> art;

    bool operator==(const LiveRun&) const = default;
};

struct Piece {
    enum class Kind : std::uint8_t { Whole, Rest, Art, Above };

    Kind kind = Kind::Whole;
    std::size_t run = 0; ///< of Art and Above
    Port port{};
    /// Which nodes show of a drawing with as many, a container before its contents, the topmost first. Empty: all.
    std::vector<bool> shown{};
};

/// The pieces that runs, the bottommost first, cut the drawing into: the rest if anything of it goes, art that the
/// renderer alone draws, and what lies above. Nodes that the gesture has made count as not there.
[[nodiscard]] std::vector<Piece> piecesOf(model::Document& document, const Watch& watch,
                                          const std::vector<LiveRun>& runs, const Port& port);

/// Whether the renderer shows more of it than PathPainter.
[[nodiscard]] bool hasLooks(const model::Node& node);

/// A drawing, as SVG, of which nothing shows but a piece. Throws svg::FileError, also where it has not as many nodes.
class Cutter {
  public:
    explicit Cutter(const std::string& svg);
    [[nodiscard]] std::string cut(const std::vector<bool>& shown);

  private:
    std::unique_ptr<model::Document> document_;
    std::vector<model::Node*> nodes_; ///< in their order
};

} // namespace easel::app
