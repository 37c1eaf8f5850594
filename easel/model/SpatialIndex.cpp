// An R-tree of hulls, and the list of dirty paths. A dirty path's old entry stays in the tree, passed over, until
// `reindex`: many a change is rolled back before that.
#include "model/SpatialIndex.h"

#include <boost/geometry.hpp>
#include <boost/geometry/index/rtree.hpp>
#include <boost/iterator/function_output_iterator.hpp>

#include <utility>

namespace easel::model {

namespace {

namespace bg = boost::geometry;
using TreePoint = bg::model::point<double, 2, bg::cs::cartesian>;
using TreeBox = bg::model::box<TreePoint>;
using Entry = std::pair<TreeBox, Node*>;
using Rtree = bg::index::rtree<Entry, bg::index::quadratic<16>>;

TreeBox treeBox(const Box& box) { return {{box.left, box.top}, {box.right, box.bottom}}; }

// Building anew costs about a quarter of an insertion for each path.
constexpr std::size_t kFewDirty = 256;
constexpr std::size_t kInsertionCost = 4;

} // namespace

struct SpatialIndex::BoxTree {
    Rtree entries;
};

SpatialIndex::SpatialIndex() : tree_(std::make_unique<BoxTree>()) {}

SpatialIndex::~SpatialIndex() = default;

void SpatialIndex::find(const Box& box, std::vector<Node*>& found) const {
    tree_->entries.query(bg::index::intersects(treeBox(box)),
                         boost::make_function_output_iterator([&found](const Entry& entry) {
                             if (entry.second->indexed_ == Node::Indexed::InTree) found.push_back(entry.second);
                         }));
    for (const Dirty& dirty : dirty_)
        if (dirty.path->alive_ && dirty.path->hull().meets(box)) found.push_back(dirty.path);
}

void SpatialIndex::markDirty(Node& path) {
    if (path.indexed_ == Node::Indexed::Dirty) return;
    const bool inTree = path.indexed_ == Node::Indexed::InTree;
    path.indexed_ = Node::Indexed::Dirty;
    path.dirtyPlace_ = static_cast<std::uint32_t>(dirty_.size());
    dirty_.push_back({&path, inTree, inTree ? path.hull() : Box{}});
}

void SpatialIndex::reindex() {
    std::vector<Entry> whole;
    const bool anew = dirty_.size() > kFewDirty && dirty_.size() * kInsertionCost > tree_->entries.size();
    if (anew) {
        whole.reserve(tree_->entries.size() + dirty_.size());
        for (const Entry& entry : tree_->entries)
            if (entry.second->indexed_ == Node::Indexed::InTree) whole.push_back(entry);
    }
    for (const Dirty& dirty : dirty_) {
        Node& path = *dirty.path;
        const Box hull = path.alive_ ? path.hull() : Box{};
        const bool stays = dirty.inTree && hull == dirty.treeBox;
        const bool found = !hull.isEmpty();
        path.indexed_ = found ? Node::Indexed::InTree : Node::Indexed::No;
        path.dirtyPlace_ = Node::kNowhere;
        if (anew) {
            if (found) whole.emplace_back(treeBox(hull), &path);
        } else if (!stays) {
            if (dirty.inTree) tree_->entries.remove(Entry{treeBox(dirty.treeBox), &path});
            if (found) tree_->entries.insert(Entry{treeBox(hull), &path});
        }
    }
    dirty_.clear();
    if (!anew) return;
    dirty_.shrink_to_fit();
    tree_->entries = Rtree(whole);
}

void SpatialIndex::forget(Node& path) {
    if (path.indexed_ == Node::Indexed::No) return;
    markDirty(path);
    const std::uint32_t place = path.dirtyPlace_;
    if (dirty_[place].inTree) tree_->entries.remove(Entry{treeBox(dirty_[place].treeBox), &path});
    if (place + 1 != dirty_.size()) {
        dirty_[place] = dirty_.back();
        dirty_[place].path->dirtyPlace_ = place;
    }
    dirty_.pop_back();
    path.indexed_ = Node::Indexed::No;
    path.dirtyPlace_ = Node::kNowhere;
}

} // namespace easel::model
