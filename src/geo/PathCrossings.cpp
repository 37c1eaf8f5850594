// Meetings of paths: a sweep along the longer side of their bounds finds the pairs of segments that may meet.
#include <algorithm>
#include <cmath>
#include <utility>

#include "geo/Crossings.h"

namespace kzo::geo {

namespace {

constexpr double kSame = 1e-6;
constexpr std::size_t kMostCrossings = 400'000; // an anchor that meets an anchor is found four times
constexpr int kPatience = 2'000'000;            // steps, about a second

struct Item {
    Box box; // of the control points; x is the direction of the sweep
    std::size_t seg;
    bool second; // of the second path
};

Box hull(const Bezier& b) {
    const auto [left, right] = std::minmax({b.p0.x, b.p1.x, b.p2.x, b.p3.x});
    const auto [top, bottom] = std::minmax({b.p0.y, b.p1.y, b.p2.y, b.p3.y});
    return {{left, top}, {right, bottom}};
}

void addItems(const Path& path, bool second, std::vector<Item>& items) {
    for (std::size_t i = 0; i < path.segCount(); ++i) items.push_back({hull(path.seg(i)), i, second});
}

/// Calls `visit` for pairs of items whose boxes overlap, until it returns false.
template <class Visit> void sweep(std::vector<Item>& items, const Visit& visit) {
    if (items.empty()) return;
    Box bounds = items.front().box;
    for (const Item& item : items) bounds = bounds.unionWith(item.box);
    if (bounds.height() > bounds.width()) {
        for (Item& item : items) {
            std::swap(item.box.min.x, item.box.min.y);
            std::swap(item.box.max.x, item.box.max.y);
        }
    }
    std::sort(items.begin(), items.end(), [](const Item& a, const Item& b) { return a.box.min.x < b.box.min.x; });
    std::vector<const Item*> open;
    for (const Item& item : items) {
        std::size_t kept = 0;
        for (const Item* other : open) {
            if (other->box.max.x < item.box.min.x) continue;
            open[kept++] = other;
            const bool meets = other->box.min.y <= item.box.max.y && item.box.min.y <= other->box.max.y;
            if (meets && !visit(*other, item)) return;
        }
        open.resize(kept);
        open.push_back(&item);
    }
}

/// An anchor is a place of its own, whichever of its segments was met; the end of a closed path is its start.
Place placeOf(const Path& path, std::size_t seg, double t) {
    Place place = static_cast<double>(seg) + t;
    if (std::abs(place - std::round(place)) <= kSame * 1e-3) place = std::round(place);
    return path.closed && place == static_cast<double>(path.segCount()) ? 0.0 : place;
}

/// Sorted, and each place once: a meeting at an anchor was found on both its segments.
std::vector<Crossing> distinct(std::vector<Crossing> found) {
    std::sort(found.begin(), found.end(), [](const Crossing& a, const Crossing& b) {
        return std::pair(a.first, a.second) < std::pair(b.first, b.second);
    });
    std::vector<Crossing> kept;
    for (const Crossing& c : found) {
        bool known = false;
        for (auto it = kept.rbegin(); it != kept.rend() && c.first - it->first <= kSame && !known; ++it)
            known = std::abs(c.second - it->second) <= kSame;
        if (!known) kept.push_back(c);
    }
    return kept;
}

} // namespace

std::vector<Crossing> crossings(const Path& a, const Path& b) {
    std::vector<Item> items;
    addItems(a, false, items);
    addItems(b, true, items);
    std::vector<Crossing> found;
    int patience = kPatience;
    sweep(items, [&](const Item& x, const Item& y) {
        if (x.second == y.second) return true;
        const std::size_t first = x.second ? y.seg : x.seg;
        const std::size_t second = x.second ? x.seg : y.seg;
        for (const Crossing& c : crossings(a.seg(first), b.seg(second), patience))
            found.push_back({placeOf(a, first, c.first), placeOf(b, second, c.second)});
        return found.size() < kMostCrossings;
    });
    return distinct(std::move(found));
}

std::vector<Crossing> selfCrossings(const Path& path) {
    std::vector<Item> items;
    addItems(path, false, items);
    std::vector<Crossing> found;
    int patience = kPatience;
    const auto add = [&](Place first, Place second) {
        if (std::abs(first - second) > kSame) found.push_back({std::min(first, second), std::max(first, second)});
    };
    for (const Item& item : items) {
        if (const auto loop = selfCrossing(path.seg(item.seg)))
            add(placeOf(path, item.seg, loop->first), placeOf(path, item.seg, loop->second));
    }
    sweep(items, [&](const Item& x, const Item& y) {
        for (const Crossing& c : crossings(path.seg(x.seg), path.seg(y.seg), patience))
            add(placeOf(path, x.seg, c.first), placeOf(path, y.seg, c.second));
        return found.size() < kMostCrossings;
    });
    return distinct(std::move(found));
}

} // namespace kzo::geo
