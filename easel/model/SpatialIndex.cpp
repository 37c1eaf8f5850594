// An R-tree of hulls, and the list of loose paths. A loose path's old entry stays in the tree, passed over, until the
// paths are settled: many a change is taken back before that.
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
constexpr std::size_t kFewLoose = 256;
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
    for (const Loose& loose : loose_) {
        if (loose.path->alive_ && loose.path->hull().meets(box)) found.push_back(loose.path);
    }
}

void SpatialIndex::loosen(Node& path) {
    if (path.indexed_ == Node::Indexed::Loose) return;
    const bool inTree = path.indexed_ == Node::Indexed::InTree;
    path.indexed_ = Node::Indexed::Loose;
    path.loosePlace_ = static_cast<std::uint32_t>(loose_.size());
    loose_.push_back({&path, inTree, inTree ? path.hull() : Box{}});
}

void SpatialIndex::settle() {
    std::vector<Entry> whole;
    const bool anew = loose_.size() > kFewLoose && loose_.size() * kInsertionCost > tree_->entries.size();
    if (anew) {
        whole.reserve(tree_->entries.size() + loose_.size());
        for (const Entry& entry : tree_->entries) {
            if (entry.second->indexed_ == Node::Indexed::InTree) whole.push_back(entry);
        }
    }
    for (const Loose& loose : loose_) {
        Node& path = *loose.path;
        const Box hull = path.alive_ ? path.hull() : Box{};
        const bool stays = loose.inTree && hull == loose.treeBox;
        const bool found = !hull.isEmpty();
        path.indexed_ = found ? Node::Indexed::InTree : Node::Indexed::No;
        path.loosePlace_ = Node::nowhere;
        if (anew) {
            if (found) whole.emplace_back(treeBox(hull), &path);
        } else if (!stays) {
            if (loose.inTree) tree_->entries.remove(Entry{treeBox(loose.treeBox), &path});
            if (found) tree_->entries.insert(Entry{treeBox(hull), &path});
        }
    }
    loose_.clear();
    if (!anew) return;
    loose_.shrink_to_fit();
    tree_->entries = Rtree(whole);
}

void SpatialIndex::forget(Node& path) {
    if (path.indexed_ == Node::Indexed::No) return;
    loosen(path);
    const std::uint32_t place = path.loosePlace_;
    if (loose_[place].inTree) tree_->entries.remove(Entry{treeBox(loose_[place].treeBox), &path});
    if (place + 1 != loose_.size()) {
        loose_[place] = loose_.back();
        loose_[place].path->loosePlace_ = place;
    }
    loose_.pop_back();
    path.indexed_ = Node::Indexed::No;
    path.loosePlace_ = Node::nowhere;
}

} // namespace easel::model
