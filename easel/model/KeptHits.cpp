// Hits at one place, kept until something is changed that they depend on.
#include "model/KeptHits.h"

#include <tuple>
#include <utility>

#include "model/Document.h"

namespace easel::model {

namespace {

constexpr std::size_t kMostChanged = 4096; // beyond that searching anew is as fast

} // namespace

bool KeptHits::Search::BestFirst::operator()(const Found& a, const Found& b) const {
    if (order == HitOrder::Kind && std::tie(a.hit.kind, a.distance) != std::tie(b.hit.kind, b.distance))
        return std::tie(a.hit.kind, a.distance) < std::tie(b.hit.kind, b.distance);
    return Document::comparePaintOrder(*a.hit.node, *b.hit.node) < 0;
}

void KeptHits::Search::add(const Found& found) { places_[found.hit.node] = found_.insert(found).first; }

std::vector<Node*> KeptHits::Search::takeChanged() {
    for (const Node* const node : changed_) places_.erase(node);
    return std::exchange(changed_, {});
}

bool KeptHits::Search::takeOut(Node& node) {
    const auto [known, isNew] = places_.try_emplace(&node, found_.end());
    if (!isNew && known->second == found_.end()) return true;
    if (!isNew) found_.erase(std::exchange(known->second, found_.end()));
    changed_.push_back(&node);
    return changed_.size() <= kMostChanged;
}

bool KeptHits::isAskedAgain(const Place& place, const Node& within, std::uint64_t geometry) {
    const bool isKnown = first_ && place_ == place && geometry_ == geometry;
    if (isKnown) return !searches_.empty() || first_ == &within;
    forget();
    place_ = place;
    first_ = &within;
    geometry_ = geometry;
    return false;
}

KeptHits::Search* KeptHits::find(const Node& within) {
    const auto found = searches_.find(&within);
    return found == searches_.end() ? nullptr : &found->second;
}

void KeptHits::aboutToChange(Node& node) {
    if (searches_.empty()) return;
    if (node.isContainer()) {
        if (node.firstChild()) forget();
        return;
    }
    bool few = !node.isSubpath(); // which is filled together with its neighbours
    for (auto& [within, search] : searches_) few = few && search.takeOut(node);
    if (!few) forget();
}

void KeptHits::forget() {
    first_ = nullptr;
    searches_.clear();
}

} // namespace easel::model
