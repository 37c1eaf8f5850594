// The tool suite's calls, and the framework's share of the events.
#include "plugin/frame/BaseTool.h"

#include "hostapi/AIToolNames.h"
#include "hostapi/AIToolSuite.h"
#include "plugin/dialogs/ModalDialog.h"
#include "plugin/document/CurrentDocument.h"
#include "plugin/document/Layer.h"
#include "plugin/frame/Convert.h"

namespace kzo::plugin {

namespace {

AITool* addTool(SPPlugin* plugin, const std::string& pluginName, const BaseTool::Description& description) {
    if (!host::isWhole(description.tip)) return nullptr;
    // Only -2 means a new group or set; other negative numbers are taken for it.
    const auto joined = [](std::int16_t number) { return number < 0 ? BaseTool::kNoNumber : number; };
    const AIAddToolData data{.title = description.title.c_str(),
                             .tooltip = description.tip.c_str(),
                             .groupNumber = joined(description.group),
                             .toolsetNumber = joined(description.toolset),
                             .lightIconID = description.lightIconID,
                             .darkIconID = description.darkIconID};
    const std::string uniqueName = pluginName + " Tool " + description.title;
    return host::get<&AIToolSuite::AddTool>(plugin, uniqueName, data, description.options);
}

std::unique_ptr<HitData> hitDataAt(const std::vector<core::ArtboardPoint>& locations, std::size_t index,
                                   core::HitRequest request, double tolerance) {
    if (index >= locations.size()) return nullptr;
    return std::make_unique<HitData>(nullptr, locations[index], request, tolerance, true);
}

} // namespace

BaseTool::BaseTool(SPPlugin* plugin, const std::string& pluginName, const Description& description)
    : Object(addTool(plugin, pluginName, description)),
      lightIconID_(description.lightIconID),
      darkIconID_(description.darkIconID) {}

// Identity

std::int16_t BaseTool::number() const { return getOr<&AIToolSuite::GetToolNumberFromHandle>(kNoNumber); }
std::string BaseTool::name() const { return get<&AIToolSuite::GetToolName>(); }
std::string BaseTool::title() const { return get<&AIToolSuite::GetToolTitle>(); }
void BaseTool::setTitle(const std::string& title) { call<&AIToolSuite::SetToolTitle>(title); }
std::string BaseTool::tip() const { return get<&AIToolSuite::GetTooltip>(); }
void BaseTool::setTip(const std::string& tip) { call<&AIToolSuite::SetTooltip>(tip); }

void BaseTool::setLightIconID(std::int16_t id) {
    if (call<&AIToolSuite::SetToolIconIDs>(id, darkIconID_)) lightIconID_ = id;
}

void BaseTool::setDarkIconID(std::int16_t id) {
    if (call<&AIToolSuite::SetToolIconIDs>(lightIconID_, id)) darkIconID_ = id;
}

core::ToolOptions BaseTool::options() const { return get<&AIToolSuite::GetToolOptions, core::ToolOptions>(); }
void BaseTool::setOptions(core::ToolOptions options) { call<&AIToolSuite::SetToolOptions>(options); }
bool BaseTool::selected() const { return handle() && host::get<&AIToolSuite::GetSelectedTool>() == handle(); }
void BaseTool::setSelected() { call<&AIToolSuite::SetSelectedTool>(); }

void BaseTool::destroy() { remove<&AIToolSuite::RemoveTool>(); }

// Events

std::int32_t BaseTool::handleEvent(ToolEvent event) {
    std::int32_t answer = 0;
    switch (event) {
    case ToolEvent::Track: answer = trackCursor(); break;
    case ToolEvent::MouseDown: answer = mouseDown(); break;
    case ToolEvent::Drag: answer = mouseDrag(); break;
    case ToolEvent::MouseUp: answer = mouseUp(); break;
    default: break;
    }
    runCallback(event);
    if (event == ToolEvent::Edit && autoShowPrefsDialog && prefsDialog && handle())
        std::shared_ptr(prefsDialog)->show();
    return answer;
}

std::int32_t BaseTool::trackCursor() {
    AILayer* const current = CurrentDocument().currentLayer();
    if (!current) return 0;
    const Layer layer(current);
    if (!layer.editable()) return kAILayerNotEditableRemark;
    return layer.visible() ? 0 : kAILayerNotVisibleRemark;
}

std::int32_t BaseTool::mouseDown() {
    wasDragged_ = false;
    mouseDownLocs_.push_back(cursor_.location);
    return trackCursor();
}

std::int32_t BaseTool::mouseDrag() {
    wasDragged_ = true;
    return trackCursor();
}

std::int32_t BaseTool::mouseUp() {
    mouseUpLocs_.push_back(cursor_.location);
    return trackCursor();
}

void BaseTool::resetCursorLocs() {
    mouseDownLocs_.clear();
    mouseUpLocs_.clear();
    wasDragged_ = false;
}

// Hit tests

std::unique_ptr<HitData> BaseTool::mouseDownHitData(std::size_t index, core::HitRequest request,
                                                    double tolerance) const {
    return hitDataAt(mouseDownLocs_, index, request, tolerance);
}

std::unique_ptr<HitData> BaseTool::mouseUpHitData(std::size_t index, core::HitRequest request, double tolerance) const {
    return hitDataAt(mouseUpLocs_, index, request, tolerance);
}

std::unique_ptr<HitData> BaseTool::cursorHitData(core::HitRequest request, double tolerance) const {
    return std::make_unique<HitData>(nullptr, cursor_.location, request, tolerance, true);
}

// The host's own tools

std::int16_t builtinToolNumber(core::BuiltinTool tool) {
    constexpr int kStep = 10;
    const int value = static_cast<int>(tool);
    const int index = value / kStep - 1;
    if (value % kStep != 0 || index < 0 || index >= kAIBuiltinToolCount) return BaseTool::kNoNumber;
    return host::getOr<&AIToolSuite::GetToolNumberFromName>(BaseTool::kNoNumber, kAIBuiltinTools[index]);
}

} // namespace kzo::plugin
