// MenuItem: forwards to its implementation.
#include "core/frame/MenuItem.h"

#include "core/Forward.h"
#include "core/frame/MenuGroup.h"
#include "plugin/frame/BasePlugin.h"
#include "plugin/frame/MenuGroup.h"
#include "plugin/host/RefCountMap.h"

namespace kzo::core {

using Impl = plugin::MenuItem;
template class Handle<Impl>;

namespace {

/// Registers an item that `add` has the host add for the plug-in; null without a plug-in, and when the host refuses.
template <class Add> std::shared_ptr<Impl> registered(Add add) {
    plugin::BasePlugin* const frame = plugin::frame();
    return frame ? frame->registered<Impl>().add(add(frame->spPluginRef())) : nullptr;
}

std::shared_ptr<Impl> newItem(const std::string& group, const std::string& text, const Callback& callback) {
    return registered([&](SPPlugin* self) { return Impl::add(self, group, text, CallbackSlot(callback)); });
}

} // namespace

// Construction

MenuItem::MenuItem(const MenuGroup& group, const std::string& text, const Callback& callback)
    : Handle(newItem(group.__name(), text, callback)) {}
MenuItem::MenuItem(BuiltinMenuGroup group, const std::string& text, const Callback& callback)
    : Handle(newItem(plugin::builtinGroupName(group), text, callback)) {}
MenuItem::MenuItem(_t_MenuItemOpaque* handle) : Handle(plugin::share<Impl>(handle)) {}

MenuItem MenuItem::Divider(const MenuGroup& group) {
    return MenuItem(registered([&](SPPlugin* self) { return Impl::addDivider(self, group.__name()); }));
}

// Identity

_t_MenuItemOpaque* MenuItem::aiMenuItemHandle() const { return ask(impl(), &Impl::handle); }
bool MenuItem::isDivider() const { return ask(impl(), &Impl::isDivider); }
bool MenuItem::opensGroup() const { return ask(impl(), &Impl::opensGroup); }
MenuGroup MenuItem::parent() const { return MenuGroup(ask(impl(), &Impl::parent)); }

// State

std::string MenuItem::text() const { return ask(impl(), &Impl::text); }
void MenuItem::setText(const std::string& text) { ask(impl(), &Impl::setText, text); }
bool MenuItem::enabled() const { return ask(impl(), &Impl::enabled); }
void MenuItem::setEnabled(bool enabled) { ask(impl(), &Impl::setEnabled, enabled); }
bool MenuItem::checked() const { return ask(impl(), &Impl::checked); }
void MenuItem::setChecked(bool checked) { ask(impl(), &Impl::setChecked, checked); }
Callback* MenuItem::callback() const { return callbackOf(impl()); }
void MenuItem::setCallback(const Callback& callback) { setCallbackOf(impl(), callback); }
void MenuItem::destroy() { plugin::destroyRegistered(impl()); }

} // namespace kzo::core
