// Walks the children of a container one by one, so that trees are walked with a stack of our own.
#pragma once

#include "json/Node.h"

namespace kzo::json {

class Children {
  public:
    explicit Children(const Node& container) : elements_(container.elements()), members_(container.members()) {
        if (members_) member_ = members_->begin();
    }
    /// The next child; null after the last, and for what is no container.
    Node* next() {
        if (elements_) return index_ < elements_->size() ? (*elements_)[index_++] : nullptr;
        return members_ && member_ != members_->end() ? (member_++)->second : nullptr;
    }

  private:
    const Node::Elements* elements_;
    const Node::Members* members_;
    std::size_t index_ = 0;
    Node::Members::const_iterator member_;
};

} // namespace kzo::json
