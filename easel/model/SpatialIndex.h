// Finds the paths and the opaque art near a place, here all called paths. Paths that change while a transaction runs
// are dirty: they are searched one by one, so that a drag costs the index nothing; `reindex` sorts them in. Knows
// nothing of visibility or order. Of long paths it also knows where their segments lie, once they have been searched.
#pragma once

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

#include "model/Node.h"
#include "model/SegmentBoxes.h"

namespace easel::model {

/// A living path is found by the hull of its anchors and control points; a dead or empty one never.
class SpatialIndex {
  public:
    SpatialIndex();
    ~SpatialIndex();

    /// The paths whose hull meets `box`, in no order, and perhaps some that miss it by less than a millionth.
    void find(const Box& box, std::vector<Node*>& found) const;

    /// Where the segments of a path lie that is long, and not dirty; null for all others.
    [[nodiscard]] SegmentBoxes* segments(const Node& path);

    /// To be called before a path changes its points, lives or dies.
    void markDirty(Node& path);
    [[nodiscard]] std::uint64_t changeCount() const { return changeCount_; } ///< grows with each such change
    /// Sorts the dirty paths in, one by one or, when they are many, by building the whole anew.
    void reindex();
    /// Forgets a path whose slot is given back.
    void forget(Node& path);

  private:
    void rebuild();

    struct Entries;

    std::unique_ptr<Entries> entries_;
    std::unordered_map<const Node*, SegmentBoxes> segments_;
    std::uint64_t changeCount_ = 0;
};

} // namespace easel::model
