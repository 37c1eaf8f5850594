// A handle on one item of the host's menus.
#pragma once

#include <memory>
#include <string>

#include "core/values/BuiltinMenuGroup.h"
#include "core/values/Callback.h"

struct _t_MenuItemOpaque;

namespace kzo::plugin {
class MenuItem;
}

namespace kzo::core {

class MenuGroup;

/// Copies denote the same item, which stays in its menu until `destroy` or shut-down; then all of them are empty, as
/// they are when its group goes. Operations on an empty handle do nothing and answer false, an empty text or null.
class MenuItem {
  public:
    // Construction; empty when the host refuses or the group is empty
    MenuItem(); ///< empty
    MenuItem(const MenuGroup& group, const std::string& text, const Callback& callback);
    MenuItem(BuiltinMenuGroup group, const std::string& text, const Callback& callback);
    static MenuItem Divider(const MenuGroup& group); ///< a line between items
    /// An item that is there already. Only of the plug-in's own does the callback run.
    explicit MenuItem(_t_MenuItemOpaque* handle);
    explicit MenuItem(std::shared_ptr<plugin::MenuItem> impl) : impl_(std::move(impl)) {}

    // Identity
    [[nodiscard]] bool isEmpty() const;
    [[nodiscard]] bool operator==(const MenuItem& other) const {
        return aiMenuItemHandle() == other.aiMenuItemHandle();
    }
    [[nodiscard]] _t_MenuItemOpaque* aiMenuItemHandle() const;
    [[nodiscard]] bool isDivider() const;
    [[nodiscard]] bool opensGroup() const; ///< it cannot be chosen, and goes with the group
    [[nodiscard]] MenuGroup parent() const;

    // State
    [[nodiscard]] std::string text() const;
    void setText(const std::string& text);
    [[nodiscard]] bool enabled() const;
    void setEnabled(bool enabled);
    [[nodiscard]] bool checked() const;
    void setChecked(bool checked);
    [[nodiscard]] Callback* callback() const;
    void setCallback(const Callback& callback);

    void destroy(); ///< takes the item out of its menu

  private:
    [[nodiscard]] plugin::MenuItem* impl() const; ///< null when empty

    std::shared_ptr<plugin::MenuItem> impl_;
};

} // namespace kzo::core
