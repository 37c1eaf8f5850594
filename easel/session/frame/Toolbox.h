// The toolbox: the host's own tools and those that plug-ins added, in their groups, and which one is current.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "hostapi/AITool.h"
#include "session/base/Handles.h"
#include "session/frame/BuiltinTools.h"
#include "session/frame/Plugins.h"

namespace easel::session {

struct Tool {
    AIToolHandle handle = nullptr;
    Plugin* owner = nullptr; ///< null for the host's own, which are `builtin`
    std::unique_ptr<BuiltinTool> builtin;
    std::string name; ///< unique
    std::string title;
    std::string tip;
    std::int16_t number = 0;
    std::int16_t group = kNoToolNumber;   ///< number of the tool that opened the group
    std::int16_t toolset = kNoToolNumber; ///< number of the tool that opened the slot
    std::int16_t lightIcon = 0;
    std::int16_t darkIcon = 0;
    std::int32_t options = 0;
};

/// How often the tools have changed, to be compared with an earlier count.
struct ToolChanges {
    unsigned members = 0; ///< came or went
    unsigned titles = 0;
    unsigned tips = 0;
    unsigned looks = 0; ///< icons and options
};

/// Begins with the host's own tools, which cannot be changed or removed: that throws HostError. The Selection Tool is
/// current at first, and again when the current tool goes.
class Toolbox {
  public:
    Toolbox();

    /// Numbers the tool and opens a group or slot of its own where it asks for none. Throws HostError when the name is
    /// taken or a number is no tool's.
    Tool& add(Tool tool);
    void remove(Tool& tool);
    template <class Predicate> void removeIf(Predicate predicate) {
        ++changes_.members;
        if (predicate(*current_)) current_ = selectionTool_;
        tools_.removeIf(predicate);
    }

    [[nodiscard]] Tool* find(AIToolHandle handle) const { return tools_.find(handle); }
    [[nodiscard]] Tool* findByTitle(std::string_view title) const;
    [[nodiscard]] Tool* findByName(std::string_view name) const;
    [[nodiscard]] std::vector<Tool*> all() const { return tools_.all(); }
    [[nodiscard]] Tool* current() const { return current_; } ///< never null

    void setCurrent(Tool& tool) { current_ = &tool; }
    /// That the current tool draws along, in degrees; if it tells none, those of the first tool that does, else those
    /// of an isometric view.
    [[nodiscard]] const std::vector<double>& axes() const;

    void setTitle(Tool& tool, std::string_view title);
    void setTip(Tool& tool, std::string_view tip);
    void setIcons(Tool& tool, std::int16_t light, std::int16_t dark);
    void setOptions(Tool& tool, std::int32_t options);
    [[nodiscard]] const ToolChanges& changes() const { return changes_; }

  private:
    Tool& addOwn(const char* name, std::unique_ptr<BuiltinTool> behaviour);

    Registry<Tool, AIToolHandle> tools_;
    ToolChanges changes_;
    std::int16_t lastNumber_ = 0;
    Tool* selectionTool_;
    Tool* current_;
};

} // namespace easel::session
