// Slots, links and the facts derived from them. Nothing here recurses: art may nest deeply.
#include "model/Tree.h"

#include <cassert>
#include <stdexcept>

#include "model/Children.h"
#include "model/Clip.h"

namespace easel::model {

namespace {

// Both fit into one 64-bit handle together with the kind and the document.
constexpr std::uint32_t kMostSlots = 1U << 28;
constexpr std::uint32_t kLastGeneration = (1U << 20) - 1;

} // namespace

Tree::Tree() {
    Node& top = make(NodeType::Root);
    top.alive_ = true;
}

Tree::~Tree() {
    // Unlinked first: a child may be stored before its parent.
    for (Node& node : nodes_)
        if (node.children_) node.children_->set.clear();
}

Node* Tree::find(NodeId id) {
    if (id.slot >= nodes_.size()) return nullptr;
    Node& node = nodes_[id.slot];
    return node.alive_ && node.id_ == id ? &node : nullptr;
}

Node& Tree::make(NodeType type) {
    Node* node = nullptr;
    if (!freeSlots_.empty()) {
        node = &nodes_[freeSlots_.back()];
        freeSlots_.pop_back();
        node->type_ = type;
    } else if (nodes_.size() < kMostSlots) {
        node = &nodes_.emplace_back(NodeId{static_cast<std::uint32_t>(nodes_.size()), 1}, type);
    } else {
        throw std::length_error("too many objects in one document");
    }
    if (node->isContainer()) node->children_ = std::make_unique<Children>();
    return *node;
}

void Tree::destroy(Node& node) {
    assert(!node.alive_ && "only a removed node can be destroyed");
    Node* at = &node;
    while (at) {
        if (Node* const child = at->firstChild()) {
            if (child->noteCount_ == 0) {
                at = child;
            } else {
                detach(*child);
                child->state_.parent = nullptr;
            }
            continue;
        }
        Node* const parent = at == &node ? nullptr : at->state_.parent;
        giveBack(*at);
        at = parent;
    }
}

void Tree::giveBack(Node& node) {
    detach(node);
    if (!node.isContainer()) index.forget(node);
    node.children_.reset();
    node.state_ = {};
    node.record_ = 0;
    node.origin_ = 0;
    node.kept_ = {};
    node.hasOwnUnits_ = false;
    node.rolledBackBy_ = 0;
    // A slot whose generations are used up stays empty for ever, so that no identity comes twice.
    if (node.id_.generation == kLastGeneration) return;
    freeSlots_.push_back(node.id_.slot);
    ++node.id_.generation;
}

void Tree::attach(Node& node) {
    ++linkCount_;
    if (node.state_.parent) node.state_.parent->children_->set.insert(node);
}

void Tree::detach(Node& node) {
    if (!node.state_.parent) return;
    ++linkCount_;
    Children::Set& siblings = node.state_.parent->children_->set;
    siblings.erase(siblings.iterator_to(node));
}

void Tree::attachNew(Node& node, Node* below) {
    ++linkCount_;
    Children::Set& siblings = node.state_.parent->children_->set;
    siblings.insert_before(below ? siblings.iterator_to(*below) : siblings.end(), node);
    setAlive(node, true);
}

void Tree::updateAlive(Node& node) {
    const bool alive = node.isWithin(root());
    if (alive == node.alive_) return;
    for (Node* at = &node; at; at = nextWithin(node, *at)) setAlive(*at, alive);
}

void Tree::setAlive(Node& node, bool alive) {
    node.alive_ = alive;
    if (!node.isContainer()) index.markDirty(node);
    updateSelected(node);
}

void Tree::updateSelected(Node& node) {
    const bool listed = node.selectedPlace_ != Node::kNowhere;
    if (listed == (node.alive_ && node.state_.selected)) return;
    if (!listed) {
        node.selectedPlace_ = static_cast<std::uint32_t>(selected_.size());
        selected_.push_back(&node);
        return;
    }
    Node* const last = selected_.back();
    selected_[node.selectedPlace_] = last;
    last->selectedPlace_ = node.selectedPlace_;
    selected_.pop_back();
    node.selectedPlace_ = Node::kNowhere;
}

} // namespace easel::model
