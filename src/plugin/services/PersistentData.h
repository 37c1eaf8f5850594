// One value of a preference store: the node that a handle stands for, found again after the store was read anew.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/values/PrefValues.h"
#include "plugin/services/PrefCodecs.h"
#include "json/Node.h"

namespace kzo::plugin {

/// Shared by the handles that are copies of each other. Bound to a place (a key or an index of a container), it follows
/// that place when the container's tree is replaced, and is empty for as long as the place has no value of its kind.
/// Without a place it keeps a node of its own. Everything returns false, 0, an empty text or null when it is empty.
class PersistentData {
  public:
    using Shared = std::shared_ptr<PersistentData>;

    /// The store's nesting, from the outermost object to what a reader may still meet.
    static constexpr std::size_t kDeepest = 64;

    PersistentData(json::Owned node, core::PrefType type) : type_(type), node_(std::move(node)) {}

    // What it is
    [[nodiscard]] json::Node* node() const; ///< null when empty
    [[nodiscard]] json::Node* handle() const { return node(); }
    [[nodiscard]] core::PrefType type() const { return type_; }
    [[nodiscard]] std::string key() const;
    /// Takes a node of the same kind in place of the present one.
    void replace(json::Owned node) { node_ = std::move(node); }

    // Its value
    template <class Kind> [[nodiscard]] Kind value() const {
        Kind value{};
        const json::Node* const here = node();
        return here && Codec<Kind>::decode(*here, value) ? value : Kind{};
    }
    template <class Kind> bool setValue(const Kind& value) {
        json::Node* const here = node();
        if (here) Codec<Kind>::store(*here, value);
        return here != nullptr;
    }

    // What a dictionary or an array holds. Null where there is no value of that type; None takes any.
    [[nodiscard]] static Shared member(const Shared& dictionary, const std::string& key, core::PrefType type);
    [[nodiscard]] static Shared element(const Shared& array, std::size_t index, core::PrefType type);
    /// Moves the value, which is in no container, into this one. Refuses what could not be read back.
    static bool add(const Shared& container, const Shared& value);
    static bool remove(const Shared& container, const Shared& value);
    /// A copy of the value, with another key and no place; null of none.
    [[nodiscard]] static Shared copied(const Shared& value, const std::string& key);

  private:
    static Shared bound(const Shared& container, json::Owned node, core::PrefType type);
    void bindTo(const Shared& container);
    [[nodiscard]] json::Owned found(const json::Node& place) const;
    [[nodiscard]] std::size_t depth() const;

    core::PrefType type_;
    Shared container_;
    mutable json::Owned node_;
    mutable json::Owned place_;     ///< the container's node when `node_` was looked up
    mutable std::string key_;       ///< in a dictionary, when it was last there
    mutable std::size_t index_ = 0; ///< in an array
};

} // namespace kzo::plugin
