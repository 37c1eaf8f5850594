// How each kind of preference stands in the tree. Compound kinds are objects with exactly the members that
// core/services/Pref.h names, which tell them apart.
#pragma once

#include <string>

#include "core/values/PrefValues.h"
#include "json/Node.h"

namespace kzo::plugin {

/// A kind of value in the tree.
template <class Kind> struct Codec {
    /// A new node of that name.
    [[nodiscard]] static json::Owned encode(const std::string& name, const Kind& value);
    /// False, with `value` in any state, when the node holds another kind.
    static bool decode(const json::Node& node, Kind& value);
    /// Writes the value into a node of its kind, texts without the backslashes at their ends.
    static void store(json::Node& node, const Kind& value);
};

/// The kind that the node's shape shows. None for null.
[[nodiscard]] core::PrefType typeOf(const json::Node& node);

/// Whether the node can be had as that kind. Every object can be had as a dictionary.
[[nodiscard]] bool fits(const json::Node& node, core::PrefType type);

/// Whether all that the node holds can be read back once it is written, and stands no deeper than that many containers.
[[nodiscard]] bool canBeReadBack(const json::Node& node, std::size_t deepest);

/// Keys with quotes, which only a file edited by hand has, could not be read back: all within the container lose them,
/// or their values where another one has the key that is left. Recursive, for trees no deeper than a store.
void makeReadable(json::Node& container);

} // namespace kzo::plugin
