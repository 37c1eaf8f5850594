// The tool suite on the session's toolbox, what its tools snap to, and along which axes they draw.
#include <algorithm>
#include <cmath>

#include "hostapi/AICursorSnapSuite.h"
#include "hostapi/AIToolSuite.h"
#include "hostapi/StageAxesSuite.h"
#include "session/frame/Messenger.h"
#include "session/frame/Toolbox.h"
#include "session/input/Input.h"
#include "suites/Enter.h"

namespace easel::suites {

using session::Plugin;
using session::Tool;
using session::Toolbox;

template <> struct Argument<Tool&> {
    static Tool& from(AIToolHandle handle) { return found(host<Toolbox>().find(handle)); }
};

namespace {

Tool& addTool(Plugin& self, std::string_view name, const AIAddToolData& data, std::int32_t options) {
    Tool tool;
    tool.owner = &self;
    tool.name = name;
    tool.title = &required(data.title);
    tool.tip = &required(data.tooltip);
    tool.group = data.groupNumber;
    tool.toolset = data.toolsetNumber;
    tool.lightIcon = data.lightIconID;
    tool.darkIcon = data.darkIconID;
    tool.options = options;
    return host<Toolbox>().add(std::move(tool));
}

void getIcons(Tool& tool, std::int16_t& light, std::int16_t& dark) {
    light = tool.lightIcon;
    dark = tool.darkIcon;
}

void setSelected(Tool& tool) {
    if (&tool == host<Toolbox>().current()) return;
    // By handle: the tool may be gone by then.
    host<session::Messenger>().defer([handle = tool.handle] {
        if (Tool* const chosen = host<Toolbox>().find(handle)) host<session::Input>().selectTool(*chosen);
    });
}

void setSnapping(Plugin& self, std::int32_t kinds) {
    require((kinds & ~(kSnapToArt | kSnapToArtBounds | kSnapToArtboard | kSnapToGrids)) == 0);
    self.toolSnapping = kinds;
}

void setDrawingAxes(Plugin& self, const AIReal* degrees, std::int32_t count) {
    require(count >= 0 && count <= kStageMostAxes && (degrees || count == 0));
    require(std::all_of(degrees, degrees + count, [](AIReal each) { return std::isfinite(each); }));
    self.axes.assign(degrees, degrees + count);
}

} // namespace

template <> void fill(AICursorSnapSuite& suite) {
    enter<&AICursorSnapSuite::GetToolSnapping, &Plugin::toolSnapping>(suite);
    enter<&AICursorSnapSuite::SetToolSnapping, setSnapping>(suite);
}

template <> void fill(StageAxesSuite& suite) { enter<&StageAxesSuite::SetDrawingAxes, setDrawingAxes>(suite); }

template <> void fill(AIToolSuite& suite) {
    enter<&AIToolSuite::AddTool, addTool>(suite);
    enter<&AIToolSuite::RemoveTool, &Toolbox::remove>(suite);
    enter<&AIToolSuite::GetToolNumberFromHandle, &Tool::number>(suite);
    enter<&AIToolSuite::GetToolNumberFromName>(
        suite, [](std::string_view name) { return required(host<Toolbox>().findByName(name)).number; });
    enter<&AIToolSuite::GetToolName, &Tool::name>(suite);
    enter<&AIToolSuite::GetToolTitle, &Tool::title>(suite);
    enter<&AIToolSuite::SetToolTitle, &Toolbox::setTitle>(suite);
    enter<&AIToolSuite::GetTooltip, &Tool::tip>(suite);
    enter<&AIToolSuite::SetTooltip, &Toolbox::setTip>(suite);
    enter<&AIToolSuite::GetToolOptions, &Tool::options>(suite);
    enter<&AIToolSuite::SetToolOptions, &Toolbox::setOptions>(suite);
    enter<&AIToolSuite::GetToolIconIDs, getIcons>(suite);
    enter<&AIToolSuite::SetToolIconIDs, &Toolbox::setIcons>(suite);
    enter<&AIToolSuite::GetSelectedTool, &Toolbox::current>(suite);
    enter<&AIToolSuite::SetSelectedTool, setSelected>(suite);
}

} // namespace easel::suites
