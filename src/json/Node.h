// One value of a JSON tree, counted by reference. Text goes in and out through Text.h; nothing here recurses by depth.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace kzo::json {

/// A JSON value of a kind that never changes. A container holds one reference on each child, and a node has at most one
/// container. A node that is returned comes with a reference of the caller's, to be released; `parent` alone returns a
/// plain pointer. Misuse (another kind, a bad index, a name that is taken) returns false, null or zero.
class Node {
  public:
    /// Bits, so that several kinds can be asked for at once. Whole numbers and fractions are one kind.
    enum class Type : std::uint8_t { Null = 1, Bool = 2, Number = 4, String = 8, Array = 16, Object = 32 };
    using Elements = std::vector<Node*>;
    /// Ordered by the bytes of the names, which are the members' own.
    using Members = std::map<std::string_view, Node*>;

    // Making, with one reference of the caller's
    static Node* create(Type type, std::string name);
    static Node* createBool(std::string name, bool value);
    static Node* createInt(std::string name, long long value);
    static Node* createFloat(std::string name, double value);
    static Node* createStr(std::string name, std::string value);
    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;

    // References
    void acquire() noexcept { ++references_; }
    static Node* acquire(Node* node) noexcept;
    /// Destroys the node when this was the last reference. Children that others hold stay, without a parent.
    void release() noexcept;

    // What it is
    [[nodiscard]] const std::string& name() const { return name_; }
    /// A member is found under its new name; refused where another member has it.
    bool setName(std::string name);
    [[nodiscard]] Type nodeType() const;
    [[nodiscard]] Node* parent() const { return parent_; }

    // Plain values
    [[nodiscard]] bool boolValue() const;
    bool setBoolValue(bool value);
    /// Whether a number is held as a fraction.
    [[nodiscard]] bool isFloat() const { return std::holds_alternative<double>(value_); }
    /// A fraction is rounded, halves away from zero, and held to what 64 bits can say.
    [[nodiscard]] long long intValue() const;
    bool setIntValue(long long value);
    [[nodiscard]] double doubleValue() const;
    /// What is no number becomes 0, and infinity the largest number there is.
    bool setDoubleValue(double value);
    [[nodiscard]] const std::string& stringValue() const;
    bool setStringValue(std::string value);

    // Arrays
    [[nodiscard]] const Elements* elements() const { return std::get_if<Elements>(&value_); }
    [[nodiscard]] std::size_t elementsCount() const;
    [[nodiscard]] Node* element(std::size_t index) const;
    /// Refuses a node that is in a container, or that this one is part of.
    bool addElement(Node* child);
    bool removeElement(std::size_t index);

    // Objects
    [[nodiscard]] const Members* members() const { return std::get_if<Members>(&value_); }
    [[nodiscard]] std::size_t membersCount() const;
    [[nodiscard]] Node* member(std::string_view name) const;
    /// As `addElement`, and refuses a name that is taken.
    bool addMember(Node* child);
    bool removeMember(Node* child);

    // Searching
    /// The first node of that name: this one, else within each child in turn.
    [[nodiscard]] Node* find(std::string_view name);

  protected:
    virtual ~Node();

  private:
    using Value = std::variant<std::monostate, bool, long long, double, std::string, Elements, Members>;

    Node(std::string name, Value value) : name_(std::move(name)), value_(std::move(value)) {}
    bool mayHold(const Node* child) const;
    void adopt(Node* child) noexcept;
    Node* orphans() noexcept;

    std::string name_;
    Node* parent_ = nullptr; ///< while nodes are destroyed, the next one to be
    std::int32_t references_ = 1;
    Value value_;
};

/// Releases its node.
struct Release {
    void operator()(Node* node) const noexcept { node->release(); }
};
using Owned = std::unique_ptr<Node, Release>;

} // namespace kzo::json
