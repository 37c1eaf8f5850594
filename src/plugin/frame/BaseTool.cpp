// The tool suite's calls, and the framework's share of the events.
#include "plugin/frame/BaseTool.h"

#include <utility>

#include "hostapi/AIToolNames.h"
#include "hostapi/AIToolSuite.h"
#include "plugin/document/CurrentDocument.h"
#include "plugin/document/Layer.h"
#include "plugin/host/HostCall.h"

namespace kzo::plugin {

namespace {

constexpr std::int32_t layerNotEditable = 1000;
constexpr std::int32_t layerNotVisible = 1001;

/// The host's option bits have our values; others than these are dropped.
constexpr std::int32_t knownOptions = 255;

std::unique_ptr<HitData> hitDataAt(const std::vector<ArtboardPoint>& locations, std::size_t index,
                                   core::HitRequest request, double tolerance) {
    if (index >= locations.size()) return nullptr;
    return std::make_unique<HitData>(nullptr, core::ArtboardPoint(locations[index]), request, tolerance, true);
}

} // namespace

BaseTool::BaseTool(SPPlugin* plugin, const std::string& pluginName, const Description& description)
    : lightIconID_(description.lightIconID), darkIconID_(description.darkIconID) {
    const std::string uniqueName = pluginName + " Tool " + description.title;
    // Only -2 means a new group or set; other negative numbers are taken for it.
    const auto joined = [](std::int16_t number) { return number < 0 ? noNumber : number; };
    const AIAddToolData data{.title = description.title.c_str(),
                             .tooltip = description.tip.c_str(),
                             .groupNumber = joined(description.group),
                             .toolsetNumber = joined(description.toolset),
                             .lightIconID = description.lightIconID,
                             .darkIconID = description.darkIconID};
    handle_ = host::ask<&AIToolSuite::AddTool>(AIToolHandle{}, plugin, uniqueName.c_str(), &data,
                                               bits(description.options) & knownOptions);
}

// Identity

std::int16_t BaseTool::number() const { return host::ask<&AIToolSuite::GetToolNumberFromHandle>(noNumber, handle_); }
std::string BaseTool::name() const { return host::ask<&AIToolSuite::GetToolName>("", handle_); }
std::string BaseTool::title() const { return host::ask<&AIToolSuite::GetToolTitle>("", handle_); }
void BaseTool::setTitle(const std::string& title) { host::call<&AIToolSuite::SetToolTitle>(handle_, title.c_str()); }
std::string BaseTool::tip() const { return host::ask<&AIToolSuite::GetTooltip>("", handle_); }
void BaseTool::setTip(const std::string& tip) { host::call<&AIToolSuite::SetTooltip>(handle_, tip.c_str()); }

void BaseTool::setLightIconID(std::int16_t id) {
    if (host::call<&AIToolSuite::SetToolIconIDs>(handle_, id, darkIconID_)) lightIconID_ = id;
}

void BaseTool::setDarkIconID(std::int16_t id) {
    if (host::call<&AIToolSuite::SetToolIconIDs>(handle_, lightIconID_, id)) darkIconID_ = id;
}

core::ToolOptions BaseTool::options() const {
    return core::ToolOptions(host::ask<&AIToolSuite::GetToolOptions>(std::int32_t{0}, handle_) & knownOptions);
}

void BaseTool::setOptions(core::ToolOptions options) {
    host::call<&AIToolSuite::SetToolOptions>(handle_, bits(options) & knownOptions);
}

bool BaseTool::selected() const {
    return handle_ && host::ask<&AIToolSuite::GetSelectedTool>(AIToolHandle{}) == handle_;
}

void BaseTool::setSelected() { host::call<&AIToolSuite::SetSelectedTool>(handle_); }

void BaseTool::destroy() {
    if (AITool* const handle = std::exchange(handle_, nullptr)) host::call<&AIToolSuite::RemoveTool>(handle);
}

// Events

std::int32_t BaseTool::handle(ToolEvent event) {
    std::int32_t answer = 0;
    switch (event) {
    case ToolEvent::Track: answer = trackCursor(); break;
    case ToolEvent::MouseDown: answer = mouseDown(); break;
    case ToolEvent::Drag: answer = mouseDrag(); break;
    case ToolEvent::MouseUp: answer = mouseUp(); break;
    default: break;
    }
    runCallback(event);
    return answer;
}

std::int32_t BaseTool::trackCursor() {
    AILayer* const current = CurrentDocument().currentLayer();
    if (!current) return 0;
    const Layer layer(current);
    if (!layer.editable()) return layerNotEditable;
    return layer.visible() ? 0 : layerNotVisible;
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
    return std::make_unique<HitData>(nullptr, core::ArtboardPoint(cursor_.location), request, tolerance, true);
}

// The host's own tools

std::int16_t builtinToolNumber(core::BuiltinTool tool) {
    constexpr int step = 10;
    const int value = static_cast<int>(tool);
    const int index = value / step - 1;
    if (value % step != 0 || index < 0 || index >= kAIBuiltinToolCount) return BaseTool::noNumber;
    return host::ask<&AIToolSuite::GetToolNumberFromName>(BaseTool::noNumber, kAIBuiltinTools[index]);
}

} // namespace kzo::plugin
