// The ordered children of a container, and the walk over all that a node holds. Private to this folder.
#pragma once

#include <boost/intrusive/set.hpp>

#include "model/Node.h"

namespace easel::model {

struct Children {
    struct ByOrder {
        bool operator()(const Node& a, const Node& b) const { return a.state_.order < b.state_.order; }
    };
    using Set = boost::intrusive::set<Node, boost::intrusive::member_hook<Node, Node::Hook, &Node::hook_>,
                                      boost::intrusive::compare<ByOrder>>;

    Set set;
};

/// The node after `node` in paint order among what `top` holds: a container comes before its contents. Null at the end.
inline Node* nextWithin(const Node& top, const Node& node) {
    if (Node* const child = node.firstChild()) return child;
    for (const Node* at = &node; at != &top; at = at->parent()) {
        if (Node* const sibling = at->next()) return sibling;
    }
    return nullptr;
}

} // namespace easel::model
