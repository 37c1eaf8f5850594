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

struct SpatialIndex::Entries {
    Rtree tree;
    std::vector<Entry> dirty; // a box counts where the tree still has the path there

    /// The path as it is to be found from now on, no longer dirty. Its state tells whether it is to be found at all.
    static Entry settled(Node& path) {
        const Box hull = path.alive_ ? path.hull() : Box{};
        path.indexed_ = hull.isEmpty() ? Node::Indexed::No : Node::Indexed::InTree;
        path.dirtyPlace_ = Node::kNowhere;
        return {treeBox(hull), &path};
    }
};

SpatialIndex::SpatialIndex() : entries_(std::make_unique<Entries>()) {}

SpatialIndex::~SpatialIndex() = default;

void SpatialIndex::find(const Box& box, std::vector<Node*>& found) const {
    entries_->tree.query(bg::index::intersects(treeBox(box)),
                         boost::make_function_output_iterator([&found](const Entry& entry) {
                             if (entry.second->indexed_ == Node::Indexed::InTree) found.push_back(entry.second);
                         }));
    for (const Entry& entry : entries_->dirty)
        if (entry.second->alive_ && entry.second->hull().meets(box)) found.push_back(entry.second);
}

void SpatialIndex::markDirty(Node& path) {
    if (path.dirtyPlace_ != Node::kNowhere) return;
    if (!segments_.empty()) segments_.erase(&path);
    path.dirtyPlace_ = static_cast<std::uint32_t>(entries_->dirty.size());
    const bool inTree = path.indexed_ == Node::Indexed::InTree;
    entries_->dirty.emplace_back(inTree ? treeBox(path.hull()) : treeBox({}), &path);
    path.indexed_ = inTree ? Node::Indexed::InTreeBefore : Node::Indexed::No;
}

SegmentBoxes* SpatialIndex::segments(const Node& path) {
    constexpr std::size_t kLong = 256; // what is shorter is looked through as fast
    if (path.type() != NodeType::Path || path.path().points.size() < kLong || path.dirtyPlace_ != Node::kNowhere)
        return nullptr;
    const auto known = segments_.find(&path);
    return known != segments_.end() ? &known->second : &segments_.try_emplace(&path, path.path()).first->second;
}

void SpatialIndex::reindex() {
    std::vector<Entry>& dirty = entries_->dirty;
    Rtree& tree = entries_->tree;
    if (dirty.size() > kFewDirty && dirty.size() * kInsertionCost > tree.size()) return rebuild();
    for (const Entry& before : dirty) {
        const bool wasInTree = before.second->indexed_ == Node::Indexed::InTreeBefore;
        const Entry now = Entries::settled(*before.second);
        const bool isInTree = before.second->indexed_ == Node::Indexed::InTree;
        if (wasInTree && isInTree && same(now.first, before.first)) continue;
        if (wasInTree) tree.remove(before);
        if (isInTree) tree.insert(now);
    }
    dirty.clear();
    if (dirty.capacity() > 2 * kFewDirty) dirty.shrink_to_fit();
}

/// The list of the dirty becomes that of all, for it may be the largest thing in memory while a drawing is read.
void SpatialIndex::rebuild() {
    std::vector<Entry> all = std::exchange(entries_->dirty, {});
    const auto dirtyCount = static_cast<std::ptrdiff_t>(all.size());
    for (const Entry& entry : entries_->tree)
        if (entry.second->indexed_ == Node::Indexed::InTree) all.push_back(entry);
    entries_->tree.clear();
    std::for_each(all.begin(), all.begin() + dirtyCount, [](Entry& entry) { entry = Entries::settled(*entry.second); });
    std::erase_if(all, [](const Entry& entry) { return entry.second->indexed_ == Node::Indexed::No; });
    entries_->tree = Rtree(all);
}

void SpatialIndex::forget(Node& path) {
    if (path.indexed_ == Node::Indexed::No && path.dirtyPlace_ == Node::kNowhere) return;
    markDirty(path);
    std::vector<Entry>& dirty = entries_->dirty;
    const std::uint32_t place = path.dirtyPlace_;
    if (path.indexed_ == Node::Indexed::InTreeBefore) entries_->tree.remove(dirty[place]);
    if (place + 1 != dirty.size()) {
        dirty[place] = dirty.back();
        dirty[place].second->dirtyPlace_ = place;
    }
    dirty.pop_back();
    path.indexed_ = Node::Indexed::No;
    path.dirtyPlace_ = Node::kNowhere;
}

} // namespace easel::model
