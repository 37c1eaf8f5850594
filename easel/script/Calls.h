// How a function of ours becomes a call of the script: a row names it, and one shim reads its typed arguments, runs it
// and pushes its result. The engine leaves a native by a jump that skips destructors, so the shim throws into the
// script only after every C++ object is gone.
#pragma once

#include <ostream>
#include <tuple>
#include <type_traits>

#include "script/Arguments.h"
#include "session/app/Session.h"

namespace easel::script {

struct OpenDialog;

/// What every call works on; the engine carries it.
struct Host {
    session::Session& session;
    std::ostream& out;
    std::vector<OpenDialog*> dialogs{}; ///< that the script's handler has before it, innermost last
    unsigned dialogCount = 0;
    bool handlerThrew = false; ///< and what it threw is still to be thrown on
};
[[nodiscard]] Host& hostOf(duk_context* engine);

/// One call or property of a script object: "mouse.press", "x, y, modifiers".
struct Row {
    const char* name;
    const char* parameters;
    duk_c_function call; ///< null: a property
    duk_c_function get = nullptr;
    duk_c_function set = nullptr;
};

/// Marks the parameter that is the object on which the script made the call.
template <class T> struct This : T {};

/// Takes all remaining arguments.
struct Variadic {
    std::vector<AnyAsText> values;
};

/// The arguments of the running native, handed out from the first to the last.
class Arguments {
  public:
    Arguments(duk_context* engine, std::size_t most);

    template <class T> [[nodiscard]] T take() {
        T slot{};
        next(slot);
        return slot;
    }

  private:
    template <class T> void next(T& slot) { read(argument(false), slot); }
    template <class T> void next(std::optional<T>& slot) { read(argument(true), slot); }
    template <class T> void next(This<T>& slot) {
        duk_push_this(engine_);
        read(Value(engine_, duk_get_top_index(engine_), "the object of the call"), static_cast<T&>(slot));
        duk_pop(engine_);
    }
    void next(Variadic& slot) {
        while (used_ < count_) read(argument(false), slot.values.emplace_back());
    }
    [[nodiscard]] Value argument(bool mayBeMissing);

    duk_context* engine_;
    int count_;
    int used_ = 0;
    std::string role_; ///< of the value handed out last
};

/// What the shim has to throw once it is alone.
enum class Failure : duk_ret_t { Error = -3, TypeError = -2, Thrown = -1 };

/// Pushes what the script's handler of dialogs threw during the call, and takes it for thrown; false when there is
/// nothing.
[[nodiscard]] bool pushThrownInHandler(duk_context* engine) noexcept;
inline void throwFromHandler(duk_context* engine) {
    if (pushThrownInHandler(engine)) throw Thrown();
}

/// For a catch block: pushes what the exception says, "NAME: REASON", and returns how to throw it.
[[nodiscard]] Failure pushFailure(duk_context* engine) noexcept;
/// Throws what is on top of the stack.
duk_ret_t raise(duk_context* engine, Failure failure);
/// Keeps the engine's own error constructors, which a script may replace.
void keepErrorConstructors(duk_context* engine);

template <class T> constexpr std::size_t kMaxArguments = 1;
template <class T> constexpr std::size_t kMaxArguments<This<T>> = 0;
template <> constexpr std::size_t kMaxArguments<Variadic> = 1000;

/// The half of the shim that owns C++ objects.
template <class Answer, class... T> duk_ret_t perform(duk_context* engine, Answer (*function)(Host&, T...)) noexcept {
    try {
        Arguments arguments(engine, (std::size_t{0} + ... + kMaxArguments<std::decay_t<T>>));
        std::tuple<std::decay_t<T>...> values{arguments.take<std::decay_t<T>>()...};
        const auto call = [&](const auto&... each) { return function(hostOf(engine), each...); };
        if constexpr (std::is_void_v<Answer>) {
            std::apply(call, values);
            hostOf(engine).session.messenger.flush();
            throwFromHandler(engine);
            return 0;
        } else {
            push(engine, std::apply(call, values));
            hostOf(engine).session.messenger.flush();
            throwFromHandler(engine);
            return 1;
        }
    } catch (...) {
        return static_cast<duk_ret_t>(pushFailure(engine));
    }
}

template <auto function> duk_ret_t shim(duk_context* engine) {
    const duk_ret_t answer = perform(engine, function);
    return answer < 0 ? raise(engine, Failure{answer}) : answer;
}

template <auto function> constexpr Row method(const char* name, const char* parameters) {
    return {name, parameters, shim<function>};
}
/// What setting a property does that cannot be set; without it the engine's error would name nothing.
[[noreturn]] void refuseChange(Host& host, Truthy value);

template <auto get, auto set = refuseChange> constexpr Row property(const char* name) {
    return {name, "value", nullptr, shim<get>, shim<set>};
}

/// Adds each row to the object on top of the stack, under the part of its name behind the dot.
void define(duk_context* engine, std::span<const Row> rows);

// What scripts can call, one table an object
[[nodiscard]] std::span<const Row> globalRows(); ///< print, assert
[[nodiscard]] std::span<const Row> appRows();
[[nodiscard]] std::span<const Row> mouseRows();
[[nodiscard]] std::span<const Row> keysRows();
[[nodiscard]] std::span<const Row> documentRows();
[[nodiscard]] std::span<const Row> arrangeRows(); ///< of documents as well
[[nodiscard]] std::span<const Row> viewRows();
[[nodiscard]] std::span<const Row> layerRows();
[[nodiscard]] std::span<const Row> artRows();

} // namespace easel::script
