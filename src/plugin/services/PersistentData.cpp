// Finds, adds and removes the nodes that handles on preferences stand for.
#include "plugin/services/PersistentData.h"

#include <algorithm>
#include <utility>

#include "json/Text.h"

namespace kzo::plugin {

namespace {

using core::PrefType;
using json::Node;
using json::Owned;

std::size_t indexIn(const Node& array, const Node* element) {
    const auto& all = *array.elements();
    return static_cast<std::size_t>(std::find(all.begin(), all.end(), element) - all.begin());
}

} // namespace

Node* PersistentData::node() const {
    // What was taken out of its container keeps its node and its value.
    if (!container_ || (node_ && node_->parent() != place_.get())) return node_.get();
    Node* const place = container_->node();
    if (node_ && place == place_.get()) return node_.get();
    if (node_) key_ = node_->name();
    if (node_ && place_->elements()) index_ = indexIn(*place_, node_.get());
    node_ = place ? found(*place) : nullptr;
    place_.reset(Node::acquire(place));
    return node_.get();
}

/// The value of its kind that stands in its place there; null for none.
Owned PersistentData::found(const Node& place) const {
    Owned node(place.members() ? place.member(key_) : place.element(index_));
    return node && fits(*node, type_) ? std::move(node) : nullptr;
}

std::string PersistentData::key() const {
    const Node* const here = node();
    return here ? here->name() : "";
}

std::size_t PersistentData::depth() const {
    std::size_t count = 0;
    for (const Node* at = node(); at; at = at->parent()) ++count;
    return count;
}

void PersistentData::bindTo(const Shared& container) {
    container_ = container;
    place_.reset(Node::acquire(container->node()));
}

PersistentData::Shared PersistentData::bound(const Shared& container, Owned node, PrefType type) {
    if (!node) return nullptr;
    const PrefType found = type == PrefType::None ? typeOf(*node) : type;
    // None asks for any kind, also for a null, which has no type, so that it can be removed.
    if (type != PrefType::None && !fits(*node, type)) return nullptr;
    auto data = std::make_shared<PersistentData>(std::move(node), found);
    data->bindTo(container);
    return data;
}

PersistentData::Shared PersistentData::member(const Shared& dictionary, const std::string& key, PrefType type) {
    const Node* const object = dictionary ? dictionary->node() : nullptr;
    return object ? bound(dictionary, Owned(object->member(key)), type) : nullptr;
}

PersistentData::Shared PersistentData::element(const Shared& array, std::size_t index, PrefType type) {
    const Node* const list = array ? array->node() : nullptr;
    return list ? bound(array, Owned(list->element(index)), type) : nullptr;
}

bool PersistentData::add(const Shared& container, const Shared& value) {
    Node* const into = container ? container->node() : nullptr;
    Node* const added = value ? value->node() : nullptr;
    if (!into || !added || container->depth() >= kDeepest || !canBeReadBack(*added, kDeepest - container->depth()))
        return false;
    if (into->elements()) {
        if (!into->addElement(added)) return false;
        added->setName("");
    } else if (!into->addMember(added)) {
        return false;
    }
    value->bindTo(container);
    return true;
}

bool PersistentData::remove(const Shared& container, const Shared& value) {
    Node* const from = container ? container->node() : nullptr;
    Node* const removed = value ? value->node() : nullptr;
    if (!from || !removed || removed->parent() != from) return false;
    value->container_.reset();
    return from->elements() ? from->removeElement(indexIn(*from, removed)) : from->removeMember(removed);
}

PersistentData::Shared PersistentData::copied(const Shared& value, const std::string& key) {
    const Node* const node = value ? value->node() : nullptr;
    // Any container can be read back from its text.
    Owned copy(node ? json::parse(json::serialize(node, false, 0)) : nullptr);
    if (!copy) return nullptr;
    copy->setName(key);
    return std::make_shared<PersistentData>(std::move(copy), value->type());
}

} // namespace kzo::plugin
