// The one way to the host: every operation is called by the name of its table entry, arguments and answers are
// converted on the way, and a suite is acquired when it is first used. Nothing throws: a suite or function that is
// missing and a host error are one and the same refusal.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "hostapi/SPBasic.h"
#include "plugin/host/HostMonitor.h"
#include "plugin/host/Object.h"
#include "utils/BitSet.h"

namespace kzo::plugin::host {

/// A suite of the host, and its table from first use until shut-down.
struct Suite {
    const char* name;
    std::int32_t version;
    const void* table = nullptr;
    Suite* acquiredBefore = nullptr;
};

template <class Table> inline constinit Suite suiteOf{SuiteTraits<Table>::kName, SuiteTraits<Table>::kVersion};

/// The basic suite of the message being handled; null before the first one.
inline constinit const SPBasicSuite* basic = nullptr;
/// The plug-in, as the host names it in that message; null before the first one.
inline constinit SPPluginRef self = nullptr;

/// "AIArtSuite::GetArtType" for &AIArtSuite::GetArtType. (The host has its own: neither side includes the other.)
template <auto Entry> [[nodiscard]] constexpr std::string_view entryName() {
    constexpr std::string_view kText = __PRETTY_FUNCTION__;
    constexpr std::size_t kStart = kText.find('&', kText.find("Entry")) + 1;
    return kText.substr(kStart, kText.find_first_of(";]", kStart) - kStart);
}

/// Whether the suite's table is there, acquired if it was not yet.
bool acquire(Suite& suite);
/// Gives every acquired suite back, the last one first.
void releaseAll();

template <class Table> [[nodiscard]] const Table* acquire() {
    Suite& suite = suiteOf<Table>;
    return suite.table || acquire(suite) ? static_cast<const Table*>(suite.table) : nullptr;
}

/// The basic suite comes with every message and is not acquired.
template <> [[nodiscard]] inline const SPBasicSuite* acquire<SPBasicSuite>() { return basic; }

template <class Table> [[nodiscard]] bool isAcquired() { return suiteOf<Table>.table != nullptr; }

// Conversions

/// How one of our types stands in the host's calls. Numbers, handles and records pass as they are; each room's
/// Convert.h adds the types of its own.
template <class Ours> struct HostForm {
    static constexpr Ours toHost(Ours value) { return value; }
    static constexpr Ours fromHost(Ours value) { return value; }
};
template <> struct HostForm<bool> {
    static constexpr AIBoolean toHost(bool value) { return value ? 1 : 0; }
    static constexpr bool fromHost(AIBoolean value) { return value != 0; }
};
template <> struct HostForm<std::string> {
    static const char* toHost(const std::string& text) { return text.c_str(); }
    static std::string fromHost(const char* text) { return text ? text : ""; }
};
/// The host's bit sets have our values.
template <utils::BitSet Ours> struct HostForm<Ours> {
    static constexpr auto toHost(Ours set) { return utils::bits(set); }
    template <class Host> static constexpr Ours fromHost(Host set) { return Ours(set); }
};
/// For enumerations that have the host's numbers.
template <class Ours> struct SameNumbers {
    static constexpr std::int16_t toHost(Ours value) { return static_cast<std::int16_t>(value); }
    static constexpr Ours fromHost(std::int16_t value) { return Ours(value); }
};
/// One row of a table that pairs our value with the host's.
template <class Ours> struct Pair {
    Ours ours;
    std::int16_t host;
};
/// For enumerations with a table: a host's value that is not in it is `kOtherOurs`, one of ours `kOtherHost`.
template <const auto& kTable, auto kOtherOurs, std::int16_t kOtherHost = 0> struct Paired {
    using Ours = decltype(kOtherOurs);
    static constexpr std::int16_t toHost(Ours value) {
        for (const Pair<Ours>& row : kTable)
            if (row.ours == value) return row.host;
        return kOtherHost;
    }
    static constexpr Ours fromHost(std::int32_t value) {
        for (const Pair<Ours>& row : kTable)
            if (row.host == value) return row.ours;
        return kOtherOurs;
    }
};

template <class Ours> [[nodiscard]] constexpr auto toHost(const Ours& value) { return HostForm<Ours>::toHost(value); }
template <class Ours, class Host> [[nodiscard]] constexpr Ours fromHost(const Host& value) {
    return HostForm<Ours>::fromHost(value);
}

/// Lists of ours, and of the host's records.
template <class Ours> [[nodiscard]] auto toHost(const std::vector<Ours>& list) {
    std::vector<decltype(HostForm<Ours>::toHost(list.front()))> records;
    records.reserve(list.size());
    for (const Ours& value : list) records.push_back(HostForm<Ours>::toHost(value));
    return records;
}
template <class Ours, class Host> [[nodiscard]] std::vector<Ours> fromHost(const std::vector<Host>& records) {
    std::vector<Ours> list;
    list.reserve(records.size());
    for (const Host& record : records) list.push_back(HostForm<Ours>::fromHost(record));
    return list;
}

/// An argument in the host's form: by value or, where the operation asks for a pointer to a record, by the address of
/// one that lives as long as the call.
template <class Parameter, class Ours> class Passed {
  public:
    explicit Passed(const Ours& value) : host_(HostForm<Ours>::toHost(value)) {}
    operator Parameter() const { // NOLINT(google-explicit-constructor): it stands for the parameter
        if constexpr (std::is_convertible_v<Host, Parameter>)
            return Parameter{host_};
        else
            return &host_;
    }

  private:
    using Host = decltype(HostForm<Ours>::toHost(std::declval<const Ours&>()));
    Host host_;
};

// Calls

/// Whether the host takes all of an argument: its texts end at the first zero byte, and what stands behind would be
/// lost. A call with such a text is refused.
template <class Any> [[nodiscard]] bool isWhole(const Any& argument) {
    if constexpr (std::is_same_v<Any, std::string>)
        return argument.find('\0') == std::string::npos;
    else
        return true;
}

template <auto Entry, class Table, class... Parameters, class... Arguments>
bool callAs(AIErr (*Table::*)(Parameters...), const Arguments&... arguments) {
    const Table* const table = acquire<Table>();
    const auto function = table ? table->*Entry : nullptr;
    AIErr error = kSPSuiteNotFoundErr;
    if (!(isWhole(arguments) && ...))
        error = kBadParameterErr;
    else if (monitor().admits() && function)
        error = function(Passed<Parameters, std::decay_t<Arguments>>(arguments)...);
    if (error != kNoErr) monitor().refused(entryName<Entry>(), error);
    return error == kNoErr;
}

template <auto Entry, class... Arguments> bool call(const Arguments&... arguments) {
    return callAs<Entry>(Entry, arguments...);
}

template <auto Entry, class As, class... Arguments> std::optional<As> find(const Arguments&... arguments) {
    typename AnswerOf<decltype(Entry)>::type answer{};
    return call<Entry>(arguments..., &answer) ? std::optional<As>(HostForm<As>::fromHost(answer)) : std::nullopt;
}

/// All that the host lists of something, by its count and the operation that returns the one at an index; without those
/// that it refuses.
template <auto Count, auto Nth, class... Arguments>
[[nodiscard]] std::vector<Natural<Nth>> all(const Arguments&... arguments) {
    std::vector<Natural<Nth>> list;
    const std::int32_t count = get<Count>(arguments...);
    for (std::int32_t i = 0; i < count; ++i)
        if (auto each = get<Nth>(arguments..., i); each != Natural<Nth>()) list.push_back(std::move(each));
    return list;
}

} // namespace kzo::plugin::host
