// One object of the host, as its operations are asked: the handle, and the calls that are about it. Knows no suite, so
// that the facade may include it; a source that calls includes HostCall.h and the suites of its operations.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

namespace kzo::plugin::host {

/// What an operation's last argument points to: its answer, in the host's form.
template <class Entry> struct AnswerOf;
template <class Table, class... Parameters> struct AnswerOf<std::int32_t (*Table::*)(Parameters...)> {
    using type = std::remove_pointer_t<std::tuple_element_t<sizeof...(Parameters) - 1, std::tuple<Parameters...>>>;
};

/// Our form of an answer where an operation names none: bool, text, else as it is.
template <class Host> struct NaturalForm { using type = Host; };
template <> struct NaturalForm<std::uint8_t> { using type = bool; };
template <> struct NaturalForm<const char*> { using type = std::string; };
template <auto Entry> using Natural = typename NaturalForm<typename AnswerOf<decltype(Entry)>::type>::type;

/// Whether there is a host to call: from the first message on, until shut-down.
[[nodiscard]] bool isAttached();

// Calls that are about no object; arguments and answers are converted on the way (HostForm)

/// Returns whether the host did it.
template <auto Entry, class... Arguments> bool call(const Arguments&... arguments);
/// Returns the operation's answer, as an `As`; nothing when the host refuses.
template <auto Entry, class As = Natural<Entry>, class... Arguments>
[[nodiscard]] std::optional<As> find(const Arguments&... arguments);
/// The same; `neutral` when the host refuses.
template <auto Entry, class As = Natural<Entry>, class... Arguments>
[[nodiscard]] As getOr(const As& neutral, const Arguments&... arguments) {
    return find<Entry, As>(arguments...).value_or(neutral);
}
/// The same; false, 0, empty or null when the host refuses.
template <auto Entry, class As = Natural<Entry>, class... Arguments>
[[nodiscard]] As get(const Arguments&... arguments) {
    return getOr<Entry, As>(As(), arguments...);
}

/// Gives `value` the operation's answer; false, with `value` as it was, when the host refuses.
template <auto Entry, class As, class... Arguments> bool read(As& value, const Arguments&... arguments) {
    const std::optional<As> answer = find<Entry, As>(arguments...);
    if (answer) value = *answer;
    return answer.has_value();
}

/// The base of an implementation class. Without a handle (empty, destroyed or refused) the host is not asked, and every
/// operation returns its neutral value.
template <class HostObject> class Object {
  public:
    constexpr explicit Object(HostObject* handle = nullptr) : handle_(handle) {}

    [[nodiscard]] HostObject* handle() const { return handle_; }
    /// Leaves the object without a handle, which is returned: destroyed, or taken away by the host.
    HostObject* release() { return std::exchange(handle_, nullptr); }

  protected:
    /// `get<&AILayerSuite::GetLayerTitle>()`: the operation's answer about this object.
    template <auto Entry, class As = Natural<Entry>, class... Arguments>
    [[nodiscard]] As get(const Arguments&... arguments) const {
        return getOr<Entry, As>(As(), arguments...);
    }
    template <auto Entry, class As = Natural<Entry>, class... Arguments>
    [[nodiscard]] As getOr(const As& neutral, const Arguments&... arguments) const {
        return find<Entry, As>(arguments...).value_or(neutral);
    }
    template <auto Entry, class As = Natural<Entry>, class... Arguments>
    [[nodiscard]] std::optional<As> find(const Arguments&... arguments) const {
        return handle_ ? host::find<Entry, As>(handle_, arguments...) : std::nullopt;
    }
    /// `call<&AILayerSuite::SetLayerTitle>(title)`: whether the host did it to this object.
    template <auto Entry, class... Arguments> bool call(const Arguments&... arguments) const {
        return handle_ && host::call<Entry>(handle_, arguments...);
    }

    /// Has the host remove the object, which is without a handle from then on, whatever the host returns.
    template <auto Entry> void remove() {
        if (HostObject* const handle = release()) host::call<Entry>(handle);
    }

  private:
    HostObject* handle_;
};

} // namespace kzo::plugin::host
