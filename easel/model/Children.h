// The ordered children of a container. Private to this folder.
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

} // namespace easel::model
