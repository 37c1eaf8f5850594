// How the arguments of a C function become the parameters of a C++ operation, and how what that returns goes back.
#pragma once

#include <optional>
#include <string_view>
#include <type_traits>

#include "model/Document.h"
#include "session/base/Handles.h"
#include "session/base/HostError.h"

namespace easel::session {
struct Plugin;
}

namespace easel::suites {

using session::HostError;
using session::require;

/// Art as an operation gets it: alive, in an open document.
struct Art {
    model::Document& document;
    model::Node& node;
};

/// A layer is the same node as the group of its art; only the handle differs.
struct Layer : Art {};

[[nodiscard]] Art resolveArt(AIArtHandle handle);
[[nodiscard]] Layer resolveLayer(AILayerHandle handle);
[[nodiscard]] model::Document& currentDocument(); ///< throws kNoDocumentErr
/// A document has one view; null means that of the current one.
[[nodiscard]] model::Document& documentOfView(AIDocumentViewHandle view);

/// The handle of a node, null for null.
[[nodiscard]] AIArtHandle artHandle(const model::Document& document, const model::Node* node);
[[nodiscard]] AILayerHandle layerHandle(const model::Document& document, const model::Node* node);

template <class T> [[nodiscard]] T& found(T* object) {
    if (!object) throw HostError{kUnknownHandleErr};
    return *object;
}

template <class T> [[nodiscard]] T& required(T* argument) {
    if (!argument) throw HostError{kBadParameterErr};
    return *argument;
}

template <class Parameter> struct Argument {
    static Parameter from(Parameter argument) { return argument; }
};
template <> struct Argument<bool> {
    static bool from(AIBoolean argument) { return argument != 0; }
};
template <class T> struct Argument<T&> {
    static T& from(T* argument) { return required(argument); }
};
template <class T> struct Argument<const T&> {
    static const T& from(const T* argument) { return required(argument); }
    template <session::Handle H> static const T& from(H handle) { return Argument<T&>::from(handle); }
};
template <> struct Argument<std::string_view> {
    static std::string_view from(const char* argument) { return &required(argument); }
};
template <> struct Argument<model::Document&> {
    static model::Document& from(AIDocumentViewHandle view) { return documentOfView(view); }
};
template <> struct Argument<Art> {
    static Art from(AIArtHandle handle) { return resolveArt(handle); }
};
template <> struct Argument<Layer> {
    static Layer from(AILayerHandle handle) { return resolveLayer(handle); }
};
template <> struct Argument<session::Plugin&> { static session::Plugin& from(SPPluginRef handle); };
/// An optional object: null is allowed, a dead handle is not.
template <class T> struct Argument<std::optional<T>> {
    template <class H> static std::optional<T> from(H handle) {
        return handle ? std::optional<T>(Argument<T>::from(handle)) : std::nullopt;
    }
};

/// Writes a result as the plug-in reads it: a text as its characters, an object as its handle.
template <class Out, class Value> void returnTo(Out& out, Value&& value) {
    using Plain = std::remove_cvref_t<Value>;
    if constexpr (std::is_same_v<Plain, std::string>) {
        static_assert(std::is_lvalue_reference_v<Value>, "the text would be gone before the plug-in reads it");
        out = value.c_str();
    } else if constexpr (session::Handle<Out> && !std::is_same_v<Plain, Out>) {
        if constexpr (std::is_pointer_v<Plain>)
            out = value ? value->handle : nullptr;
        else
            out = value.handle;
    } else {
        out = static_cast<Out>(value);
    }
}

} // namespace easel::suites
