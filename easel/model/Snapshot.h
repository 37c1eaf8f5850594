// Art as a value, with all that it holds, without names.
#pragma once

#include <cstddef>
#include <vector>

#include "model/Node.h"

namespace easel::model {

/// Made by Document::snapshotOf; can be made art again in the same document alone, whose origin it may speak of.
class Snapshot {
    friend class Document;

    struct Part {
        NodeType type;
        std::size_t depth; ///< in containers of the snapshot
        Content content;
        Shared<Kept> kept;
        bool hasOwnUnits;
    };
    std::vector<Part> parts_; // each container before what it holds, the topmost first
};

} // namespace easel::model
