// The tree: children, names and values, and the ends of nodes without recursion.
#include "json/Node.h"

#include "json/Children.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kzo::json {

namespace {

double cleaned(double value) {
    constexpr double kLargest = std::numeric_limits<double>::max();
    return std::isnan(value) ? 0 : std::clamp(value, -kLargest, kLargest);
}

long long rounded(double value) {
    constexpr double kTooLarge = 9223372036854775808.0; // 2^63
    const double whole = value >= 0 ? std::floor(value + 0.5) : std::ceil(value - 0.5);
    if (whole >= kTooLarge) return std::numeric_limits<long long>::max();
    if (whole < -kTooLarge) return std::numeric_limits<long long>::min();
    return static_cast<long long>(whole);
}

} // namespace

// Making

Node* Node::create(Type type, std::string name) {
    switch (type) {
    case Type::Null: return new Node(std::move(name), std::monostate{});
    case Type::Bool: return new Node(std::move(name), false);
    case Type::Number: return new Node(std::move(name), 0LL);
    case Type::String: return new Node(std::move(name), std::string());
    case Type::Array: return new Node(std::move(name), Elements());
    case Type::Object: return new Node(std::move(name), Members());
    }
    return nullptr;
}

Node* Node::createBool(std::string name, bool value) { return new Node(std::move(name), value); }
Node* Node::createInt(std::string name, long long value) { return new Node(std::move(name), value); }
Node* Node::createFloat(std::string name, double value) { return new Node(std::move(name), cleaned(value)); }
Node* Node::createStr(std::string name, std::string value) { return new Node(std::move(name), std::move(value)); }

// References

Node* Node::acquire(Node* node) noexcept {
    if (node) node->acquire();
    return node;
}

void Node::release() noexcept {
    if (--references_ > 0) return;
    // A list threaded through the nodes themselves: a tree of any depth goes without recursion and without memory.
    Node* doomed = this;
    parent_ = nullptr;
    while (doomed) {
        Node* const node = doomed;
        doomed = node->parent_;
        for (Node* orphan = node->orphans(); orphan;) {
            Node* const next = orphan->parent_;
            orphan->parent_ = doomed;
            doomed = orphan;
            orphan = next;
        }
        delete node;
    }
}

/// Lets go of all children, and returns those that nobody else holds, as a list linked by `parent_`.
Node* Node::orphans() noexcept {
    Node* list = nullptr;
    Children children(*this);
    while (Node* const child = children.next()) {
        child->parent_ = nullptr;
        if (--child->references_ > 0) continue;
        child->parent_ = list;
        list = child;
    }
    return list;
}

Node::~Node() = default;

// What it is

bool Node::setName(std::string name) {
    auto* const siblings = parent_ ? std::get_if<Members>(&parent_->value_) : nullptr;
    if (!siblings || name == name_) {
        name_ = std::move(name);
        return true;
    }
    if (siblings->contains(name)) return false;
    auto entry = siblings->extract(name_);
    name_ = std::move(name);
    entry.key() = name_;
    siblings->insert(std::move(entry));
    return true;
}

Node::Type Node::nodeType() const {
    constexpr Type kTypes[] = {Type::Null,   Type::Bool,  Type::Number, Type::Number,
                               Type::String, Type::Array, Type::Object};
    return kTypes[value_.index()];
}

// Plain values

bool Node::boolValue() const {
    const bool* const value = std::get_if<bool>(&value_);
    return value && *value;
}

bool Node::setBoolValue(bool value) {
    if (nodeType() != Type::Bool) return false;
    value_ = value;
    return true;
}

long long Node::intValue() const {
    if (const auto* const whole = std::get_if<long long>(&value_)) return *whole;
    if (const auto* const fraction = std::get_if<double>(&value_)) return rounded(*fraction);
    return boolValue() ? 1 : 0;
}

bool Node::setIntValue(long long value) {
    if (nodeType() != Type::Number) return false;
    value_ = value;
    return true;
}

double Node::doubleValue() const {
    if (const auto* const whole = std::get_if<long long>(&value_)) return static_cast<double>(*whole);
    if (const auto* const fraction = std::get_if<double>(&value_)) return *fraction;
    return boolValue() ? 1 : 0;
}

bool Node::setDoubleValue(double value) {
    if (nodeType() != Type::Number) return false;
    value_ = cleaned(value);
    return true;
}

const std::string& Node::stringValue() const {
    static const std::string kNone;
    const auto* const value = std::get_if<std::string>(&value_);
    return value ? *value : kNone;
}

bool Node::setStringValue(std::string value) {
    if (nodeType() != Type::String) return false;
    value_ = std::move(value);
    return true;
}

// Containers

/// Whether the child may come in here. A child without children cannot be around this node, so building a tree from the
/// outside in costs no walk.
bool Node::mayHold(const Node* child) const {
    if (!child || child == this || child->parent_) return false;
    if (!Children(*child).next()) return true;
    const Node* ancestor = parent_;
    while (ancestor && ancestor != child) ancestor = ancestor->parent_;
    return !ancestor;
}

void Node::adopt(Node* child) noexcept {
    child->acquire();
    child->parent_ = this;
}

std::size_t Node::elementsCount() const { return elements() ? elements()->size() : 0; }

Node* Node::element(std::size_t index) const {
    return index < elementsCount() ? acquire((*elements())[index]) : nullptr;
}

bool Node::addElement(Node* child) {
    auto* const list = std::get_if<Elements>(&value_);
    if (!list || !mayHold(child)) return false;
    list->push_back(child);
    adopt(child);
    return true;
}

bool Node::removeElement(std::size_t index) {
    if (index >= elementsCount()) return false;
    auto& list = std::get<Elements>(value_);
    Node* const child = list[index];
    list.erase(list.begin() + static_cast<std::ptrdiff_t>(index));
    child->parent_ = nullptr;
    child->release();
    return true;
}

std::size_t Node::membersCount() const { return members() ? members()->size() : 0; }

Node* Node::member(std::string_view name) const {
    if (!members()) return nullptr;
    const auto found = members()->find(name);
    return found == members()->end() ? nullptr : acquire(found->second);
}

bool Node::addMember(Node* child) {
    auto* const map = std::get_if<Members>(&value_);
    if (!map || !mayHold(child)) return false;
    // Most come in order.
    const std::size_t before = map->size();
    map->emplace_hint(map->end(), child->name_, child);
    if (map->size() == before) return false;
    adopt(child);
    return true;
}

bool Node::removeMember(Node* child) {
    auto* const map = std::get_if<Members>(&value_);
    if (!map || !child || child->parent_ != this) return false;
    map->erase(child->name_);
    child->parent_ = nullptr;
    child->release();
    return true;
}

// Searching

Node* Node::find(std::string_view name) {
    if (name_ == name) return acquire(this);
    std::vector<Children> open{Children(*this)};
    while (!open.empty()) {
        Node* const node = open.back().next();
        if (!node) {
            open.pop_back();
            continue;
        }
        if (node->name_ == name) return acquire(node);
        open.emplace_back(*node);
    }
    return nullptr;
}

} // namespace kzo::json
