// The one way to the host. Every suite is described and listed here once; every operation is called by the name of its
// table entry. Nothing throws: a suite or function that is missing and a host error are one and the same refusal.
#pragma once

#include <cstdint>
#include <string_view>
#include <tuple>
#include <type_traits>

#include "hostapi/AIAnnotatorDrawerSuite.h"
#include "hostapi/AIAnnotatorSuite.h"
#include "hostapi/AIArtSuite.h"
#include "hostapi/AICursorSnapSuite.h"
#include "hostapi/AIDocumentSuite.h"
#include "hostapi/AIDocumentViewSuite.h"
#include "hostapi/AIHitTestSuite.h"
#include "hostapi/AILayerSuite.h"
#include "hostapi/AIMatchingArtSuite.h"
#include "hostapi/AIMdMemorySuite.h"
#include "hostapi/AIMenuSuite.h"
#include "hostapi/AINotifierSuite.h"
#include "hostapi/AIPathStyleSuite.h"
#include "hostapi/AIPathSuite.h"
#include "hostapi/AIPluginGroupSuite.h"
#include "hostapi/AIRealMathSuite.h"
#include "hostapi/AITimerSuite.h"
#include "hostapi/AIToolSuite.h"
#include "hostapi/AIUndoSuite.h"
#include "hostapi/SPBasic.h"
#include "hostapi/SPInterfaceSuite.h"
#include "hostapi/SPPluginsSuite.h"
#include "hostapi/StageSuite.h"
#include "plugin/host/HostMonitor.h"

namespace kzo::plugin::host {

/// A suite of the host, and its table from first use until shut-down.
template <class Table> struct Suite {
    const char* name;
    std::int32_t version;
    const Table* table = nullptr;
};

inline constinit std::tuple suites{
    Suite<SPPluginsSuite>{kSPPluginsSuite, kSPPluginsSuiteVersion},
    Suite<SPInterfaceSuite>{kSPInterfaceSuite, kSPInterfaceSuiteVersion},
    Suite<AIPluginGroupSuite>{kAIPluginGroupSuite, kAIPluginGroupSuiteVersion},
    Suite<AINotifierSuite>{kAINotifierSuite, kAINotifierSuiteVersion},
    Suite<AIToolSuite>{kAIToolSuite, kAIToolSuiteVersion},
    Suite<AIMenuSuite>{kAIMenuSuite, kAIMenuSuiteVersion},
    Suite<AITimerSuite>{kAITimerSuite, kAITimerSuiteVersion},
    Suite<AIAnnotatorSuite>{kAIAnnotatorSuite, kAIAnnotatorSuiteVersion},
    Suite<AIAnnotatorDrawerSuite>{kAIAnnotatorDrawerSuite, kAIAnnotatorDrawerSuiteVersion},
    Suite<AIArtSuite>{kAIArtSuite, kAIArtSuiteVersion},
    Suite<AIPathSuite>{kAIPathSuite, kAIPathSuiteVersion},
    Suite<AIPathStyleSuite>{kAIPathStyleSuite, kAIPathStyleSuiteVersion},
    Suite<AILayerSuite>{kAILayerSuite, kAILayerSuiteVersion},
    Suite<AIDocumentSuite>{kAIDocumentSuite, kAIDocumentSuiteVersion},
    Suite<AIDocumentViewSuite>{kAIDocumentViewSuite, kAIDocumentViewSuiteVersion},
    Suite<AIMatchingArtSuite>{kAIMatchingArtSuite, kAIMatchingArtSuiteVersion},
    Suite<AIMdMemorySuite>{kAIMdMemorySuite, kAIMdMemorySuiteVersion},
    Suite<AIHitTestSuite>{kAIHitTestSuite, kAIHitTestSuiteVersion},
    Suite<AICursorSnapSuite>{kAICursorSnapSuite, kAICursorSnapSuiteVersion},
    Suite<AIUndoSuite>{kAIUndoSuite, kAIUndoSuiteVersion},
    Suite<AIRealMathSuite>{kAIRealMathSuite, kAIRealMathSuiteVersion},
    Suite<StageSuite>{kStageSuite, kStageSuiteVersion},
};

/// The basic suite of the message being handled; null before the first one.
inline constinit const SPBasicSuite* basic = nullptr;

/// "AIArtSuite::GetArtType" for &AIArtSuite::GetArtType. (The host has its own: neither side includes the other.)
template <auto Entry> [[nodiscard]] constexpr std::string_view entryName() {
    constexpr std::string_view text = __PRETTY_FUNCTION__;
    constexpr std::size_t start = text.find('&', text.find("Entry")) + 1;
    return text.substr(start, text.find_first_of(";]", start) - start);
}

/// The suite's table, acquired if it is not yet; null when the host has none.
template <class Table> [[nodiscard]] const Table* acquire() {
    Suite<Table>& suite = std::get<Suite<Table>>(suites);
    const void* table = nullptr;
    if (!suite.table && basic && basic->AcquireSuite &&
        basic->AcquireSuite(suite.name, suite.version, &table) == kNoErr)
        suite.table = static_cast<const Table*>(table);
    return suite.table;
}

template <class Table> [[nodiscard]] bool isAcquired() { return std::get<Suite<Table>>(suites).table != nullptr; }

/// Gives every acquired suite back.
void releaseAll();

/// Calls the operation `Entry` of its suite, `call<&AIArtSuite::DisposeArt>(art)`, and answers whether the host did it.
template <auto Entry, class... Arguments> bool call(Arguments... arguments) {
    const auto tableOf = []<class Table, class Function>(Function Table::*) { return acquire<Table>(); };
    const auto* const table = tableOf(Entry);
    const auto function = table ? table->*Entry : nullptr;
    AIErr error = kSPSuiteNotFoundErr;
    if (monitor().admits() && function) error = function(arguments...);
    if (error != kNoErr) monitor().refused(entryName<Entry>(), error);
    return error == kNoErr;
}

/// Calls an operation whose last argument is where the answer goes. Answers `neutral` when the host refuses, and for a
/// null answer, so that a text is always one.
template <auto Entry, class Result, class... Arguments>
[[nodiscard]] Result ask(Result neutral, Arguments... arguments) {
    Result result = neutral;
    if (!call<Entry>(arguments..., &result)) return neutral;
    if constexpr (std::is_pointer_v<Result>) return result ? result : neutral;
    return result;
}

} // namespace kzo::plugin::host
