// The menu suite's calls on items.
#include "plugin/frame/MenuItem.h"

#include "hostapi/AIMenuSuite.h"
#include "plugin/host/HostCall.h"
#include "plugin/host/RefCountMap.h"

namespace kzo::plugin {

MenuItem::MenuItem(_t_MenuItemOpaque* handle)
    : Object(handle), opensGroup_(get<&AIMenuSuite::GetMenuItemSubGroup>() != nullptr) {}

std::shared_ptr<MenuItem> MenuItem::add(SPPlugin* plugin, const std::string& group, const std::string& text,
                                        std::int32_t options, const core::CallbackSlot& callback) {
    if (group.empty()) return nullptr;
    _t_MenuItemOpaque* const handle = host::get<&AIMenuSuite::AddMenuItem>(plugin, group, text, options);
    return share<MenuItem>(handle, [&] { return MenuItem(handle, callback); });
}

std::shared_ptr<MenuItem> MenuItem::add(SPPlugin* plugin, const std::string& group, const std::string& text,
                                        const core::CallbackSlot& callback) {
    return add(plugin, group, text, 0, callback);
}

std::shared_ptr<MenuItem> MenuItem::addDivider(SPPlugin* plugin, const std::string& group) {
    return add(plugin, group, "", kMenuItemDividerOption, {});
}

std::string MenuItem::text() const { return get<&AIMenuSuite::GetMenuItemText>(); }
void MenuItem::setText(const std::string& text) { call<&AIMenuSuite::SetMenuItemText>(text); }
bool MenuItem::enabled() const { return get<&AIMenuSuite::GetMenuItemEnabled>(); }
void MenuItem::setEnabled(bool enabled) { call<&AIMenuSuite::SetMenuItemEnabled>(enabled); }
bool MenuItem::checked() const { return get<&AIMenuSuite::GetMenuItemChecked>(); }
void MenuItem::setChecked(bool checked) { call<&AIMenuSuite::SetMenuItemChecked>(checked); }
bool MenuItem::isDivider() const { return (get<&AIMenuSuite::GetMenuItemOptions>() & kMenuItemDividerOption) != 0; }
_t_MenuGroupOpaque* MenuItem::parent() const { return get<&AIMenuSuite::GetMenuItemGroup>(); }

void MenuItem::destroy() {
    _t_MenuItemOpaque* const handle = release();
    if (!handle) return;
    MapOf<MenuItem>::forget(handle);
    host::call<&AIMenuSuite::RemoveMenuItem>(handle);
}

} // namespace kzo::plugin
