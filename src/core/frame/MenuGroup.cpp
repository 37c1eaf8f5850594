// MenuGroup: forwards to its implementation.
#include "core/frame/MenuGroup.h"

#include "core/Forward.h"
#include "plugin/frame/BasePlugin.h"
#include "plugin/frame/MenuGroup.h"
#include "plugin/host/RefCountMap.h"

namespace kzo::core {

using Impl = plugin::__IntMenuGroupData;
template class Handle<Impl>;

namespace {

_t_MenuGroupOpaque* newGroup(const std::string& nearGroup, const std::string& text,
                             const plugin::MenuGroupPlace& place) {
    plugin::BasePlugin* const frame = plugin::frame();
    return frame ? Impl::create(frame->spPluginRef(), nearGroup, text, place) : nullptr;
}

} // namespace

// Construction

MenuGroup::MenuGroup(BuiltinMenuGroup group, const std::string& text, bool sorted, bool merged, bool subMenu,
                     bool onTop)
    : MenuGroup(newGroup(plugin::builtinGroupName(group), text, {sorted, merged, subMenu, onTop})) {}

MenuGroup::MenuGroup(const MenuGroup& parent, const std::string& text, bool sorted, bool merged, bool subMenu,
                     bool onTop)
    : MenuGroup(newGroup(parent.__name(), text, {sorted, merged, subMenu, onTop})) {}

MenuGroup::MenuGroup(_t_MenuGroupOpaque* handle) : Handle(plugin::share<Impl>(handle)) {}

// Identity

_t_MenuGroupOpaque* MenuGroup::aiMenuGroup() const { return ask(impl(), &Impl::handle); }
_t_MenuItemOpaque* MenuGroup::aiMenuItemHandle() const { return ask(impl(), &Impl::opener); }
std::string MenuGroup::__name() const { return ask(impl(), &Impl::name); }

// State

std::string MenuGroup::text() const { return ask(impl(), &Impl::text); }
void MenuGroup::setText(const std::string& text) { ask(impl(), &Impl::setText, text); }
bool MenuGroup::enabled() const { return ask(impl(), &Impl::enabled); }
void MenuGroup::setEnabled(bool enabled) { ask(impl(), &Impl::setEnabled, enabled); }
bool MenuGroup::sorted() const { return ask(impl(), &Impl::sorted); }
void MenuGroup::setSorted(bool sorted) { ask(impl(), &Impl::setSorted, sorted); }

// Tree

bool MenuGroup::isPartial() const { return ask(impl(), &Impl::isPartial); }
MenuGroup MenuGroup::parent() const { return MenuGroup(ask(impl(), &Impl::parent)); }

std::vector<MenuGroup::Child> MenuGroup::children() const {
    std::vector<Child> children;
    for (const plugin::MenuGroupEntry& entry : ask(impl(), &Impl::children))
        children.push_back(entry.group ? Child(MenuGroup(entry.group)) : Child(MenuItem(entry.item)));
    return children;
}

void MenuGroup::destroy() {
    ask(impl(), &Impl::destroy);
    if (plugin::frame()) plugin::frame()->registered<plugin::MenuItem>().sweep();
}

} // namespace kzo::core
