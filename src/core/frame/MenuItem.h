// A handle on one item of the host's menus.
#pragma once

#include <string>

#include "core/Handle.h"
#include "core/values/BuiltinMenuGroup.h"
#include "core/values/Callback.h"

struct _t_MenuItemOpaque;

namespace kzo::plugin {
class MenuItem;
}

namespace kzo::core {

class MenuGroup;

extern template class Handle<plugin::MenuItem>;

/// The plug-in's own item stays in its menu until `destroy` or shut-down, or until its group goes. Operations on an
/// empty handle do nothing and return false, an empty text or null.
class MenuItem : public Handle<plugin::MenuItem> {
  public:
    // Construction; empty when the host refuses or the group is empty
    MenuItem() = default; ///< empty
    using Handle::Handle;
    MenuItem(const MenuGroup& group, const std::string& text, const Callback& callback);
    MenuItem(BuiltinMenuGroup group, const std::string& text, const Callback& callback);
    static MenuItem Divider(const MenuGroup& group); ///< a line between items
    /// An item that is there already. Only of the plug-in's own does the callback run.
    explicit MenuItem(_t_MenuItemOpaque* handle);

    // Identity
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
};

} // namespace kzo::core
