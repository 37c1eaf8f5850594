// The parts of a document. Private to this folder.
#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "model/Document.h"
#include "model/Journal.h"
#include "model/StylePool.h"
#include "model/Tree.h"

namespace easel::model {

/// An inner transaction, or the whole one if none is running. Every change is in one, so that none is made while the
/// document may only be read.
class Transaction {
  public:
    explicit Transaction(Journal& journal) : scope_(writable(journal)) {}

  private:
    static Journal& writable(Journal& journal) {
        journal.requireWritable();
        return journal;
    }

    Journal::Scope scope_;
};

struct Document::Impl {
    Tree tree;
    Journal journal{tree};
    double width = 0;
    double height = 0;
    NodeId currentLayer;
    struct {
        std::uint64_t arrangement = 0;
        std::size_t index = 0;
        Node* layer = nullptr;
    } lastLayer; // that was asked for by index, as those who ask for all of them come to the next one then
    StylePool styles;
    std::unordered_map<std::uint32_t, Content> originals; // of nodes that have been changed, by their origin
    const Shared<PathData> emptyPath{PathData{}};
    Shared<Style> newStyle{Style{}}; // of the last new path
    const Shared<OpaqueData> emptyOpaque{OpaqueData{}};
    std::vector<NodeId> guessed; // texts
    std::vector<Node*> found;    // of the last search, kept for its storage

    void setSelected(Node& node, bool selected, Shared<PointSelection> points);
    void deselectAround(const Node& node);
    [[nodiscard]] Content newContent(NodeType type, const Style& pathStyle);
    static void becomePartOf(Node& subpath, const Node& compound); ///< of a node that is noted
    static Node& make(Document& document, const Snapshot::Part& part, Placement placement, Node& anchor);
    /// The node's content for writing, noted. Nothing else changes a content, so that no change of it is lost.
    Content& change(Node& node);
    /// The path's points for writing: in place when the journal knows nothing of them, else a copy.
    PathData& writablePath(Node& path);
    template <class Change> void setOpaque(Node& opaque, const Change& changeData) {
        tree.index.markDirty(opaque);
        OpaqueData data = opaque.opaque();
        changeData(data);
        change(opaque).opaque = Shared(std::move(data));
    }
    void setPlace(Node& node, const Affine& placed); ///< of one that keeps it
    void transform(Node& node, const Affine& by);    ///< without its descendants
    void fitPointSelection(Node& path, std::size_t count);
    void findNear(Point point, double tolerance);
    [[nodiscard]] Hit bestKept(Node& within, const KeptHits::Place& place);
};

} // namespace easel::model
