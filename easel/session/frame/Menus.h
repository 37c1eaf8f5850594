// The menus: groups of the host and of plug-ins, and the items in them. Sends no messages itself (see Session).
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "hostapi/AIMenuSuite.h"
#include "session/base/Handles.h"
#include "session/frame/Plugins.h"

namespace easel::session {

struct MenuGroup;

struct MenuItem {
    AIMenuItemHandle handle = nullptr;
    Plugin* owner = nullptr;
    MenuGroup* group = nullptr; ///< that it is in
    MenuGroup* opens = nullptr; ///< null for an item that does not
    std::string text;
    std::int32_t options = 0;
    bool enabled = true;
    bool checked = false;

    [[nodiscard]] bool isDivider() const { return (options & kMenuItemDividerOption) != 0; }
};

/// What a group contains at one place: an item or a group, the other is null.
struct MenuChild {
    MenuItem* item = nullptr;
    MenuGroup* group = nullptr;

    [[nodiscard]] bool operator==(const MenuChild&) const = default;
};

struct MenuGroup {
    AIMenuGroup handle = nullptr;
    Plugin* owner = nullptr;     ///< null for the host's own
    MenuGroup* parent = nullptr; ///< that it is part of; null for a section of its own
    MenuItem* opener = nullptr;  ///< null for a group without
    std::string name;            ///< unique
    std::string text;
    std::int32_t options = 0;
    bool enabled = true;
    std::vector<MenuChild> children; ///< in the order shown
};

class Menus {
  public:
    Menus(); ///< with the host's own groups, which are empty

    // Groups. Wrong names and options, and removals that cannot be, throw HostError.
    MenuGroup& addGroup(Plugin& owner, std::string_view name, std::string_view text, std::string_view nearGroup,
                        std::int32_t options);
    void removeGroup(MenuGroup& group); ///< with all that it contains
    void setText(MenuGroup& group, std::string_view text);
    void setOptions(MenuGroup& group, std::int32_t options);
    void setEnabled(MenuGroup& group, bool enabled) { change(group.enabled, enabled); }
    [[nodiscard]] MenuGroup* find(AIMenuGroup handle) const { return groups_.find(handle); }
    [[nodiscard]] MenuGroup* findGroup(std::string_view name) const;
    /// All groups, each behind the one that it was placed near.
    [[nodiscard]] const std::vector<MenuGroup*>& groups() const { return order_; }

    // Items
    MenuItem& addItem(Plugin& owner, std::string_view group, std::string_view text, std::int32_t options);
    void removeItem(MenuItem& item);
    void setText(MenuItem& item, std::string_view text);
    void setEnabled(MenuItem& item, bool enabled) { change(item.enabled, enabled); }
    void setChecked(MenuItem& item, bool checked) { change(item.checked, checked); }
    [[nodiscard]] MenuItem* find(AIMenuItemHandle handle) const { return items_.find(handle); }
    /// The first, second ... of this text in the order of `groups`; unless `group` is empty of those in the group of
    /// that name and then in those of that text.
    [[nodiscard]] MenuItem* findItem(std::string_view text, std::string_view group = {}, std::size_t number = 1) const;
    /// Which of those of its text in its group an item is, from 1.
    [[nodiscard]] static std::size_t numberOf(const MenuItem& item);
    [[nodiscard]] std::vector<MenuItem*> items() const { return items_.all(); }
    /// Whether the user can choose the item: it, every group around it and their openers are enabled.
    [[nodiscard]] static bool isEnabled(const MenuItem& item);

    /// How often something has changed that the user could see, to be compared with an earlier count.
    [[nodiscard]] unsigned changes() const { return changes_; }

    /// Drops what the plug-in had added. A group that contains something of another plug-in becomes that one's.
    void forget(const Plugin& plugin);

  private:
    [[nodiscard]] static std::vector<MenuChild> contents(const MenuGroup& group);
    [[nodiscard]] static Plugin* otherOwner(const MenuGroup& group);
    static void detach(MenuGroup& group, MenuChild child);
    static void sort(MenuGroup& group);
    void drop(MenuGroup& group);
    void drop(MenuItem& item) {
        ++changes_;
        items_.remove(item);
    }
    /// The same again is no change: plug-ins bring their items up to date whenever menus are shown.
    template <class Field, class Value> void change(Field& field, Value value) {
        if (field == value) return;
        field = value;
        ++changes_;
    }

    Registry<MenuGroup, AIMenuGroup> groups_;
    Registry<MenuItem, AIMenuItemHandle> items_;
    std::vector<MenuGroup*> order_;
    unsigned changes_ = 0;
};

} // namespace easel::session
