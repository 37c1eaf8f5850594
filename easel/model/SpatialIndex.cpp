// An R-tree of hulls, and the list of dirty paths. A dirty path's old entry stays in the tree, passed over, until
// `reindex`: many a change is rolled back before that. Boxes are kept in single precision, rounded outwards.
#include "model/SpatialIndex.h"

#include <boost/geometry.hpp>
#include <boost/geometry/index/rtree.hpp>
#include <boost/iterator/function_output_iterator.hpp>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace easel::model {

namespace {

namespace bg = boost::geometry;
using TreePoint = bg::model::point<float, 2, bg::cs::cartesian>;
using TreeBox = bg::model::box<TreePoint>;
using Entry = std::pair<TreeBox, Node*>;
using Rtree = bg::index::rtree<Entry, bg::index::quadratic<16>>;

// Building anew costs about a quarter of an insertion for each path.
constexpr std::size_t kFewDirty = 256;
constexpr std::size_t kInsertionCost = 4;

constexpr float kInfinity = std::numeric_limits<float>::infinity();

/// The nearest float that is not above the value. What is beyond all floats counts as the last one.
float roundedDown(double value) {
    constexpr double kMost = std::numeric_limits<float>::max();
    value = std::clamp(value, -kMost, kMost);
    const auto near = static_cast<float>(value);
    return near > value ? std::nextafter(near, -kInfinity) : near;
}

float roundedUp(double value) { return -roundedDown(-value); }

TreeBox treeBox(const Box& box) {
    return {{roundedDown(box.left), roundedDown(box.top)}, {roundedUp(box.right), roundedUp(box.bottom)}};
}

bool same(const TreeBox& a, const TreeBox& b) {
    return a.min_corner().get<0>() == b.min_corner().get<0>() && a.min_corner().get<1>() == b.min_corner().get<1>() &&
           a.max_corner().get<0>() == b.max_corner().get<0>() && a.max_corner().get<1>() == b.max_corner().get<1>();
}

} // namespace

/// While a drawing is read all of its paths are dirty, so that a dirty one takes no more than it must.
struct SpatialIndex::Entries {
    Rtree tree;
    std::vector<Node*> dirty;
    std::vector<TreeBox> before; // where the tree still has dirty paths, at their places; not for those behind

    static Entry entryOf(Node* path) { return {treeBox(path->alive_ ? path->hull() : Box{}), path}; }
    /// Whether the path is to be found from now on; it is no longer dirty.
    static bool settle(Node& path) {
        const bool isFound = path.alive_ && !path.hull().isEmpty();
        path.indexed_ = isFound ? Node::Indexed::InTree : Node::Indexed::No;
        path.dirtyPlace_ = Node::kNowhere;
        return isFound;
    }
};

SpatialIndex::SpatialIndex() : entries_(std::make_unique<Entries>()) {}

SpatialIndex::~SpatialIndex() = default;

void SpatialIndex::find(const Box& box, std::vector<Node*>& found) const {
    entries_->tree.query(bg::index::intersects(treeBox(box)),
                         boost::make_function_output_iterator([&found](const Entry& entry) {
                             if (entry.second->indexed_ == Node::Indexed::InTree) found.push_back(entry.second);
                         }));
    for (Node* const path : entries_->dirty)
        if (path->alive_ && path->hull().meets(box)) found.push_back(path);
}

void SpatialIndex::markDirty(Node& path) {
    ++changeCount_;
    if (path.dirtyPlace_ != Node::kNowhere) return;
    if (!segments_.empty()) segments_.erase(&path);
    path.dirtyPlace_ = static_cast<std::uint32_t>(entries_->dirty.size());
    entries_->dirty.push_back(&path);
    if (path.indexed_ != Node::Indexed::InTree) return;
    path.indexed_ = Node::Indexed::InTreeBefore;
    entries_->before.resize(path.dirtyPlace_, treeBox({}));
    entries_->before.push_back(treeBox(path.hull()));
}

SegmentBoxes* SpatialIndex::segments(const Node& path) {
    constexpr std::size_t kLong = 256; // what is shorter is looked through as fast
    if (path.type() != NodeType::Path || path.path().points.size() < kLong || path.dirtyPlace_ != Node::kNowhere)
        return nullptr;
    const auto known = segments_.find(&path);
    return known != segments_.end() ? &known->second : &segments_.try_emplace(&path, path.path()).first->second;
}

void SpatialIndex::reindex() {
    auto& [tree, dirty, before] = *entries_;
    if (dirty.size() > kFewDirty && dirty.size() * kInsertionCost > tree.size()) return rebuild();
    for (std::size_t i = 0; i < dirty.size(); ++i) {
        const bool wasInTree = dirty[i]->indexed_ == Node::Indexed::InTreeBefore;
        const bool isInTree = Entries::settle(*dirty[i]);
        const Entry now = Entries::entryOf(dirty[i]);
        if (wasInTree && isInTree && same(now.first, before[i])) continue;
        if (wasInTree) tree.remove(Entry(before[i], dirty[i]));
        if (isInTree) tree.insert(now);
    }
    dirty.clear();
    before.clear();
    if (dirty.capacity() > 2 * kFewDirty) dirty.shrink_to_fit();
    if (before.capacity() > 2 * kFewDirty) before.shrink_to_fit();
}

/// All entries stand in one list meanwhile: to look at the paths again in the tree's order, all over memory, would take
/// longer than all else.
void SpatialIndex::rebuild() {
    entries_->before = {};
    std::vector<Node*> dirty = std::exchange(entries_->dirty, {});
    std::vector<Entry> all;
    all.reserve(dirty.size() + entries_->tree.size());
    for (const Entry& entry : entries_->tree)
        if (entry.second->indexed_ == Node::Indexed::InTree) all.push_back(entry);
    entries_->tree.clear();
    for (Node* const path : dirty)
        if (Entries::settle(*path)) all.push_back(Entries::entryOf(path));
    dirty = {};
    entries_->tree = Rtree(all);
}

void SpatialIndex::forget(Node& path) {
    if (path.indexed_ == Node::Indexed::No && path.dirtyPlace_ == Node::kNowhere) return;
    markDirty(path);
    auto& [tree, dirty, before] = *entries_;
    const std::uint32_t place = path.dirtyPlace_;
    if (path.indexed_ == Node::Indexed::InTreeBefore) tree.remove(Entry(before[place], &path));
    Node* const last = dirty.back();
    if (last->indexed_ == Node::Indexed::InTreeBefore) before[place] = before[last->dirtyPlace_];
    dirty[place] = last;
    last->dirtyPlace_ = place;
    dirty.pop_back();
    before.resize(std::min(before.size(), dirty.size()), treeBox({}));
    path.indexed_ = Node::Indexed::No;
    path.dirtyPlace_ = Node::kNowhere;
}

} // namespace easel::model
