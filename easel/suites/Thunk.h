// The entry point of a plug-in's calls into the host. One template makes the C function of every table entry: it
// resolves handles to objects, runs a plain C++ function on them, and turns whatever is thrown into an error code.
#pragma once

#include <exception>
#include <new>
#include <optional>
#include <string>
#include <string_view>

#include "model/Document.h"
#include "session/base/Handles.h"
#include "session/base/HostError.h"
#include "suites/Host.h"

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

/// How an argument of the C function becomes the parameter of the C++ function.
template <class Parameter> struct Argument {
    static Parameter from(Parameter argument) { return argument; }
};
template <class T> struct Argument<T&> {
    static T& from(T* argument) { return required(argument); }
};
template <> struct Argument<std::string_view> {
    static std::string_view from(const char* argument) { return &required(argument); }
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

/// "AIArtSuite::GetArtType" for &AIArtSuite::GetArtType.
template <auto Entry> [[nodiscard]] constexpr std::string_view entryName() {
    constexpr std::string_view kText = __PRETTY_FUNCTION__;
    constexpr std::size_t kStart = kText.find('&', kText.find("Entry")) + 1;
    return kText.substr(kStart, kText.find_first_of(";]", kStart) - kStart);
}

// Tracing: how arguments look on paper
[[nodiscard]] std::string traced(const char* text);
[[nodiscard]] std::string traced(const AIRealPoint* point);
[[nodiscard]] std::string traced(double number);
[[nodiscard]] std::string traced(std::int64_t number);
[[nodiscard]] std::string traced(const void* address);
template <session::Handle H> [[nodiscard]] std::string tracedHandle(H handle) {
    if (!handle) return "null";
    const session::HandleParts parts = session::partsOf(handle);
    return "#" + std::to_string(parts.kind) + ":" + std::to_string(parts.slot) + "." + std::to_string(parts.generation);
}
template <class T> [[nodiscard]] std::string tracedArgument(const T& argument) {
    if constexpr (session::Handle<T>)
        return tracedHandle(argument);
    else if constexpr (std::is_integral_v<T>)
        return traced(static_cast<std::int64_t>(argument));
    else
        return traced(argument);
}
void traceCall(std::string_view entry, const std::string& arguments, AIErr result);

/// Whether calls are traced.
[[nodiscard]] bool tracing();
void requireMessage(); ///< throws unless a message is being handled
/// For a catch block: the code of what was thrown, reported where it shows a fault of the plug-in or of the host.
[[nodiscard]] AIErr refusal(std::string_view entry);

/// Runs a body with nothing thrown past it.
template <class Body> AIErr guarded(std::string_view entry, Body body) {
    try {
        requireMessage();
        body();
        return kNoErr;
    } catch (...) {
        return refusal(entry);
    }
}

template <auto Entry, auto Operation, class EntryType, class OperationType> struct Thunk;

template <auto Entry, auto Operation, class Suite, class... Arguments, class... Parameters>
struct Thunk<Entry, Operation, AIErr (*Suite::*)(Arguments...), void (*)(Parameters...)> {
    static AIErr call(Arguments... arguments) {
        static constexpr std::string_view kName = entryName<Entry>();
        const AIErr result = guarded(kName, [&] { Operation(Argument<Parameters>::from(arguments)...); });
        if (tracing()) {
            std::string text;
            ((text += (text.empty() ? "" : ", ") + tracedArgument(arguments)), ...);
            traceCall(kName, text, result);
        }
        return result;
    }
};

/// Puts `Operation` into the table as `Entry`.
template <auto Entry, auto Operation, class Suite> void enter(Suite& suite) {
    suite.*Entry = &Thunk<Entry, Operation, decltype(Entry), decltype(Operation)>::call;
}

} // namespace easel::suites
