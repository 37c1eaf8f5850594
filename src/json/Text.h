// JSON as text, in a dialect of its own: the only escape is a backslash before a double quote, numbers have no
// exponent, and true, false and null are read in any case. What the writer wrote, the reader reads back.
#pragma once

#include "json/Node.h"

#include <cstddef>
#include <limits>
#include <string>
#include <string_view>

namespace kzo::json {

/// The array or object that the text holds, with a reference of the caller's; null when a character does not fit or
/// more than `deepest` containers are nested. A text that ends too early gives what was complete by then; of two
/// members of one name the first stays.
[[nodiscard]] Node* parse(std::string_view text, std::size_t deepest = std::numeric_limits<std::size_t>::max());

/// With `pretty`, every value has a line of its own, indented by tabs, one more than `depth` in the outermost
/// container. Numbers have at most 15 decimals, and whole ones beyond 53 bits are rounded.
[[nodiscard]] std::string serialize(const Node* node, bool pretty, unsigned depth);

} // namespace kzo::json
