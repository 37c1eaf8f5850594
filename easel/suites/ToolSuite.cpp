// The tool suite on the session's toolbox, and what its tools snap to.
#include "session/frame/Messenger.h"
#include "session/input/Input.h"
#include "suites/Suites.h"
#include "suites/Thunk.h"

namespace easel::suites {

template <> struct Argument<session::Tool&> {
    static session::Tool& from(AIToolHandle handle) { return found(host<session::Toolbox>().find(handle)); }
};

namespace {

using session::Tool;

session::Toolbox& toolbox() { return host<session::Toolbox>(); }

void addTool(session::Plugin& self, std::string_view name, const AIAddToolData& data, std::int32_t options,
             AIToolHandle& handle) {
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
    handle = toolbox().add(std::move(tool)).handle;
}

/// What can be changed is the tools of plug-ins.
void requirePlugins(const Tool& tool) { require(tool.owner, kRefusedErr); }

void removeTool(Tool& tool) {
    requirePlugins(tool);
    toolbox().remove(tool);
}

void getNumberByName(std::string_view name, std::int16_t& number) {
    number = required(toolbox().findByName(name)).number;
}

void getNumber(Tool& tool, std::int16_t& number) { number = tool.number; }
void getName(Tool& tool, const char*& name) { name = tool.name.c_str(); }
void getTitle(Tool& tool, const char*& title) { title = tool.title.c_str(); }
void setTitle(Tool& tool, std::string_view title) {
    requirePlugins(tool);
    toolbox().setTitle(tool, title);
}

void getTip(Tool& tool, const char*& tip) { tip = tool.tip.c_str(); }
void setTip(Tool& tool, std::string_view tip) {
    requirePlugins(tool);
    toolbox().setTip(tool, tip);
}

void getOptions(Tool& tool, std::int32_t& options) { options = tool.options; }
void setOptions(Tool& tool, std::int32_t options) {
    requirePlugins(tool);
    toolbox().setOptions(tool, options);
}

void getIcons(Tool& tool, std::int16_t& light, std::int16_t& dark) {
    light = tool.lightIcon;
    dark = tool.darkIcon;
}

void setIcons(Tool& tool, std::int16_t light, std::int16_t dark) {
    requirePlugins(tool);
    toolbox().setIcons(tool, light, dark);
}

void getSelected(AIToolHandle& handle) { handle = toolbox().current()->handle; }

void setSelected(Tool& tool) {
    if (&tool == toolbox().current()) return;
    // By handle: the tool may be gone by then.
    host<session::Messenger>().defer([handle = tool.handle] {
        if (Tool* const chosen = toolbox().find(handle)) host<session::Input>().selectTool(*chosen);
    });
}

// Snapping

void getSnapping(session::Plugin& self, std::int32_t& kinds) { kinds = self.toolSnapping; }

void setSnapping(session::Plugin& self, std::int32_t kinds) {
    require((kinds & ~(kSnapToArt | kSnapToArtBounds | kSnapToArtboard | kSnapToGrids)) == 0);
    self.toolSnapping = kinds;
}

} // namespace

void fill(AICursorSnapSuite& suite) {
    enter<&AICursorSnapSuite::GetToolSnapping, getSnapping>(suite);
    enter<&AICursorSnapSuite::SetToolSnapping, setSnapping>(suite);
}

void fill(AIToolSuite& suite) {
    enter<&AIToolSuite::AddTool, addTool>(suite);
    enter<&AIToolSuite::RemoveTool, removeTool>(suite);
    enter<&AIToolSuite::GetToolNumberFromHandle, getNumber>(suite);
    enter<&AIToolSuite::GetToolNumberFromName, getNumberByName>(suite);
    enter<&AIToolSuite::GetToolName, getName>(suite);
    enter<&AIToolSuite::GetToolTitle, getTitle>(suite);
    enter<&AIToolSuite::SetToolTitle, setTitle>(suite);
    enter<&AIToolSuite::GetTooltip, getTip>(suite);
    enter<&AIToolSuite::SetTooltip, setTip>(suite);
    enter<&AIToolSuite::GetToolOptions, getOptions>(suite);
    enter<&AIToolSuite::SetToolOptions, setOptions>(suite);
    enter<&AIToolSuite::GetToolIconIDs, getIcons>(suite);
    enter<&AIToolSuite::SetToolIconIDs, setIcons>(suite);
    enter<&AIToolSuite::GetSelectedTool, getSelected>(suite);
    enter<&AIToolSuite::SetSelectedTool, setSelected>(suite);
}

} // namespace easel::suites
