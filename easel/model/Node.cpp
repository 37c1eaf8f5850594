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

const Extras& Node::extras() const {
    static const Extras ordinary;
    return state_.content.extras ? *state_.content.extras : ordinary;
}

Box Node::hull() const {
    if (type_ == NodeType::Path) return path().hull();
    if (type_ == NodeType::Opaque) return opaque().hull();
    Box hull;
    for (const Shared<PathData>& outline : outlines()) hull.include(outline->hull());
    return hull;
}

bool Node::isOutlined() const { return (type_ == NodeType::Path && !isSubpath()) || type_ == NodeType::Compound; }

bool Node::keepsPlace() const {
    return type_ == NodeType::Opaque || type_ == NodeType::Group || type_ == NodeType::Layer ||
           (hasOwnUnits_ && isOutlined());
}

bool Node::isSubpath() const { return state_.parent && state_.parent->type_ == NodeType::Compound; }

bool Node::mayHold(NodeType type) const {
    switch (type_) {
    case NodeType::Root: return type == NodeType::Layer;
    case NodeType::Layer:
    case NodeType::Group: return type != NodeType::Root && type != NodeType::Layer;
    case NodeType::Compound: return type == NodeType::Path;
    case NodeType::Path:
    case NodeType::Opaque: break;
    }
    return false;
}

OutlineList Node::outlines() const {
    OutlineList outlines;
    if (type_ == NodeType::Path) outlines.push_back(state_.content.path);
    if (type_ == NodeType::Compound)
        for (const Node* subpath = lastChild(); subpath; subpath = subpath->previous())
            outlines.push_back(subpath->state_.content.path);
    return outlines;
}

const Clip* Node::clip() const {
    const Extras& own = extras();
    if (own.hasOtherClip) return own.clip ? &*own.clip : nullptr;
    return kept_ && kept_->clip ? &*kept_->clip : nullptr;
}

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
