// A node's queries, and the walk over its descendants.
#include "model/Node.h"

#include "model/Children.h"
#include "model/Clip.h"

namespace easel::model {

Node::Node(NodeId id, NodeType type) : id_(id), type_(type) {}

Node::~Node() = default;

const std::string& Node::name() const {
    static const std::string none;
    return state_.content.name ? *state_.content.name : none;
}

Box Node::hull() const {
    if (type_ == NodeType::Path) return path().hull();
    return type_ == NodeType::Opaque ? opaque().hull() : Box{};
}

const Clip* Node::clip() const { return clip_ ? &*clip_ : nullptr; }

std::uint8_t Node::selectedParts(std::size_t index) const {
    if (!state_.selected) return 0;
    if (!state_.pointSelection) return kAnchorPart;
    return index < state_.pointSelection->size() ? (*state_.pointSelection)[index] : 0;
}

Node* Node::firstChild() const { return children_ && !children_->set.empty() ? &*children_->set.begin() : nullptr; }

Node* Node::lastChild() const { return children_ && !children_->set.empty() ? &*children_->set.rbegin() : nullptr; }

Node* Node::next() const {
    if (!state_.parent) return nullptr;
    Children::Set& siblings = state_.parent->children_->set;
    const auto after = std::next(siblings.iterator_to(const_cast<Node&>(*this)));
    return after == siblings.end() ? nullptr : &*after;
}

Node* Node::previous() const {
    if (!state_.parent) return nullptr;
    Children::Set& siblings = state_.parent->children_->set;
    const auto at = siblings.iterator_to(const_cast<Node&>(*this));
    return at == siblings.begin() ? nullptr : &*std::prev(at);
}

std::size_t Node::childCount() const { return children_ ? children_->set.size() : 0; }

const Node& Node::layer() const {
    const Node* at = this;
    while (at->type_ != NodeType::Layer && at->state_.parent) at = at->state_.parent;
    return *at;
}

bool Node::isWithin(const Node& ancestor) const {
    const Node* at = this;
    while (at && at != &ancestor) at = at->state_.parent;
    return at != nullptr;
}

bool Node::effectivelyHidden() const {
    const Node* at = this;
    while (at && !at->state_.content.hidden) at = at->state_.parent;
    return at != nullptr;
}

bool Node::effectivelyLocked() const {
    const Node* at = this;
    while (at && !at->state_.content.locked) at = at->state_.parent;
    return at != nullptr;
}

Node* nextWithin(const Node& top, const Node& node) {
    Node* const child = node.firstChild();
    return child ? child : nextAfter(top, node);
}

Node* nextAfter(const Node& top, const Node& node) {
    for (const Node* at = &node; at != &top; at = at->parent())
        if (Node* const sibling = at->next()) return sibling;
    return nullptr;
}

} // namespace easel::model
