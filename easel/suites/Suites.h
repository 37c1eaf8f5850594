// Fills the function tables that plug-ins call. One source file a suite.
#pragma once

#include "session/frame/Tables.h"

namespace easel::suites {

void fill(SPBasicSuite& suite);
void fill(SPPluginsSuite& suite);
void fill(SPInterfaceSuite& suite);
void fill(AIPluginGroupSuite& suite);
void fill(AINotifierSuite& suite);
void fill(AIToolSuite& suite);
void fill(AIMenuSuite& suite);
void fill(AITimerSuite& suite);
void fill(AIAnnotatorSuite& suite);
void fill(AIAnnotatorDrawerSuite& suite);
void fill(AIArtSuite& suite);
void fill(AIPathSuite& suite);
void fill(AIPathStyleSuite& suite);
void fill(AILayerSuite& suite);
void fill(AIDocumentSuite& suite);
void fill(AIDocumentViewSuite& suite);
void fill(AIMatchingArtSuite& suite);
void fill(AIMdMemorySuite& suite);
void fill(AIHitTestSuite& suite);
void fill(AICursorSnapSuite& suite);
void fill(AIUndoSuite& suite);
void fill(AIRealMathSuite& suite);
void fill(StageSuite& suite);

} // namespace easel::suites
