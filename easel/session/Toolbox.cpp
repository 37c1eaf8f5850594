// Numbering and grouping of tools.
#include "session/Toolbox.h"

#include <algorithm>

#include "hostapi/AIToolNames.h"
#include "session/HostError.h"

namespace easel::session {

Toolbox::Toolbox() : selectionTool_(&addOwn(kAISelectionTool, makeSelectionTool())), current_(selectionTool_) {
    addOwn(kAIDirectSelectionTool, makeDirectSelectionTool());
}

Tool& Toolbox::addOwn(const char* name, std::unique_ptr<BuiltinTool> behaviour) {
    Tool tool;
    tool.builtin = std::move(behaviour);
    tool.name = tool.title = tool.tip = name;
    tool.options = kToolWantsBufferedDraggingOption;
    return add(std::move(tool));
}

Tool& Toolbox::add(Tool tool) {
    const std::vector<Tool*> known = tools_.all();
    const auto numbered = [&](std::int16_t number) {
        const auto at = std::find_if(known.begin(), known.end(), [&](const Tool* t) { return t->number == number; });
        if (at == known.end()) throw HostError{kBadParameterErr};
        return *at;
    };
    if (findByName(tool.name)) throw HostError{kBadParameterErr};
    // A tool joins the group or slot of the tool it names; those are known by the tool that opened them.
    const std::int16_t number = static_cast<std::int16_t>(lastNumber_ + 1);
    tool.group = tool.group == kNoToolNumber ? number : numbered(tool.group)->group;
    tool.toolset = tool.toolset == kNoToolNumber ? number : numbered(tool.toolset)->toolset;
    tool.number = lastNumber_ = number;
    return tools_.add(std::make_unique<Tool>(std::move(tool)));
}

void Toolbox::remove(Tool& tool) {
    if (current_ == &tool) current_ = selectionTool_;
    tools_.remove(tool);
}

Tool* Toolbox::findByTitle(std::string_view title) const {
    for (Tool* tool : tools_.all())
        if (tool->title == title) return tool;
    return nullptr;
}

Tool* Toolbox::findByName(std::string_view name) const {
    for (Tool* tool : tools_.all())
        if (tool->name == name) return tool;
    return nullptr;
}

} // namespace easel::session
