// The table of events.
#include "core/frame/NotifierType.h"

#include <algorithm>
#include <array>

namespace kzo::core {

namespace {

using enum NotifierType;

struct Row {
    NotifierType type;
    std::string_view name;
};

constexpr std::array kTable{
    Row{ArtSelectionChanged, "AI Art Selection Changed Notifier"},
    Row{ArtCustomColorChanged, "AI Art Custom Color Changed Notifier"},
    Row{ArtPropertiesChanged, "AI Art Properties Changed Notifier"},
    Row{ArtStyleFocusChanged, "AI Art Style Focus Changed Notifier"},
    Row{EditTransparency, "AI Edit Transparency Notifier"},
    Row{ArtGradientChanged, "AI Art Gradient Changed Notifier"},
    Row{ArtPatternChanged, "AI Art Pattern Changed Notifier"},
    Row{ArtSymbolSetDetailedChange, "AI Art Symbol Set Detailed Change Notifier"},
    Row{ArtSymbolListChanged, "AI Art Symbol List Changed Notifier"},
    Row{ArtSymbolDoubleClicked, "AI Art Symbol Double Clicked Notifier"},
    Row{IsolationModeChanged, "AI Isolation Mode Changed Notifier"},
    Row{BeforeIsolationModeChanged, "AI Before Isolation Mode Changed Notifier"},
    Row{LayerDeletion, "AI Layer Deletion Notifier"},
    Row{LayerSet, "AI Layer Set Notifier"},
    Row{EditLayerListChanged, "AI Edit Layer List Changed Notifier"},
    Row{DocumentChanged, "AI Document Changed Notifier"},
    Row{DocumentAboutToClose, "AI Document About To Close Notifier"},
    Row{DocumentClosed, "AI Document Closed Notifier"},
    Row{DocumentOpened, "AI Document Opened Notifier"},
    Row{DocumentSaved, "AI Document Saved Notifier"},
    Row{DocumentNew, "AI Document New Notifier"},
    Row{DocumentColorModelChanged, "AI Document Color Model Changed Notifier"},
    Row{DocumentProfilesChanged, "AI Document Profiles Changed Notifier"},
    Row{DocumentSpotColorModeChanged, "AI Document Spot Color Mode Changed Notifier"},
    Row{DocumentRulerUnitChanged, "AI Document Ruler Unit Changed Notifier"},
    Row{DocumentWritePreprocess, "AI Document Write Preprocess Notifier"},
    Row{DocumentWritePostprocess, "AI Document Write Postprocess Notifier"},
    Row{DocumentCropAreaModified, "AI Document Crop Area Modified Notifier"},
    Row{DocumentRulerOriginChanged, "AI Document Ruler Origin Changed Notifier"},
    Row{DocumentBleedValueChanged, "AI Document Bleed Value Changed Notifier"},
    Row{DocumentTransparencyGrid, "AI Document Transparency Grid Notifier"},
    Row{ATEDocumentResourceChanged, "AI ATE Document Resource Changed Notifier"},
    Row{FileFormatDocumentOpened, "AI File Format Document Opened Notifier"},
    Row{FileFormatLinkUpdate, "AI File Format Link Update Notifier"},
    Row{DocumentViewInvalidRectChanged, "AI Document View Invalid Rect Changed Notifier"},
    Row{DocumentViewStyleChanged, "AI Document View Style Changed Notifier"},
    Row{DocumentViewStyleActiveViewChanged, "AI Document View Style Active View Changed Notifier"},
    Row{DocumentViewPlateStateChanged, "AI Document View Plate State Changed Notifier"},
    Row{DocumentViewEdgesVisibilityChange, "AI Document View Edges Visibility Change Notifier"},
    Row{DocumentViewTitleChanged, "AI Document View Title Changed Notifier"},
    Row{InvalidateByScroll, "AI Invalidate By Scroll Notifier"},
    Row{CurrentFontChanged, "AI Current Font Changed Notifier"},
    Row{CurrentFontSizeChanged, "AI Current Font Size Changed Notifier"},
    Row{FontListChanged, "AI Font List Changed Notifier"},
    Row{BeginImportCompFont, "AI Begin Import CompFont Notifier"},
    Row{EndImportCompFont, "AI End Import CompFont Notifier"},
    Row{ToolSelected, "AI Tool Selected Notifier"},
    Row{ToolDeselected, "AI Tool Deselected Notifier"},
    Row{ToolClearState, "AI Tool Clear State Notifier"},
    Row{ToolTitleChanged, "AI Tool Title Changed Notifier"},
    Row{ToolTooltipChanged, "AI Tool Tooltip Changed Notifier"},
    Row{ToolHelpIDChanged, "AI Tool Help ID Changed Notifier"},
    Row{ToolChanged, "AI Tool Changed Notifier"},
    Row{ToolWindowChanged, "AI Tool Window Changed Notifier"},
    Row{ToolSuspend, "AI Tool Suspend Notifier"},
    Row{ToolResume, "AI Tool Resume Notifier"},
    Row{TabletPointerTypeChanged, "AI Tablet Pointer Type Changed Notifier"},
    Row{ToolModifiersChanged, "AI Tool Modifiers Changed Notifier"},
    Row{ToolSuspendedBySpacebar, "AI Tool Suspended by Spacebar Notifier"},
    Row{ToolResumedBySpacebar, "AI Tool Resumed by Spacebar Notifier"},
    Row{ToolSuspendedByCmdKey, "AI Tool Suspended by Cmd Key Notifier"},
    Row{ToolResumedByCmdKey, "AI Tool Resumed by Cmd Key Notifier"},
    Row{UserToolChanged, "AI User Tool Changed Notifier"},
    Row{EyedropperDrag, "AI Eyedropper Drag Notifier"},
    Row{DrawingModeChanged, "AI Drawing Mode Changed Notifier"},
    Row{CurrentCoordinateSystemChanged, "AI Current Coordinate System Changed Notifier"},
    Row{PerspectiveParametersChanged, "AI Perspective Parameters Changed Notifier"},
    Row{PerspectiveGridVisibilityChanged, "AI Perspective Grid Visibility Changed Notifier"},
    Row{UpdatePathStyle, "AI Update PathStyle Notifier"},
    Row{PaintStyleFillStrokeChanged, "AI Paint Style Fill Stroke Changed Notifier"},
    Row{PaintStyleGradientStopChanged, "AI Paint Style Gradient Stop Changed Notifier"},
    Row{EndImportStyles, "AI End Import Styles Notifier"},
    Row{ReplaceColor, "AI Replace Color Notifier"},
    Row{TagChanged, "AI Tag Changed Notifier"},
    Row{XMLNameChanged, "AI XML Name Changed Notifier"},
    Row{AllPluginsStopping, "AI All Plug-ins Stopping Notifier"},
    Row{LaunchProjectBridge, "AI Launch Project Bridge Notifier"},
    Row{CurrentLanguageChanged, "AI Current Language Changed Notifier"},
    Row{MetadataSync, "AI Metadata Sync Notifier"},
    Row{ActionManagerPlayActionEventDone, "AI Action Manager PlayActionEvent Done Notifier"},
    Row{AlignmentKeyArtChanged, "AI Alignment Key Art Changed Notifier"},
    Row{ObjectSetChanged, "AI Object Set Changed Notifier"},
    Row{SVGFilterChanged, "AI SVG Filter Changed Notifier"},
    Row{SVGFilterAdded, "AI SVG Filter Added Notifier"},
    Row{VectorizeUpdate, "AI Vectorize Update Notifier"},
    Row{ApplicationStarted, "AI Application Started Notifier"},
    Row{ApplicationShutdown, "AI Application Shutdown Notifier"},
    Row{CurrentLayer, "AI Current Layer Notifier"},
    Row{DocumentViewChanged, "AI Document View Changed Notifier"},
    Row{LayerOptions, "AI Layer Options Notifier"},
    Row{UIBrightnessChanged, "AI UI Brightness Changed Notifier"},
    Row{ApplicationActivated, "AI Application Activated Notifier"},
    Row{ApplicationDeactivated, "AI Application Deactivated Notifier"},
    Row{AllPluginsStarted, "AI All Plug-ins Started Notifier"},
    Row{ArtSymbolSetChanged, "AI Art Symbol Set Changed Notifier"},
    Row{BeginImportStyles, "AI Begin Import Styles Notifier"},
    Row{ColorCalibrationChanged, "AI Color Calibration Changed Notifier"},
    Row{MenuChanged, "AI Menu Changed Notifier"},
    Row{NamedStyleListChanged, "AI Named Style List Changed Notifier"},
    Row{PreferenceChanged, "AI Preference Changed Notifier"},
    Row{SwatchLibraryChanged, "AI Swatch Library Changed Notifier"},
};

} // namespace

std::string_view notifierName(NotifierType type) {
    const auto row = std::find_if(kTable.begin(), kTable.end(), [type](const Row& r) { return r.type == type; });
    return row == kTable.end() ? std::string_view() : row->name;
}

NotifierType notifierType(std::string_view name) {
    const auto row = std::find_if(kTable.begin(), kTable.end(), [name](const Row& r) { return r.name == name; });
    return row == kTable.end() ? None : row->type;
}

} // namespace kzo::core
