// Compares what nodes were like before they changed with what they are like now.
#include "app/Watch.h"

#include <algorithm>
#include <utility>

namespace easel::app {

using model::Box;
using model::Document;
using model::Node;
using model::NodeType;

namespace {

double reachOf(const Node& node) {
    if (node.type() != NodeType::Path || node.path().points.empty()) return 0;
    return node.hull().left - paintedBox(node.content()).left;
}

} // namespace

Box paintedBox(const model::Content& content) {
    if (content.opaque && !content.path) return content.opaque->hull();
    if (!content.path) return {};
    Box box = content.path->hull();
    if (box.isEmpty() || !content.style || !content.style->stroke) return box;
    const model::Style& style = *content.style;
    const double longest = style.join == model::Join::Miter ? std::max(style.miterLimit, 1.5) : 1.5;
    const double reach = style.strokeWidth / 2 * longest;
    return {box.left - reach, box.top - reach, box.right + reach, box.bottom + reach};
}

double farthestReach(Document& document) {
    double farthest = 0;
    const Node& root = document.root();
    for (const Node* at = &root; at; at = model::nextWithin(root, *at)) farthest = std::max(farthest, reachOf(*at));
    return farthest;
}

void Watch::follow(Document* document, double reach) {
    if (document_) document_->journal().beforeChange = {};
    forget();
    document_ = document;
    farthestReach_ = reach;
    if (document_) document_->journal().beforeChange = [this](const Node& node) { note(node); };
}

void Watch::forget() {
    document_ = nullptr;
    touched_.clear();
    lifted_.clear();
    live_.clear();
}

void Watch::note(const Node& node) {
    const auto [at, isNew] = touched_.try_emplace(node.id().slot);
    // The slot of a node that is gone may be another's by now.
    if (isNew || at->second.id != node.id())
        at->second = {node.id(), node.type(), node.alive(), node.parent(), node.state().order, node.content()};
}

const Watch::Before* Watch::noteOf(const Node& node) const {
    const auto at = touched_.find(node.id().slot);
    return at == touched_.end() ? nullptr : &at->second;
}

bool Watch::isNew(const Node& node) const {
    const Before* const note = noteOf(node);
    return note && (note->id != node.id() || !note->alive);
}

const model::Content& Watch::before(const Node& node) const {
    const Before* const note = noteOf(node);
    return note && note->id == node.id() ? note->content : node.content();
}

std::optional<model::Point> Watch::movedBy(const Node& art) const {
    model::OutlineList were;
    for (const Node* at = art.type() == NodeType::Compound ? art.lastChild() : &art; at;
         at = at == &art ? nullptr : at->previous()) {
        if (isNew(*at)) return std::nullopt;
        const model::Content& was = before(*at);
        if (was.style != at->content().style || was.extras != at->content().extras) return std::nullopt;
        if (was.path) were.push_back(was.path);
    }
    if (art.type() != NodeType::Opaque) return commonMove(were, art.outlines());
    const model::OpaqueData& was = *before(art).opaque;
    const model::OpaqueData& is = art.opaque();
    if (was.turned != is.turned || was.special != is.special) return std::nullopt;
    return model::Point{is.moved.x - was.moved.x, is.moved.y - was.moved.y};
}

Node* Watch::now(const Before& before) const { return document_->find(before.id); }

bool Watch::isSame(const Before& before, const Node* node) {
    if (!node || !before.alive) return !node && !before.alive;
    return before.parent == node->parent() && before.order == node->state().order && before.content == node->content();
}

Watch::Change Watch::take(bool gesture) {
    Change change;
    live_.clear();
    if (!document_) return change;
    const auto wereLifted = std::exchange(lifted_, {});
    for (const auto& [slot, before] : touched_) {
        Node* const node = now(before);
        const bool same = isSame(before, node);
        change.real |= !same;
        if (before.type != NodeType::Path && before.type != NodeType::Opaque) {
            change.everything |= !same && showsAsAWhole(before, node);
        } else if (gesture) {
            if (!same) lift(slot, before.id, node);
            if (before.alive && wereLifted.contains(slot) == same) addBoxes(before, node, change);
        } else if (!same || wereLifted.contains(slot)) {
            if (before.alive) change.boxes.push_back(paintedBox(before.content));
            if (node) change.boxes.push_back(paintedBox(node->content()));
            if (node) farthestReach_ = std::max(farthestReach_, reachOf(*node));
        }
    }
    // A compound path that is laid back is painted whole.
    for (const auto& [slot, id] : wereLifted) {
        const Node* const top = lifted_.contains(slot) ? nullptr : document_->find(id);
        for (const Node* at = top; at; at = model::nextWithin(*top, *at))
            change.boxes.push_back(paintedBox(at->content()));
    }
    if (!gesture) touched_.clear();
    std::sort(live_.begin(), live_.end());
    live_.erase(std::unique(live_.begin(), live_.end()), live_.end());
    std::sort(live_.begin(), live_.end(),
              [](const Node* a, const Node* b) { return Document::comparePaintOrder(*a, *b) > 0; });
    return change;
}

/// How far a container was moved, or what it is called, shows in nothing but what it holds; one that is new and empty
/// shows nowhere.
bool Watch::showsAsAWhole(const Before& before, const Node* node) {
    const bool stays = node && before.alive && before.parent == node->parent() && before.order == node->state().order &&
                       before.content.hidden == node->hidden();
    const bool isEmpty = !node || !node->firstChild();
    return !stays && (!isEmpty || before.alive);
}

/// Art that a gesture changes is no part of the picture. A compound path is drawn as one, whatever of it changes.
void Watch::lift(std::uint32_t slot, model::NodeId id, Node* node) {
    Node* const drawn = node && node->isSubpath() ? node->parent() : node;
    lifted_.emplace(slot, id);
    if (drawn && drawn != node) lifted_.emplace(drawn->id().slot, drawn->id());
    if (drawn && !drawn->effectivelyHidden()) live_.push_back(drawn);
}

/// Lifting art out of the picture, or laying it back, paints its old place anew.
void Watch::addBoxes(const Before& before, const Node* node, Change& change) {
    change.boxes.push_back(paintedBox(before.content));
    if (!node || !node->isSubpath()) return;
    for (const Node* each = node->parent()->firstChild(); each; each = each->next())
        change.boxes.push_back(paintedBox(each->content()));
}

} // namespace easel::app
