// The storage of nodes, their links, and what is derived from these: the living, the selected, the spatial index.
// Records no change: only the journal and the document, which do, use it.
#pragma once

#include <boost/container/deque.hpp>

#include <cstdint>
#include <vector>

#include "model/KeptHits.h"
#include "model/Node.h"
#include "model/SpatialIndex.h"

namespace easel::model {

/// A node is linked exactly when its state names a parent, and alive when it hangs below the root. Nodes never move in
/// memory. A node that dies keeps what hangs below it, and its slot until it is destroyed.
class Tree {
  public:
    Tree();
    ~Tree();
    Tree(const Tree&) = delete;
    Tree& operator=(const Tree&) = delete;

    // Storage
    [[nodiscard]] Node& root() { return nodes_.front(); }
    [[nodiscard]] Node* find(NodeId id); ///< null unless alive
    Node& make(NodeType type);           ///< dead, linked to nothing
    /// Gives the slot of a dead node to the next generation; what hangs below it goes too, unless the journal knows it.
    void destroy(Node& node);

    // Links, as the node's state names them; the state is the caller's
    void attach(Node& node);
    void detach(Node& node);
    void attachNew(Node& node, Node* below); ///< an empty one to a living parent, right above `below` or last
    /// Grows with every link that is made or taken away.
    [[nodiscard]] std::uint64_t linkCount() const { return linkCount_; }
    /// Brings `alive` up to date for the node and, if that changes, for its descendants.
    void updateAlive(Node& node);

    // Selection: the living selected nodes, in no order
    [[nodiscard]] const std::vector<Node*>& selected() const { return selected_; }
    void updateSelected(Node& node);
    /// Whether looking at every node beats sorting the selected ones.
    [[nodiscard]] bool mostAreSelected() const { return selected_.size() > nodes_.size() / 8; }

    SpatialIndex index;
    KeptHits keptHits;

  private:
    void setAlive(Node& node, bool alive);
    void giveBack(Node& node);

    using Nodes =
        boost::container::deque<Node, void, boost::container::deque_options_t<boost::container::block_size<256>>>;

    Nodes nodes_;
    std::vector<std::uint32_t> freeSlots_;
    std::vector<Node*> selected_;
    std::uint64_t linkCount_ = 0;
};

} // namespace easel::model
