// One group of the host's menus: the calls behind core::MenuGroup.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/values/BuiltinMenuGroup.h"
#include "plugin/host/Object.h"

struct SPPlugin;
struct _t_MenuGroupOpaque;
struct _t_MenuItemOpaque;

namespace kzo::plugin {

/// The host's name of one of its own groups; empty for a value that stands for none.
[[nodiscard]] std::string builtinGroupName(core::BuiltinMenuGroup group);

[[nodiscard]] std::size_t menuGroupCount();
[[nodiscard]] _t_MenuGroupOpaque* menuGroupAt(std::size_t index); ///< null where there is none

/// How a new group stands to the one near by.
struct MenuGroupPlace {
    bool sorted = false;
    bool merged = false;
    bool subMenu = false;
    bool onTop = false;
};

/// What a group holds at one place; one of the two is null.
struct MenuGroupEntry {
    _t_MenuItemOpaque* item = nullptr;
    _t_MenuGroupOpaque* group = nullptr;
};

class __IntMenuGroupData : public host::Object<_t_MenuGroupOpaque> {
  public:
    using Object::Object;

    /// Adds a group under the name "KZO TEXT". Null when the host refuses, or for an empty name of the group near by.
    [[nodiscard]] static _t_MenuGroupOpaque* create(SPPlugin* plugin, const std::string& nearGroup,
                                                    const std::string& text, const MenuGroupPlace& place);

    [[nodiscard]] _t_MenuItemOpaque* opener() const; ///< the item that opens the group, or null
    [[nodiscard]] std::string name() const;
    [[nodiscard]] std::string text() const;
    void setText(const std::string& text);
    [[nodiscard]] bool enabled() const;
    void setEnabled(bool enabled);
    [[nodiscard]] bool sorted() const;
    void setSorted(bool sorted);
    [[nodiscard]] bool isPartial() const;
    [[nodiscard]] _t_MenuGroupOpaque* parent() const; ///< null for a section of its own
    [[nodiscard]] std::vector<MenuGroupEntry> children() const;

    /// Removes the group from the host. It is without a handle whatever the host returns; what it held is too if the
    /// host did it.
    void destroy();

  private:
    [[nodiscard]] std::int32_t options() const;
};

} // namespace kzo::plugin
