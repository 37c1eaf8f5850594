// Script objects and their hidden identities. Nothing here runs code of the script.
#include "script/Objects.h"

#include <array>
#include <bit>
#include <cstring>
#include <string>

#include "script/Calls.h"

namespace easel::script {

namespace {

constexpr const char* kIdentityKey = DUK_HIDDEN_SYMBOL("identity");

struct Identity {
    Kind kind;
    std::uint32_t document = 0;
    model::NodeId node = {};
};
using Key = std::array<char, sizeof(Identity)>;

/// Pushes the object of this identity, made at its first use and kept in the engine's stash.
void pushObject(duk_context* engine, const Identity& identity) {
    const auto key = std::bit_cast<Key>(identity);
    duk_push_heap_stash(engine);
    if (!duk_get_prop_lstring(engine, -1, key.data(), key.size())) {
        duk_pop(engine);
        duk_push_bare_object(engine);
        duk_push_lstring(engine, key.data(), key.size());
        duk_put_prop_string(engine, -2, kIdentityKey);
        duk_get_prop_index(engine, -2, static_cast<duk_uarridx_t>(identity.kind));
        duk_set_prototype(engine, -2);
        duk_freeze(engine, -1);
        duk_dup(engine, -1);
        duk_put_prop_lstring(engine, -3, key.data(), key.size());
    }
    duk_remove(engine, -2);
}

duk_ret_t getHidden(duk_context* engine, void* /*unused*/) {
    duk_get_prop_string(engine, -1, kIdentityKey);
    return 1;
}

/// The identity of the value at `index`, if it is an object of this kind.
std::optional<Identity> identityOf(duk_context* engine, duk_idx_t index, Kind kind) {
    if (!duk_is_object(engine, index)) return std::nullopt;
    duk_dup(engine, index);
    // A stranger's prototype chain may hold a proxy, which runs the script when asked.
    duk_safe_call(engine, getHidden, nullptr, 1, 1);
    std::optional<Identity> found;
    duk_size_t size = 0;
    const char* bytes = duk_get_lstring(engine, -1, &size);
    if (size == sizeof(Identity)) {
        Key key{};
        std::memcpy(key.data(), bytes, size);
        const auto identity = std::bit_cast<Identity>(key);
        if (identity.kind == kind) found = identity;
    }
    duk_pop(engine);
    return found;
}

session::Documents& documents(duk_context* engine) { return hostOf(engine).session.documents; }

model::Document& openDocument(duk_context* engine, const Identity& identity) {
    auto* const document = documents(engine).byNumber(identity.document);
    if (!document) throw Stale("this document is closed");
    return *document;
}

} // namespace

void setPrototype(duk_context* engine, Kind kind) {
    duk_push_heap_stash(engine);
    duk_insert(engine, -2);
    duk_put_prop_index(engine, -2, static_cast<duk_uarridx_t>(kind));
    duk_pop(engine);
}

void pushDocument(duk_context* engine, model::Document& document, Kind kind) {
    pushObject(engine, {.kind = kind, .document = documents(engine).numberOf(document)});
}

void pushNode(duk_context* engine, model::Document& document, const model::Node& node) {
    pushObject(engine, {.kind = node.type() == model::NodeType::Layer ? Kind::Layer : Kind::Art,
                        .document = documents(engine).numberOf(document),
                        .node = node.id()});
}

void pushList(duk_context* engine, const NodeList& list) {
    const std::string stateKey = std::string(list.name) + " of";
    const std::string state = std::to_string(documents(engine).numberOf(*list.document)) + " in " +
                              std::to_string(list.document->arrangement());
    duk_push_heap_stash(engine);
    duk_get_prop_string(engine, -1, stateKey.c_str());
    const char* const known = duk_get_string(engine, -1);
    const bool upToDate = known && state == known;
    duk_pop(engine);
    if (!upToDate) {
        std::vector<Object> objects;
        for (model::Node* node : list.collect(*list.document)) objects.push_back({list.document, node});
        push(engine, objects);
        duk_freeze(engine, -1);
        duk_put_prop_string(engine, -2, list.name);
        duk_push_string(engine, state.c_str());
        duk_put_prop_string(engine, -2, stateKey.c_str());
    }
    duk_get_prop_string(engine, -1, list.name);
    duk_remove(engine, -2);
}

std::optional<Document> findDocument(duk_context* engine, duk_idx_t index, Kind kind) {
    const auto identity = identityOf(engine, index, kind);
    return identity ? std::optional(Document{&openDocument(engine, *identity)}) : std::nullopt;
}

std::optional<Object> findNode(duk_context* engine, duk_idx_t index, Kind kind) {
    const auto identity = identityOf(engine, index, kind);
    if (!identity) return std::nullopt;
    auto& document = openDocument(engine, *identity);
    auto* const node = document.find(identity->node);
    if (!node)
        throw Stale(kind == Kind::Layer ? "this layer is no longer in the document"
                                        : "this path is no longer in the document");
    return Object{&document, node};
}

} // namespace easel::script
