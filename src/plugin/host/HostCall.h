// The one way to the host: every operation is called by the name of its table entry, and a suite is acquired when it is
// first used. Nothing throws: a suite or function that is missing and a host error are one and the same refusal.
#pragma once

#include <cstdint>
#include <string_view>
#include <type_traits>

#include "hostapi/SPBasic.h"
#include "plugin/host/HostMonitor.h"

namespace kzo::plugin::host {

/// A suite of the host, and its table from first use until shut-down.
struct Suite {
    const char* name;
    std::int32_t version;
    const void* table = nullptr;
    Suite* acquiredBefore = nullptr;
};

template <class Table> inline constinit Suite suiteOf{SuiteTraits<Table>::name, SuiteTraits<Table>::version};

/// The basic suite of the message being handled; null before the first one.
inline constinit const SPBasicSuite* basic = nullptr;

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

template <class Table> [[nodiscard]] bool isAcquired() { return suiteOf<Table>.table != nullptr; }

/// Calls the operation `Entry` of its suite, `call<&AIArtSuite::DisposeArt>(art)`. Returns whether the host did it.
template <auto Entry, class... Arguments> bool call(Arguments... arguments) {
    const auto tableOf = []<class Table, class Function>(Function Table::*) { return acquire<Table>(); };
    const auto* const table = tableOf(Entry);
    const auto function = table ? table->*Entry : nullptr;
    AIErr error = kSPSuiteNotFoundErr;
    if (monitor().admits() && function) error = function(arguments...);
    if (error != kNoErr) monitor().refused(entryName<Entry>(), error);
    return error == kNoErr;
}

/// Calls an operation whose last argument is where the answer goes. Returns `neutral` when the host refuses, and for a
/// null answer, so that a text is always one.
template <auto Entry, class Result, class... Arguments>
[[nodiscard]] Result ask(Result neutral, Arguments... arguments) {
    Result result = neutral;
    if (!call<Entry>(arguments..., &result)) return neutral;
    if constexpr (std::is_pointer_v<Result>) return result ? result : neutral;
    return result;
}

} // namespace kzo::plugin::host
