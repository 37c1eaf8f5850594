// The kinds of message that the host sends. A kind stands for one pair of caller and selector.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace kzo::core {

enum class MessageType : std::uint32_t {
    // Action Manager
    ActionDo = 10,

    // AI Annotation
    AnnotationDraw = 20,
    AnnotationInvalidate = 30,

    // AI Clipboard
    ClipboardGo = 40,
    ClipboardCanCopy = 50,
    ClipboardClone = 60,
    ClipboardDispose = 70,

    // AI File Format
    FileFormatSetParameters = 80,
    FileFormatGetParameters = 81,
    FileFormatGo = 90,
    FileFormatCheck = 100,
    FileFormatUpdateAI140 = 110,

    // AI Filter
    FilterGetParameters = 120,
    FilterGo = 130,

    // AI Layer List
    LayerListPush = 140,
    LayerListPop = 150,
    LayerListDelete = 160,

    // AI Live Effect
    LiveEffectEditParameters = 170,
    LiveEffectGoLive = 180,
    LiveEffectInterpolateParameters = 190,
    LiveEffectInputType = 200,
    LiveEffectConvertColorSpace = 210,
    LiveEffectScaleParameters = 220,
    LiveEffectHandleMerge = 230,
    LiveEffectGetSVGFilter = 240,
    LiveEffectAdjustColors = 250,
    LiveEffectIsCompatible = 260,

    // AI Menu
    MenuGo = 270,
    MenuUpdate = 280,

    // AI Notifier
    Notify = 290,

    // AI Object Set
    ObjectSetDisposeContents = 300,
    ObjectSetMarkUsage = 310,
    ObjectSetUpdateInternal = 320,
    ObjectSetUpdateExternal = 330,
    ObjectSetPurge = 340,
    ObjectSetChange = 350,
    ObjectSetChangeIndirect = 360,
    ObjectSetCopy = 370,
    ObjectSetInitializationDone = 380,

    // AI Plugin Group
    CustomArtNotifyEdits = 390,
    CustomArtUpdate = 400,
    CustomArtShowContents = 410,
    CustomArtInterpolateData = 420,
    CustomArtReplaceSymbol = 430,
    CustomArtDisallowArtType = 440,
    CustomArtPerformCustomHitTest = 450,
    CustomArtCollectPaintStyles = 460,
    CustomArtApplyPaintStyles = 470,
    CustomArtAdjustColors = 480,
    CustomArtShowPluginGroupContents = 490,

    // AI Preference
    PreferenceInitPanel = 500,
    PreferenceDialogOK = 510,
    PreferenceDialogCancel = 520,
    PreferenceDialogUpdate = 530,

    // AI Timer
    TimerGo = 540,

    // AI Tool
    ToolEditOptions = 550,
    ToolTrackCursor = 560,
    ToolMouseDown = 570,
    ToolMouseDrag = 580,
    ToolMouseUp = 590,
    ToolSelect = 600,
    ToolReselect = 610,
    ToolDeselect = 620,
    ToolDecreaseDiameter = 630,
    ToolIncreaseDiameter = 640,
    ToolAlternateSelectionToolQuery = 650,
    ToolAlternateSelectionToolActivate = 660,
    ToolAlternateSelectionToolDeactivate = 670,

    // AI Toolbox
    ToolboxStartToolbox = 680,
    ToolboxEndToolbox = 690,
    ToolboxStartToolGroup = 700,
    ToolboxEndToolGroup = 710,
    ToolboxStartToolSet = 720,
    ToolboxEndToolSet = 730,
    ToolboxAddTool = 740,
    ToolboxAddRollover = 750,
    ToolboxToolSelected = 760,
    ToolboxAlternateToolActionSelected = 770,
    ToolboxCycleTool = 780,
    ToolboxSoftCycleTool = 790,

    // AI Transform Again
    TransformAgainGo = 800,

    // Workspace Manager
    WorkspaceWrite = 810,
    WorkspaceRestore = 820,
    WorkspaceDefault = 830,

    // SP Access
    AccessReload = 840,

    // SP Cache
    CachePluginPurge = 850,

    // SP Access
    AccessUnload = 860,

    // SP Adapters
    AdapterStartUp = 870,
    AdapterShutDown = 880,
    AdapterDisposeInfo = 890,
    AdapterFlush = 900,
    AdapterRegisterPlugins = 910,
    AdapterLoadPlugin = 920,
    AdapterReleasePlugin = 930,
    AdapterSendMessage = 940,

    // SP Properties
    PropertyAcquire = 950,
    PropertyRelease = 960,

    // Any other pair
    Unknown = 0xFFFFFFF6
};

/// Which typed message class stands for a kind. Each live effect selector has a class of its own, in the order of their
/// kinds.
enum class MessageFamily : std::uint8_t {
    Action,
    Annotator,
    Clipboard,
    FileFormat,
    Filter,
    LayerList,
    LiveEffect,
    Menu,
    Notify,
    ObjectSet,
    CustomArt,
    Preferences,
    Timer,
    Tool,
    Toolbox,
    TransformAgain,
    Workspace,
    Plugin,
    Adapter
};

/// One row of the table of messages.
struct MessageRow {
    MessageType type;
    MessageFamily family;
    std::string_view caller;
    std::string_view selector;
};

[[nodiscard]] std::span<const MessageRow> messageRows();

/// The row of a kind, or of a pair of texts; null when the table has none.
[[nodiscard]] const MessageRow* messageRow(MessageType type);
[[nodiscard]] const MessageRow* messageRow(std::string_view caller, std::string_view selector);

} // namespace kzo::core
