// What script objects stand for: a document, its view, a layer, a piece of art. An object remembers an identity and no
// address; the same thing is the same object each time.
#pragma once

#include <duktape.h>

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <vector>

#include "model/Document.h"

namespace easel::script {

enum class Kind : std::uint32_t { Document, View, Layer, Art };

/// A document, looked up and open.
struct Document {
    model::Document* open = nullptr;
    model::Document* operator->() const { return open; }
    model::Document& operator*() const { return *open; }
};

struct View {
    model::Document* document = nullptr;
};

/// A layer or a piece of art, looked up and in its document.
struct Object {
    model::Document* document = nullptr;
    model::Node* node = nullptr;
    model::Node* operator->() const { return node; }
};
struct Layer : Object {};
struct Art : Object {};

/// Pops the object and makes it the prototype of all objects of this kind.
void setPrototype(duk_context* engine, Kind kind);

/// Pushes the object that stands for a thing.
void pushDocument(duk_context* engine, model::Document& document, Kind kind = Kind::Document);
void pushNode(duk_context* engine, model::Document& document, const model::Node& node);

/// The objects of a document that `collect` finds, as a list that is made anew only after a node has come, gone or
/// taken another place: a script that asks for it in a loop gets the same one. It is frozen, so that nobody can change
/// it.
struct NodeList {
    model::Document* document = nullptr;
    std::vector<model::Node*> (*collect)(model::Document&) = nullptr;
    const char* name = nullptr; ///< of the list, unlike those of others
};
void pushList(duk_context* engine, const NodeList& list);

/// What the object at `index` stands for. Nothing when it is no object of that kind; throws Stale when what it stood
/// for is gone.
[[nodiscard]] std::optional<Document> findDocument(duk_context* engine, duk_idx_t index, Kind kind);
[[nodiscard]] std::optional<Object> findNode(duk_context* engine, duk_idx_t index, Kind kind);

/// what() names the thing that is gone.
class Stale : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

} // namespace easel::script
