// The suites as plug-ins see them: one copy of every function table, with the count of its acquisitions. A test swaps
// an entry of the session's copy to make a call refuse.
#pragma once

#include <cstdint>

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

namespace easel::session {

/// A suite that can be acquired. `available` is a switch for tests: a suite that is off is not found.
template <class Table> struct Published {
    const char* name = nullptr;
    std::int32_t version = 0;
    Table table{};
    int acquired = 0;
    bool available = true;
};

/// Made with all functions in place; those are the suites' (see suites/Suites.h).
struct Tables {
    Tables();

    SPBasicSuite basic{};
    Published<SPPluginsSuite> plugins{kSPPluginsSuite, kSPPluginsSuiteVersion};
    Published<SPInterfaceSuite> interface { kSPInterfaceSuite, kSPInterfaceSuiteVersion };
    Published<AIPluginGroupSuite> pluginGroup{kAIPluginGroupSuite, kAIPluginGroupSuiteVersion};
    Published<AINotifierSuite> notifier{kAINotifierSuite, kAINotifierSuiteVersion};
    Published<AIToolSuite> tool{kAIToolSuite, kAIToolSuiteVersion};
    Published<AIMenuSuite> menu{kAIMenuSuite, kAIMenuSuiteVersion};
    Published<AITimerSuite> timer{kAITimerSuite, kAITimerSuiteVersion};
    Published<AIAnnotatorSuite> annotator{kAIAnnotatorSuite, kAIAnnotatorSuiteVersion};
    Published<AIAnnotatorDrawerSuite> annotatorDrawer{kAIAnnotatorDrawerSuite, kAIAnnotatorDrawerSuiteVersion};
    Published<AIArtSuite> art{kAIArtSuite, kAIArtSuiteVersion};
    Published<AIPathSuite> path{kAIPathSuite, kAIPathSuiteVersion};
    Published<AIPathStyleSuite> pathStyle{kAIPathStyleSuite, kAIPathStyleSuiteVersion};
    Published<AILayerSuite> layer{kAILayerSuite, kAILayerSuiteVersion};
    Published<AIDocumentSuite> document{kAIDocumentSuite, kAIDocumentSuiteVersion};
    Published<AIDocumentViewSuite> view{kAIDocumentViewSuite, kAIDocumentViewSuiteVersion};
    Published<AIMatchingArtSuite> matchingArt{kAIMatchingArtSuite, kAIMatchingArtSuiteVersion};
    Published<AIMdMemorySuite> memory{kAIMdMemorySuite, kAIMdMemorySuiteVersion};
    Published<AIHitTestSuite> hitTest{kAIHitTestSuite, kAIHitTestSuiteVersion};
    Published<AICursorSnapSuite> cursorSnap{kAICursorSnapSuite, kAICursorSnapSuiteVersion};
    Published<AIUndoSuite> undo{kAIUndoSuite, kAIUndoSuiteVersion};
    Published<AIRealMathSuite> realMath{kAIRealMathSuite, kAIRealMathSuiteVersion};
    Published<StageSuite> stage{kStageSuite, kStageSuiteVersion};

    /// Calls `visit` with every published suite. The one list that look-up, release and tests go by.
    template <class Visit> void each(Visit visit) {
        const auto all = [&](auto&... suites) { (visit(suites), ...); };
        all(plugins, interface, pluginGroup, notifier, tool, menu, timer, annotator, annotatorDrawer, art, path,
            pathStyle, layer, document, view, matchingArt, memory, hitTest, cursorSnap, undo, realMath, stage);
    }
};

} // namespace easel::session
