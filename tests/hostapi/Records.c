/* The interface seen from C: every header, and the layout of the records that cross the boundary. */
#include <stddef.h>

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
#include "hostapi/AIHitTestSuite.h"
#include "hostapi/AIIsolationModeSuite.h"
#include "hostapi/AILayerSuite.h"
#include "hostapi/AIMatchingArtSuite.h"
#include "hostapi/AIMdMemorySuite.h"
#include "hostapi/AIMenuGroups.h"
#include "hostapi/AIMenuSuite.h"
#include "hostapi/AINotifierSuite.h"
#include "hostapi/AIPathStyleSuite.h"
#include "hostapi/AIPathSuite.h"
#include "hostapi/AIPluginGroupSuite.h"
#include "hostapi/AIPreferenceSuite.h"
#include "hostapi/AIRealMathSuite.h"
#include "hostapi/AIRuntimeSuite.h"
#include "hostapi/AITextFrameSuite.h"
#include "hostapi/AITimerSuite.h"
#include "hostapi/AIToolNames.h"
#include "hostapi/AIToolSuite.h"
#include "hostapi/AITransformArtSuite.h"
#include "hostapi/AIURLSuite.h"
#include "hostapi/AIUndoSuite.h"
#include "hostapi/SPBasic.h"
#include "hostapi/SPInterfaceSuite.h"
#include "hostapi/SPMessages.h"
#include "hostapi/SPPluginsSuite.h"
#include "hostapi/StageSuite.h"

/* C99 has no static assertion; an array of negative size is one. */
#define RECORD_SIZE(record, size) typedef char record##_has_size_##size[sizeof(record) == (size) ? 1 : -1]

RECORD_SIZE(AIRealPoint, 16);
RECORD_SIZE(AIRealRect, 32);
RECORD_SIZE(SPMessageData, 32);
RECORD_SIZE(AINotifierMessage, 48);
RECORD_SIZE(AIMenuMessage, 40);
RECORD_SIZE(AITimerMessage, 40);
RECORD_SIZE(AIAnnotatorMessage, 72);
RECORD_SIZE(AIToolMessage, 64);
RECORD_SIZE(StageInputMessage, 40);
RECORD_SIZE(AIAddToolData, 24);
RECORD_SIZE(AIRealMatrix, 48);
RECORD_SIZE(AIPathSegment, 56);
RECORD_SIZE(AIHitRecord, 56);
RECORD_SIZE(AIPathStyle, 144);
RECORD_SIZE(AIArtStyle, 160);
RECORD_SIZE(AIMatchingArtSpec, 12);
RECORD_SIZE(AIGrid, 16);
RECORD_SIZE(AITextStyle, 24);
RECORD_SIZE(AIPointText, 192);
RECORD_SIZE(StageCursor, 48);
RECORD_SIZE(StageWidget, 96);
RECORD_SIZE(StageDialogMessage, 72);
