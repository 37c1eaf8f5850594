// The menu suite's calls on items.
#include "plugin/frame/MenuItem.h"

#include <algorithm>
#include <utility>

#include "hostapi/AIMenuSuite.h"
#include "plugin/frame/MenuGroup.h"
#include "plugin/host/HostCall.h"

namespace kzo::plugin {

namespace {

_t_MenuItemOpaque* addItem(SPPlugin* plugin, const std::string& group, const std::string& text, std::int32_t options) {
    if (group.empty()) return nullptr;
    return host::ask<&AIMenuSuite::AddMenuItem>(AIMenuItemHandle{}, plugin, group.c_str(), text.c_str(), options);
}

} // namespace

MenuItem::MenuItem(SPPlugin* plugin, const std::string& group, const std::string& text,
                   const core::CallbackSlot& callback)
    : handle_(addItem(plugin, group, text, 0)), callback_(callback) {}

MenuItem::MenuItem(_t_MenuItemOpaque* handle)
    : handle_(handle),
      opensGroup_(handle && host::ask<&AIMenuSuite::GetMenuItemSubGroup>(AIMenuGroup{}, handle) != nullptr) {}

std::shared_ptr<MenuItem> MenuItem::divider(SPPlugin* plugin, const std::string& group) {
    return std::make_shared<MenuItem>(addItem(plugin, group, "", kMenuItemDividerOption));
}

std::string MenuItem::text() const { return host::ask<&AIMenuSuite::GetMenuItemText>("", handle_); }
void MenuItem::setText(const std::string& text) { host::call<&AIMenuSuite::SetMenuItemText>(handle_, text.c_str()); }
bool MenuItem::enabled() const { return host::ask<&AIMenuSuite::GetMenuItemEnabled>(AIBoolean{0}, handle_) != 0; }
void MenuItem::setEnabled(bool enabled) { host::call<&AIMenuSuite::SetMenuItemEnabled>(handle_, AIBoolean{enabled}); }
bool MenuItem::checked() const { return host::ask<&AIMenuSuite::GetMenuItemChecked>(AIBoolean{0}, handle_) != 0; }
void MenuItem::setChecked(bool checked) { host::call<&AIMenuSuite::SetMenuItemChecked>(handle_, AIBoolean{checked}); }

bool MenuItem::isDivider() const {
    return (host::ask<&AIMenuSuite::GetMenuItemOptions>(std::int32_t{0}, handle_) & kMenuItemDividerOption) != 0;
}

_t_MenuGroupOpaque* MenuItem::parent() const {
    return host::ask<&AIMenuSuite::GetMenuItemGroup>(AIMenuGroup{}, handle_);
}

void MenuItem::destroy() {
    if (_t_MenuItemOpaque* const handle = std::exchange(handle_, nullptr))
        host::call<&AIMenuSuite::RemoveMenuItem>(handle);
}

// Registry

std::shared_ptr<MenuItem> MenuRegistry::find(_t_MenuItemOpaque* handle) const {
    const auto at = std::find_if(items_.begin(), items_.end(),
                                 [&](const auto& item) { return item->handle() && item->handle() == handle; });
    return at == items_.end() ? nullptr : *at;
}

void MenuRegistry::remove(const MenuItem& item) {
    std::erase_if(items_, [&](const std::shared_ptr<MenuItem>& known) { return known.get() == &item; });
}

void MenuRegistry::forget(_t_MenuItemOpaque* handle) {
    if (const std::shared_ptr<MenuItem> item = find(handle)) {
        item->forget();
        remove(*item);
    }
    for (const std::weak_ptr<MenuItem>& other : others_)
        if (const std::shared_ptr<MenuItem> item = other.lock(); item && item->handle() == handle) item->forget();
}

void MenuRegistry::clear() {
    for (const std::shared_ptr<MenuItem>& item : std::exchange(items_, {})) item->destroy();
    for (const std::weak_ptr<MenuItem>& other : std::exchange(others_, {}))
        if (const std::shared_ptr<MenuItem> item = other.lock()) item->forget();
}

std::shared_ptr<MenuItem> MenuRegistry::share(_t_MenuItemOpaque* handle) {
    if (!handle) return nullptr;
    if (std::shared_ptr<MenuItem> own = find(handle)) return own;
    std::erase_if(others_, [](const std::weak_ptr<MenuItem>& other) { return other.expired(); });
    for (const std::weak_ptr<MenuItem>& other : others_)
        if (std::shared_ptr<MenuItem> known = other.lock(); known->handle() == handle) return known;
    auto made = std::make_shared<MenuItem>(handle);
    others_.push_back(made);
    return made;
}

void MenuRegistry::choose(_t_MenuItemOpaque* handle) const {
    // Held while it works: a callback may destroy its own item.
    const std::shared_ptr<MenuItem> item = find(handle);
    if (!item) return;
    item->callback().run();
    selected.run();
}

} // namespace kzo::plugin
