// MenuItem: forwards to its implementation.
#include "core/frame/MenuItem.h"

#include "core/Forward.h"
#include "core/frame/MenuGroup.h"
#include "plugin/frame/BasePlugin.h"
#include "plugin/frame/MenuGroup.h"

namespace kzo::core {

namespace {

/// Registers what the host took; null else.
std::shared_ptr<plugin::MenuItem> added(plugin::BasePlugin* frame, std::shared_ptr<plugin::MenuItem> item) {
    if (!item->handle()) return nullptr;
    frame->menus().add(item);
    return item;
}

std::shared_ptr<plugin::MenuItem> newItem(const std::string& group, const std::string& text, const Callback& callback) {
    plugin::BasePlugin* const frame = plugin::frame();
    if (!frame) return nullptr;
    return added(frame, std::make_shared<plugin::MenuItem>(frame->spPluginRef(), group, text, CallbackSlot(callback)));
}

} // namespace

// Construction

MenuItem::MenuItem() = default;

MenuItem::MenuItem(const MenuGroup& group, const std::string& text, const Callback& callback)
    : impl_(newItem(group.__name(), text, callback)) {}

MenuItem::MenuItem(BuiltinMenuGroup group, const std::string& text, const Callback& callback)
    : impl_(newItem(plugin::builtinGroupName(group), text, callback)) {}

MenuItem::MenuItem(_t_MenuItemOpaque* handle) {
    if (plugin::BasePlugin* const frame = plugin::frame()) impl_ = frame->menus().share(handle);
}

MenuItem MenuItem::Divider(const MenuGroup& group) {
    plugin::BasePlugin* const frame = plugin::frame();
    if (!frame) return {};
    return MenuItem(added(frame, plugin::MenuItem::divider(frame->spPluginRef(), group.__name())));
}

// Identity

plugin::MenuItem* MenuItem::impl() const { return impl_ && impl_->handle() ? impl_.get() : nullptr; }
bool MenuItem::isEmpty() const { return !impl(); }
_t_MenuItemOpaque* MenuItem::aiMenuItemHandle() const { return ask(impl(), &plugin::MenuItem::handle); }
bool MenuItem::isDivider() const { return ask(impl(), &plugin::MenuItem::isDivider); }
bool MenuItem::opensGroup() const { return ask(impl(), &plugin::MenuItem::opensGroup); }
MenuGroup MenuItem::parent() const { return MenuGroup(ask(impl(), &plugin::MenuItem::parent)); }

// State

std::string MenuItem::text() const { return ask(impl(), &plugin::MenuItem::text); }
void MenuItem::setText(const std::string& text) { ask(impl(), &plugin::MenuItem::setText, text); }
bool MenuItem::enabled() const { return ask(impl(), &plugin::MenuItem::enabled); }
void MenuItem::setEnabled(bool enabled) { ask(impl(), &plugin::MenuItem::setEnabled, enabled); }
bool MenuItem::checked() const { return ask(impl(), &plugin::MenuItem::checked); }
void MenuItem::setChecked(bool checked) { ask(impl(), &plugin::MenuItem::setChecked, checked); }
Callback* MenuItem::callback() const { return impl() ? impl()->callback().get() : nullptr; }

void MenuItem::setCallback(const Callback& callback) {
    if (impl()) impl()->callback().set(callback);
}

void MenuItem::destroy() {
    if (isEmpty()) return;
    if (plugin::BasePlugin* const frame = plugin::frame()) frame->menus().remove(*impl_);
    impl_->destroy();
}

} // namespace kzo::core
