// Numbering and grouping of tools.
#include "session/frame/Toolbox.h"

#include <algorithm>

#include "hostapi/AIToolNames.h"
#include "session/base/HostError.h"

namespace easel::session {

namespace {

/// What can be changed is the tools of plug-ins.
void requirePlugins(const Tool& tool) { require(tool.owner, kRefusedErr); }

/// The same again is no change.
template <class Field, class Value> void change(Field& field, Value value, unsigned& count) {
    if (field == value) return;
    field = value;
    ++count;
}

} // namespace

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
        require(at != known.end());
        return *at;
    };
    require(!findByName(tool.name));
    // A tool joins the group or slot of the tool it names; those are known by the tool that opened them.
    const std::int16_t number = static_cast<std::int16_t>(lastNumber_ + 1);
    tool.group = tool.group == kNoToolNumber ? number : numbered(tool.group)->group;
    tool.toolset = tool.toolset == kNoToolNumber ? number : numbered(tool.toolset)->toolset;
    tool.number = lastNumber_ = number;
    ++changes_.members;
    return tools_.add(std::make_unique<Tool>(std::move(tool)));
}

void Toolbox::remove(Tool& tool) {
    requirePlugins(tool);
    if (current_ == &tool) current_ = selectionTool_;
    ++changes_.members;
    tools_.remove(tool);
}

const std::vector<double>& Toolbox::axes() const {
    static const std::vector<double> kIsometric{30, 150, 90};
    const auto told = [](const Tool& tool) { return tool.owner && !tool.owner->axes.empty(); };
    if (told(*current_)) return current_->owner->axes;
    for (const Tool* const tool : tools_.all())
        if (told(*tool)) return tool->owner->axes;
    return kIsometric;
}

void Toolbox::setTitle(Tool& tool, std::string_view title) {
    requirePlugins(tool);
    change(tool.title, title, changes_.titles);
}

void Toolbox::setTip(Tool& tool, std::string_view tip) {
    requirePlugins(tool);
    change(tool.tip, tip, changes_.tips);
}

void Toolbox::setOptions(Tool& tool, std::int32_t options) {
    requirePlugins(tool);
    change(tool.options, options, changes_.looks);
}

void Toolbox::setIcons(Tool& tool, std::int16_t light, std::int16_t dark) {
    requirePlugins(tool);
    change(tool.lightIcon, light, changes_.looks);
    change(tool.darkIcon, dark, changes_.looks);
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
