// Finds the paths and the opaque art near a place, here all called paths. Paths that change while a transaction runs
// are dirty: they are searched one by one, so that a drag costs the index nothing; `reindex` sorts them in. Knows
// nothing of visibility or order.
#pragma once

#include <memory>
#include <vector>

#include "model/Node.h"

namespace easel::model {

/// A living path is found by the hull of its anchors and control points; a dead or empty one never.
class SpatialIndex {
  public:
    SpatialIndex();
    ~SpatialIndex();

    /// The paths whose hull meets `box`, in no order, and perhaps some that miss it by less than a millionth.
    void find(const Box& box, std::vector<Node*>& found) const;

    /// To be called before a path changes its points, lives or dies.
    void markDirty(Node& path);
    /// Sorts the dirty paths in, one by one or, when they are many, by building the whole anew.
    void reindex();
    /// Forgets a path whose slot is given back.
    void forget(Node& path);

  private:
    void rebuild();

    struct Entries;

    std::unique_ptr<Entries> entries_;
};

} // namespace easel::model
