// The parts of a document. Private to this folder.
#pragma once

#include <string>
#include <vector>

#include "model/Document.h"
#include "model/Journal.h"
#include "model/Tree.h"

namespace easel::model {

/// An inner transaction, or the whole one if none is running. Every change is in one, so that none is made while the
/// document may only be read.
class Transaction {
  public:
    explicit Transaction(Journal& journal) : journal_(journal) {
        journal_.requireWritable();
        journal_.begin();
    }
    ~Transaction() { journal_.end(); }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

  private:
    Journal& journal_;
};

struct Document::Impl {
    Tree tree;
    Journal journal{tree};
    double width = 0;
    double height = 0;
    NodeId currentLayer;
    std::shared_ptr<const Style> lastStyle; // neighbours often look alike: they share one payload
    std::vector<Node*> found;               // of the last search, kept for its storage

    void setSelected(Node& node, bool selected, std::shared_ptr<const PointSelection> points);
    void deselectAround(const Node& node);
    /// The path's points for writing: in place when the journal knows nothing of them, else a copy.
    PathData& writablePath(Node& path);
    void setOpaque(Node& opaque, const OpaqueData& data);
    void fitPointSelection(Node& path, std::size_t count);
    void findNear(Point point, double tolerance);
};

} // namespace easel::model
