// Order labels of siblings: numbers that tell their paint order without counting. Finds the label of a newcomer, and
// makes room where there is none. Links nothing.
#pragma once

#include <cstdint>

namespace easel::model {

class Node;
class Journal;

class OrderLabels {
  public:
    /// The label for a newcomer between two neighbours; either may be null, both are when it is alone.
    [[nodiscard]] static std::uint64_t between(Node* above, Node* below, Journal& journal);

  private:
    static void makeRoom(Node& crowded, Journal& journal);
};

} // namespace easel::model
