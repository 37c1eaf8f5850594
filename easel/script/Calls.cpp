// The parts of the shim that do not depend on a call's types.
#include "script/Calls.h"

#include <cstring>

#include "script/Text.h"

namespace easel::script {

namespace {

constexpr const char* kRowKey = DUK_HIDDEN_SYMBOL("row");
constexpr const char* kErrorKey = "Error";
constexpr const char* kTypeErrorKey = "TypeError";

/// The row of the native that is running.
const Row& currentRow(duk_context* engine) {
    duk_push_current_function(engine);
    duk_get_prop_string(engine, -1, kRowKey);
    const auto* const row = static_cast<const Row*>(duk_get_pointer(engine, -1));
    duk_pop_2(engine);
    return *row;
}

/// The name of the parameter at `index`, counted from 0; the last name stands for all that follow.
std::string_view parameterName(std::string_view names, int index) {
    constexpr std::string_view kComma = ", ";
    std::size_t end = names.find(kComma);
    for (; index > 0 && end != std::string_view::npos; --index) {
        names.remove_prefix(end + kComma.size());
        end = names.find(kComma);
    }
    return names.substr(0, end);
}

void pushNative(duk_context* engine, const Row& row, duk_c_function function, duk_idx_t arguments) {
    duk_push_c_function(engine, function, arguments);
    duk_push_pointer(engine, const_cast<Row*>(&row)); // NOLINT(cppcoreguidelines-pro-type-const-cast): only read
    duk_put_prop_string(engine, -2, kRowKey);
}

} // namespace

Host& hostOf(duk_context* engine) {
    duk_memory_functions functions;
    duk_get_memory_functions(engine, &functions);
    return *static_cast<Host*>(functions.udata);
}

Arguments::Arguments(duk_context* engine, std::size_t most) : engine_(engine), count_(duk_get_top(engine)) {
    if (static_cast<std::size_t>(count_) > most)
        throw BadArgument("takes no more than " + std::to_string(most) + (most == 1 ? " argument" : " arguments") +
                          ", not " + std::to_string(count_));
}

Value Arguments::argument(bool mayBeMissing) {
    const int index = used_++;
    role_ = "argument " + std::to_string(index + 1) + " (" +
            std::string(parameterName(currentRow(engine_).parameters, index)) + ")";
    if (index >= count_) {
        if (!mayBeMissing) throw BadArgument(role_ + " is missing");
        duk_push_undefined(engine_);
        return {engine_, duk_get_top_index(engine_), role_};
    }
    return {engine_, index, role_};
}

Failure pushFailure(duk_context* engine) noexcept {
    if (pushThrownInHandler(engine)) return Failure::Thrown; // whatever else came of that
    const auto say = [engine](const char* what) { duk_push_sprintf(engine, "%s: %s", currentRow(engine).name, what); };
    try {
        throw;
    } catch (const Thrown&) {
        return Failure::Thrown;
    } catch (const BadArgument& error) {
        say(error.what());
        return Failure::TypeError;
    } catch (const std::exception& error) {
        say(toEngine(error.what()).c_str());
        return Failure::Error;
    }
}

duk_ret_t raise(duk_context* engine, Failure failure) {
    if (failure != Failure::Thrown) {
        duk_push_heap_stash(engine);
        duk_get_prop_string(engine, -1, failure == Failure::TypeError ? kTypeErrorKey : kErrorKey);
        duk_dup(engine, -3);
        duk_new(engine, 1);
    }
    return duk_throw(engine);
}

void keepErrorConstructors(duk_context* engine) {
    duk_push_heap_stash(engine);
    for (const char* key : {kErrorKey, kTypeErrorKey}) {
        duk_get_global_string(engine, key);
        duk_put_prop_string(engine, -2, key);
    }
    duk_pop(engine);
}

void refuseChange(Host& /*host*/, Truthy /*value*/) { throw BadArgument("cannot be set"); }

void define(duk_context* engine, std::span<const Row> rows) {
    for (const Row& row : rows) {
        const char* const dot = std::strrchr(row.name, '.');
        duk_push_string(engine, !dot ? row.name : dot + 1);
        duk_uint_t flags = DUK_DEFPROP_SET_ENUMERABLE;
        if (row.call) {
            pushNative(engine, row, row.call, DUK_VARARGS);
            flags |= DUK_DEFPROP_HAVE_VALUE;
        } else {
            pushNative(engine, row, row.get, 0);
            pushNative(engine, row, row.set, 1);
            flags |= DUK_DEFPROP_HAVE_GETTER | DUK_DEFPROP_HAVE_SETTER;
        }
        duk_def_prop(engine, row.call ? -3 : -4, flags);
    }
}

} // namespace easel::script
