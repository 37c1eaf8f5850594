// The entry point of a plug-in's calls into the host. One template makes the C function of every table entry: it
// resolves handles to objects, runs a plain C++ operation on them, and turns whatever is thrown into an error code.
//
// An operation is entered in one line, as a member of an object or of a part of the session, or as a function:
//
//     enter<&AITimerSuite::GetTimerName, &Timer::name>(suite);          // reads a member of the object of the handle
//     enter<&AITimerSuite::SetTimerPeriod, &Timers::setPeriod>(suite);  // calls a part of the session
//     enter<&AIArtSuite::DisposeArt, disposeArt>(suite);                // calls a function
//     enter<&AILayerSuite::GetLayerVisible>(suite, [](Layer layer) { return !layer.node.hidden(); });
//
// What an operation returns goes where the last argument of the C function points.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

#include "suites/Arguments.h"
#include "suites/Host.h"

namespace easel::suites {

/// Puts every operation of a suite into its table. Each is defined beside the suite's operations.
template <class Table> void fill(Table& suite);

/// "AIArtSuite::GetArtType" for &AIArtSuite::GetArtType.
template <auto Entry> [[nodiscard]] constexpr std::string_view entryName() {
    constexpr std::string_view kText = __PRETTY_FUNCTION__;
    constexpr std::size_t kStart = kText.find('&', kText.find("Entry")) + 1;
    return kText.substr(kStart, kText.find_first_of(";]", kStart) - kStart);
}

// Tracing: how arguments look on paper
[[nodiscard]] bool tracing();
[[nodiscard]] std::string traced(const char* text);
[[nodiscard]] std::string traced(const AIRealPoint* point);
[[nodiscard]] std::string traced(double number);
[[nodiscard]] std::string traced(std::int64_t number);
[[nodiscard]] std::string traced(const void* address);
[[nodiscard]] std::string traced(const session::HandleParts& handle);
template <class T> [[nodiscard]] std::string tracedArgument(const T& argument) {
    if constexpr (session::Handle<T>)
        return argument ? traced(session::partsOf(argument)) : "null";
    else if constexpr (std::is_integral_v<T>)
        return traced(static_cast<std::int64_t>(argument));
    else
        return traced(argument);
}
void traceCall(std::string_view entry, const std::string& arguments, AIErr result);

void requireMessage(); ///< throws unless a message is being handled
/// For a catch block: the code of what was thrown, reported where it shows a fault of the plug-in or of the host.
[[nodiscard]] AIErr refusal(std::string_view entry);

/// What is behind a pointer that names an operation, as a function object.
template <auto Pointer, class Type = decltype(Pointer)> struct Operation;
template <auto Pointer, class Result, class... P> struct Operation<Pointer, Result (*)(P...)> {
    Result operator()(P... parameters) const { return Pointer(std::forward<P>(parameters)...); }
};
template <auto Pointer, class Part, class Result, class... P> struct Operation<Pointer, Result (Part::*)(P...)> {
    Result operator()(P... parameters) const { return (host<Part>().*Pointer)(std::forward<P>(parameters)...); }
};
template <auto Pointer, class Part, class Result, class... P> struct Operation<Pointer, Result (Part::*)(P...) const> {
    Result operator()(P... parameters) const { return (host<Part>().*Pointer)(std::forward<P>(parameters)...); }
};
template <auto Pointer, class Object, class Member>
requires std::is_object_v<Member>
struct Operation<Pointer, Member Object::*> {
    const Member& operator()(Object& object) const { return object.*Pointer; }
};

template <auto Entry, class Work, class EntryType = decltype(Entry), class WorkType = decltype(&Work::operator())>
struct Thunk;

template <auto Entry, class Work, class Suite, class... A, class Result, class... P>
struct Thunk<Entry, Work, AIErr (*Suite::*)(A...), Result (Work::*)(P...) const> {
    static constexpr std::string_view kName = entryName<Entry>();
    static constexpr std::size_t kResults = std::is_void_v<Result> ? 0 : 1;
    static_assert(sizeof...(A) == sizeof...(P) + kResults, "the entry has other arguments than the operation");

    static AIErr call(A... arguments) {
        const AIErr result = guarded(std::tuple<A...>(arguments...));
        if (tracing()) {
            std::string text;
            ((text += (text.empty() ? "" : ", ") + tracedArgument(arguments)), ...);
            traceCall(kName, text, result);
        }
        return result;
    }

  private:
    static AIErr guarded(const std::tuple<A...>& arguments) {
        try {
            requireMessage();
            run(arguments, std::index_sequence_for<P...>{});
            return kNoErr;
        } catch (...) {
            return refusal(kName);
        }
    }

    template <std::size_t... I> static void run(const std::tuple<A...>& arguments, std::index_sequence<I...> /*each*/) {
        if constexpr (kResults == 0) {
            Work{}(Argument<P>::from(std::get<I>(arguments))...);
        } else {
            auto& out = required(std::get<sizeof...(P)>(arguments));
            returnTo(out, Work{}(Argument<P>::from(std::get<I>(arguments))...));
        }
    }
};

/// Puts an operation into the table as `Entry`.
template <auto Entry, auto Pointer, class Suite> void enter(Suite& suite) {
    suite.*Entry = &Thunk<Entry, Operation<Pointer>>::call;
}
template <auto Entry, class Suite, class Work> void enter(Suite& suite, Work /*withoutState*/) {
    suite.*Entry = &Thunk<Entry, Work>::call;
}

} // namespace easel::suites
