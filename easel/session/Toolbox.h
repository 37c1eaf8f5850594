// The toolbox: the tools that plug-ins added, in their groups, and which one is current.
#pragma once

#include <string>
#include <string_view>

#include "hostapi/AIToolSuite.h"
#include "session/Handles.h"
#include "session/Plugins.h"

namespace easel::session {

struct Tool {
    AIToolHandle handle = nullptr;
    Plugin* owner = nullptr;
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

class Toolbox {
  public:
    /// Numbers the tool and opens a group or slot of its own where it asks for none. Throws HostError when the name is
    /// taken or a number is no tool's.
    Tool& add(Tool tool);
    void remove(Tool& tool);
    template <class Predicate> void removeIf(Predicate predicate) {
        if (current_ && predicate(*current_)) current_ = nullptr;
        tools_.removeIf(predicate);
    }

    [[nodiscard]] Tool* find(AIToolHandle handle) const { return tools_.find(handle); }
    [[nodiscard]] Tool* findByTitle(std::string_view title) const;
    [[nodiscard]] std::vector<Tool*> all() const { return tools_.all(); }
    [[nodiscard]] Tool* current() const { return current_; }

    void setCurrent(Tool* tool) { current_ = tool; }

  private:
    Registry<Tool, AIToolHandle> tools_;
    std::int16_t lastNumber_ = 0;
    Tool* current_ = nullptr;
};

} // namespace easel::session
