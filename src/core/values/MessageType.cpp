// The table of messages. It is written once, here; its look-ups are built on first use.
#include "core/values/MessageType.h"

#include <array>
#include <unordered_map>

namespace kzo::core {

namespace {

using enum MessageType;

constexpr std::array kTable{
    MessageRow{ActionDo, MessageFamily::Action, "Action Manager", "Do Action"},
    MessageRow{AnnotationDraw, MessageFamily::Annotator, "AI Annotation", "AI Draw"},
    MessageRow{AnnotationInvalidate, MessageFamily::Annotator, "AI Annotation", "AI Invalidate"},
    MessageRow{ClipboardGo, MessageFamily::Clipboard, "AI Clipboard", "AI Go"},
    MessageRow{ClipboardCanCopy, MessageFamily::Clipboard, "AI Clipboard", "AI Can Copy"},
    MessageRow{ClipboardClone, MessageFamily::Clipboard, "AI Clipboard", "AI Clone"},
    MessageRow{ClipboardDispose, MessageFamily::Clipboard, "AI Clipboard", "AI Dispose"},
    MessageRow{FileFormatSetParameters, MessageFamily::FileFormat, "AI File Format", "AI Set Parameters"},
    MessageRow{FileFormatGetParameters, MessageFamily::FileFormat, "AI File Format", "AI Get Parameters"},
    MessageRow{FileFormatGo, MessageFamily::FileFormat, "AI File Format", "AI Go"},
    MessageRow{FileFormatCheck, MessageFamily::FileFormat, "AI File Format", "AI Check"},
    MessageRow{FileFormatUpdateAI140, MessageFamily::FileFormat, "AI File Format", "AI Update AI140"},
    MessageRow{FilterGetParameters, MessageFamily::Filter, "AI Filter", "AI Get Parameters"},
    MessageRow{FilterGo, MessageFamily::Filter, "AI Filter", "AI Go"},
    MessageRow{LayerListPush, MessageFamily::LayerList, "AI Layer List", "AI Push Layer List"},
    MessageRow{LayerListPop, MessageFamily::LayerList, "AI Layer List", "AI Pop Layer List"},
    MessageRow{LayerListDelete, MessageFamily::LayerList, "AI Layer List", "AI Delete Layer List"},
    MessageRow{LiveEffectEditParameters, MessageFamily::LiveEffect, "AI Live Effect", "AI Live Effect Edit Parameters"},
    MessageRow{LiveEffectGoLive, MessageFamily::LiveEffect, "AI Live Effect", "AI Live Effect Go Live"},
    MessageRow{LiveEffectInterpolateParameters, MessageFamily::LiveEffect, "AI Live Effect",
               "AI Live Effect Interpolate Parameters"},
    MessageRow{LiveEffectInputType, MessageFamily::LiveEffect, "AI Live Effect", "AI Live Effect Input Type"},
    MessageRow{LiveEffectConvertColorSpace, MessageFamily::LiveEffect, "AI Live Effect",
               "AI Live Effect Convert Color Space"},
    MessageRow{LiveEffectScaleParameters, MessageFamily::LiveEffect, "AI Live Effect",
               "AI Live Effect Scale Parameters"},
    MessageRow{LiveEffectHandleMerge, MessageFamily::LiveEffect, "AI Live Effect", "AI Live Effect Handle Merge"},
    MessageRow{LiveEffectGetSVGFilter, MessageFamily::LiveEffect, "AI Live Effect", "AI Live Effect Get SVG Filter"},
    MessageRow{LiveEffectAdjustColors, MessageFamily::LiveEffect, "AI Live Effect", "AI Live Effect Adjust Colors"},
    MessageRow{LiveEffectIsCompatible, MessageFamily::LiveEffect, "AI Live Effect", "AI Live Effect Is Compatible"},
    MessageRow{MenuGo, MessageFamily::Menu, "AI Menu", "AI Go"},
    MessageRow{MenuUpdate, MessageFamily::Menu, "AI Menu", "AI Update"},
    MessageRow{Notify, MessageFamily::Notify, "AI Notifier", "AI Notify"},
    MessageRow{ObjectSetDisposeContents, MessageFamily::ObjectSet, "AI Object Set", "AI Object Set Dispose Contents"},
    MessageRow{ObjectSetMarkUsage, MessageFamily::ObjectSet, "AI Object Set", "AI Object Set Mark Usage"},
    MessageRow{ObjectSetUpdateInternal, MessageFamily::ObjectSet, "AI Object Set", "AI Object Set Update Internal"},
    MessageRow{ObjectSetUpdateExternal, MessageFamily::ObjectSet, "AI Object Set", "AI Object Set Update External"},
    MessageRow{ObjectSetPurge, MessageFamily::ObjectSet, "AI Object Set", "AI Object Set Purge"},
    MessageRow{ObjectSetChange, MessageFamily::ObjectSet, "AI Object Set", "AI Object Set Change"},
    MessageRow{ObjectSetChangeIndirect, MessageFamily::ObjectSet, "AI Object Set", "AI Object Set Change Indirect"},
    MessageRow{ObjectSetCopy, MessageFamily::ObjectSet, "AI Object Set", "AI Object Set Copy"},
    MessageRow{ObjectSetInitializationDone, MessageFamily::ObjectSet, "AI Object Set",
               "AI Object Set Initialization Done"},
    MessageRow{CustomArtNotifyEdits, MessageFamily::CustomArt, "AI Plugin Group", "AI Notify Edits"},
    MessageRow{CustomArtUpdate, MessageFamily::CustomArt, "AI Plugin Group", "AI Update"},
    MessageRow{CustomArtShowContents, MessageFamily::CustomArt, "AI Plugin Group", "AI Show Contents"},
    MessageRow{CustomArtInterpolateData, MessageFamily::CustomArt, "AI Plugin Group", "AI Interpolate Data"},
    MessageRow{CustomArtReplaceSymbol, MessageFamily::CustomArt, "AI Plugin Group", "AI Art Replace Symbol"},
    MessageRow{CustomArtDisallowArtType, MessageFamily::CustomArt, "AI Plugin Group",
               "AI Plugin Group Disallow Art Type"},
    MessageRow{CustomArtPerformCustomHitTest, MessageFamily::CustomArt, "AI Plugin Group",
               "AI Plugin Group Perform Custom Hit Test"},
    MessageRow{CustomArtCollectPaintStyles, MessageFamily::CustomArt, "AI Plugin Group",
               "AI Plugin Group Collect Paint Styles"},
    MessageRow{CustomArtApplyPaintStyles, MessageFamily::CustomArt, "AI Plugin Group",
               "AI Plugin Group Apply Paint Styles"},
    MessageRow{CustomArtAdjustColors, MessageFamily::CustomArt, "AI Plugin Group", "AI Plugin Group Adjust Colors"},
    MessageRow{CustomArtShowPluginGroupContents, MessageFamily::CustomArt, "AI Plugin Group",
               "AI Plugin Group Show Contents"},
    MessageRow{PreferenceInitPanel, MessageFamily::Preferences, "AI Preference", "Init Preference Panel"},
    MessageRow{PreferenceDialogOK, MessageFamily::Preferences, "AI Preference", "Preference Dialog OK"},
    MessageRow{PreferenceDialogCancel, MessageFamily::Preferences, "AI Preference", "Preference Dialog Cancel"},
    MessageRow{PreferenceDialogUpdate, MessageFamily::Preferences, "AI Preference", "Preference Dialog Upadate"},
    MessageRow{TimerGo, MessageFamily::Timer, "AI Timer", "AI Go"},
    MessageRow{ToolEditOptions, MessageFamily::Tool, "AI Tool", "AI Edit Options"},
    MessageRow{ToolTrackCursor, MessageFamily::Tool, "AI Tool", "AI Track Cursor"},
    MessageRow{ToolMouseDown, MessageFamily::Tool, "AI Tool", "AI Mouse Down"},
    MessageRow{ToolMouseDrag, MessageFamily::Tool, "AI Tool", "AI Mouse Drag"},
    MessageRow{ToolMouseUp, MessageFamily::Tool, "AI Tool", "AI Mouse Up"},
    MessageRow{ToolSelect, MessageFamily::Tool, "AI Tool", "AI Select"},
    MessageRow{ToolReselect, MessageFamily::Tool, "AI Tool", "AI Reselect"},
    MessageRow{ToolDeselect, MessageFamily::Tool, "AI Tool", "AI Deselect"},
    MessageRow{ToolDecreaseDiameter, MessageFamily::Tool, "AI Tool", "AI Decrease Diameter"},
    MessageRow{ToolIncreaseDiameter, MessageFamily::Tool, "AI Tool", "AI Increase Diameter"},
    MessageRow{ToolAlternateSelectionToolQuery, MessageFamily::Tool, "AI Tool", "AI Alternate Selection Tool Query"},
    MessageRow{ToolAlternateSelectionToolActivate, MessageFamily::Tool, "AI Tool",
               "AI Alternate Selection Tool Activate"},
    MessageRow{ToolAlternateSelectionToolDeactivate, MessageFamily::Tool, "AI Tool",
               "AI Alternate Selection Tool DeActivate"},
    MessageRow{ToolboxStartToolbox, MessageFamily::Toolbox, "AI Toolbox", "AI Toolbox Start Toolbox"},
    MessageRow{ToolboxEndToolbox, MessageFamily::Toolbox, "AI Toolbox", "AI Toolbox End Toolbox"},
    MessageRow{ToolboxStartToolGroup, MessageFamily::Toolbox, "AI Toolbox", "AI Toolbox Start Tool Group"},
    MessageRow{ToolboxEndToolGroup, MessageFamily::Toolbox, "AI Toolbox", "AI Toolbox End Tool Group"},
    MessageRow{ToolboxStartToolSet, MessageFamily::Toolbox, "AI Toolbox", "AI Toolbox Start Tool Set"},
    MessageRow{ToolboxEndToolSet, MessageFamily::Toolbox, "AI Toolbox", "AI Toolbox End Tool Set"},
    MessageRow{ToolboxAddTool, MessageFamily::Toolbox, "AI Toolbox", "AI Toolbox Add Tool"},
    MessageRow{ToolboxAddRollover, MessageFamily::Toolbox, "AI Toolbox", "AI Toolbox Add Rollover"},
    MessageRow{ToolboxToolSelected, MessageFamily::Toolbox, "AI Toolbox", "AI Toolbox Tool Selected"},
    MessageRow{ToolboxAlternateToolActionSelected, MessageFamily::Toolbox, "AI Toolbox",
               "AI Toolbox Alternate Tool Action Selected"},
    MessageRow{ToolboxCycleTool, MessageFamily::Toolbox, "AI Toolbox", "AI Toolbox Cycle Tool"},
    MessageRow{ToolboxSoftCycleTool, MessageFamily::Toolbox, "AI Toolbox", "AI Toolbox Soft Cycle Tool"},
    MessageRow{TransformAgainGo, MessageFamily::TransformAgain, "AI Transform Again", "AI Go"},
    MessageRow{WorkspaceWrite, MessageFamily::Workspace, "Workspace Manager", "Write Workspace"},
    MessageRow{WorkspaceRestore, MessageFamily::Workspace, "Workspace Manager", "Restore Workspace"},
    MessageRow{WorkspaceDefault, MessageFamily::Workspace, "Workspace Manager", "Default Workspace"},
    MessageRow{AccessReload, MessageFamily::Plugin, "SP Access", "Reload"},
    MessageRow{CachePluginPurge, MessageFamily::Plugin, "SP Cache", "Plug-in Purge"},
    MessageRow{AccessUnload, MessageFamily::Plugin, "SP Access", "Unload"},
    MessageRow{AdapterStartUp, MessageFamily::Adapter, "SP Adapters", "Start up"},
    MessageRow{AdapterShutDown, MessageFamily::Adapter, "SP Adapters", "Shut down"},
    MessageRow{AdapterDisposeInfo, MessageFamily::Adapter, "SP Adapters", "Dispose info"},
    MessageRow{AdapterFlush, MessageFamily::Adapter, "SP Adapters", "Flush"},
    MessageRow{AdapterRegisterPlugins, MessageFamily::Adapter, "SP Adapters", "Register plugins"},
    MessageRow{AdapterLoadPlugin, MessageFamily::Adapter, "SP Adapters", "Load plugin"},
    MessageRow{AdapterReleasePlugin, MessageFamily::Adapter, "SP Adapters", "Release plugin"},
    MessageRow{AdapterSendMessage, MessageFamily::Adapter, "SP Adapters", "Send message"},
    MessageRow{PropertyAcquire, MessageFamily::Plugin, "SP Properties", "Acquire"},
    MessageRow{PropertyRelease, MessageFamily::Plugin, "SP Properties", "Release"},
};

struct Texts {
    std::string_view caller;
    std::string_view selector;

    bool operator==(const Texts&) const = default;
};

struct HashOfTexts {
    std::size_t operator()(const Texts& texts) const {
        const std::hash<std::string_view> hash;
        return hash(texts.caller) * 31 + hash(texts.selector);
    }
};

template <class Key, class... Hash> using Index = std::unordered_map<Key, const MessageRow*, Hash...>;

template <class Lookup, class KeyOf> Lookup built(KeyOf keyOf) {
    Lookup lookup;
    for (const MessageRow& row : kTable) lookup.emplace(keyOf(row), &row);
    return lookup;
}

template <class Lookup, class Key> const MessageRow* found(const Lookup& lookup, const Key& key) {
    const auto at = lookup.find(key);
    return at == lookup.end() ? nullptr : at->second;
}

} // namespace

std::span<const MessageRow> messageRows() { return kTable; }

const MessageRow* messageRow(MessageType type) {
    static const auto byType = built<Index<MessageType>>([](const MessageRow& row) { return row.type; });
    return found(byType, type);
}

const MessageRow* messageRow(std::string_view caller, std::string_view selector) {
    static const auto byTexts = built<Index<Texts, HashOfTexts>>([](const MessageRow& row) {
        return Texts{row.caller, row.selector};
    });
    return found(byTexts, Texts{caller, selector});
}

} // namespace kzo::core
