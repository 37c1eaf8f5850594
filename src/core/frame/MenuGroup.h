// A handle on one group of items in the host's menus.
#pragma once

#include <string>
#include <vector>

#include "core/Handle.h"
#include "core/frame/MenuItem.h"
#include "core/values/BuiltinMenuGroup.h"

struct _t_MenuGroupOpaque;

namespace kzo::plugin {
class __IntMenuGroupData;
}

namespace kzo::core {

extern template class Handle<plugin::__IntMenuGroupData>;

/// Operations on an empty handle do nothing and return false, an empty text, an empty handle or null.
class MenuGroup : public Handle<plugin::__IntMenuGroupData> {
  public:
    class Child;

    // Construction
    MenuGroup() = default; ///< empty
    using Handle::Handle;
    /// Makes a group near one of the host's own, which the host calls "KZO TEXT". Without `merged` it is a section of
    /// its own below that group. With `merged` it is a part of it: last or, with `onTop`, first; and with `subMenu` an
    /// item with the text opens it. `sorted` keeps items in the order of their texts. Empty when the host refuses, and
    /// for a value that stands for no group.
    MenuGroup(BuiltinMenuGroup group, const std::string& text, bool sorted, bool merged, bool subMenu, bool onTop);
    /// The same near a group of the plug-in's.
    MenuGroup(const MenuGroup& parent, const std::string& text, bool sorted, bool merged, bool subMenu, bool onTop);
    explicit MenuGroup(_t_MenuGroupOpaque* handle); ///< a group that is there already

    // Identity
    [[nodiscard]] _t_MenuGroupOpaque* aiMenuGroup() const;
    [[nodiscard]] _t_MenuItemOpaque* aiMenuItemHandle() const; ///< the item that opens the group, or null
    [[nodiscard]] std::string __name() const;                  ///< in the host; items are added by it

    // State
    [[nodiscard]] std::string text() const; ///< without the prefix; of the host's own groups their name
    void setText(const std::string& text);  ///< the host's name of the group stays
    [[nodiscard]] bool enabled() const;     ///< whether its items can be chosen
    void setEnabled(bool enabled);
    [[nodiscard]] bool sorted() const;
    void setSorted(bool sorted);

    // Tree
    [[nodiscard]] bool isPartial() const;   ///< merged into another
    [[nodiscard]] MenuGroup parent() const; ///< that it is merged into; empty for a section of its own
    [[nodiscard]] std::vector<Child> children() const;

    /// Takes the group out of the menus with all that it holds, unless something of another plug-in is in it. The
    /// handle is empty in any case.
    void destroy();
};

/// What a group holds at one place: an item or a group.
class MenuGroup::Child {
  public:
    explicit Child(MenuItem item) : item_(std::move(item)) {}
    explicit Child(MenuGroup group) : group_(std::move(group)) {}

    [[nodiscard]] bool isGroup() const { return !group_.isEmpty(); }
    [[nodiscard]] const MenuItem& item() const { return item_; }    ///< empty for a group
    [[nodiscard]] const MenuGroup& group() const { return group_; } ///< empty for an item

  private:
    MenuItem item_;
    MenuGroup group_;
};

} // namespace kzo::core
