// The suites as plug-ins see them: one copy of every function table, with the count of its acquisitions. The one list
// of suites on the host's side.
#pragma once

#include <string>
#include <tuple>
#include <vector>

#include "hostapi/AIAnnotatorDrawerSuite.h"
#include "hostapi/AIAnnotatorSuite.h"
#include "hostapi/AIArtStyleSuite.h"
#include "hostapi/AIArtSuite.h"
#include "hostapi/AIArtboardSuite.h"
#include "hostapi/AIBlendStyleSuite.h"
#include "hostapi/AICursorSnapSuite.h"
#include "hostapi/AIDictionarySuite.h"
#include "hostapi/AIDocumentListSuite.h"
#include "hostapi/AIDocumentSuite.h"
#include "hostapi/AIDocumentViewSuite.h"
#include "hostapi/AIExpandSuite.h"
#include "hostapi/AIFontSuite.h"
#include "hostapi/AIGradientSuite.h"
#include "hostapi/AIGroupSuite.h"
#include "hostapi/AIHitTestSuite.h"
#include "hostapi/AIIsolationModeSuite.h"
#include "hostapi/AILayerSuite.h"
#include "hostapi/AIMaskSuite.h"
#include "hostapi/AIMatchingArtSuite.h"
#include "hostapi/AIMdMemorySuite.h"
#include "hostapi/AIMenuSuite.h"
#include "hostapi/AIMeshSuite.h"
#include "hostapi/AINotifierSuite.h"
#include "hostapi/AIPathStyleSuite.h"
#include "hostapi/AIPathSuite.h"
#include "hostapi/AIPatternSuite.h"
#include "hostapi/AIPlacedSuite.h"
#include "hostapi/AIPluginGroupSuite.h"
#include "hostapi/AIPreferenceSuite.h"
#include "hostapi/AIRasterSuite.h"
#include "hostapi/AIRealMathSuite.h"
#include "hostapi/AIRuntimeSuite.h"
#include "hostapi/AISymbolSuite.h"
#include "hostapi/AITextFrameSuite.h"
#include "hostapi/AITimerSuite.h"
#include "hostapi/AIToolSuite.h"
#include "hostapi/AITransformArtSuite.h"
#include "hostapi/AIURLSuite.h"
#include "hostapi/AIUndoSuite.h"
#include "hostapi/SPBasic.h"
#include "hostapi/SPInterfaceSuite.h"
#include "hostapi/SPPluginsSuite.h"
#include "hostapi/StageAxesSuite.h"
#include "hostapi/StageSuite.h"
#include "session/frame/Suites.h"

namespace easel::suites {

/// A suite that can be acquired. `available` is a switch for tests: a suite that is off is not found.
template <class Table> struct Published {
    const char* name = SuiteTraits<Table>::kName;
    std::int32_t version = SuiteTraits<Table>::kVersion;
    Table table{};
    int acquired = 0;
    bool available = true;
};

/// Made with all functions in place. A test swaps an entry of a session's copy to make a call refuse.
class Tables final : public session::Suites {
  public:
    Tables();

    /// The tables of a session, `Tables::of(*session.suites)`.
    [[nodiscard]] static Tables& of(session::Suites& suites) { return static_cast<Tables&>(suites); }

    template <class Table> [[nodiscard]] Published<Table>& published() { return std::get<Published<Table>>(all_); }
    template <class Table> [[nodiscard]] Table& get() { return published<Table>().table; }
    /// Calls `visit` with every published suite.
    template <class Visit> void each(Visit visit) {
        std::apply([&](auto&... suites) { (visit(suites), ...); }, all_);
    }

    [[nodiscard]] const SPBasicSuite& basic() const override { return basicSuite; }
    [[nodiscard]] std::vector<std::string> takeUnreleased() override;

    SPBasicSuite basicSuite{}; ///< comes with every message, so it is not acquired

  private:
    std::tuple<Published<SPPluginsSuite>, Published<SPInterfaceSuite>, Published<AIPluginGroupSuite>,
               Published<AINotifierSuite>, Published<AIToolSuite>, Published<AIMenuSuite>, Published<AITimerSuite>,
               Published<AIAnnotatorSuite>, Published<AIAnnotatorDrawerSuite>, Published<AIArtSuite>,
               Published<AIPathSuite>, Published<AIPathStyleSuite>, Published<AITextFrameSuite>,
               Published<AILayerSuite>, Published<AIDocumentSuite>, Published<AIDocumentViewSuite>,
               Published<AIMatchingArtSuite>, Published<AIMdMemorySuite>, Published<AIHitTestSuite>,
               Published<AITransformArtSuite>, Published<AIPreferenceSuite>, Published<AIBlendStyleSuite>,
               Published<AIArtStyleSuite>, Published<AIIsolationModeSuite>, Published<AIDocumentListSuite>,
               Published<AIArtboardSuite>, Published<AIDictionarySuite>, Published<AICursorSnapSuite>,
               Published<AIUndoSuite>, Published<AIGroupSuite>, Published<AIMaskSuite>, Published<AIExpandSuite>,
               Published<AIFontSuite>, Published<AIGradientSuite>, Published<AIPatternSuite>, Published<AISymbolSuite>,
               Published<AIRasterSuite>, Published<AIPlacedSuite>, Published<AIMeshSuite>, Published<AIRealMathSuite>,
               Published<AIRuntimeSuite>, Published<AIURLSuite>, Published<StageSuite>, Published<StageAxesSuite>>
        all_;
};

} // namespace easel::suites
