// MenuGroup: sharing of the implementation, and forwarding to it.
#include "core/frame/MenuGroup.h"

#include "core/Forward.h"
#include "plugin/frame/BasePlugin.h"
#include "plugin/frame/MenuGroup.h"

namespace kzo::core {

/// What the copies of a handle hold together: their part in what all handles on the host's group share.
class __IntMenuGroupContainer : public plugin::SharedMenuGroup {
  public:
    using SharedImpl::SharedImpl;
};

namespace {

using Data = plugin::__IntMenuGroupData;

Data* implOf(const std::shared_ptr<__IntMenuGroupContainer>& data) { return data ? data->get() : nullptr; }

_t_MenuGroupOpaque* newGroup(const std::string& nearGroup, const std::string& text,
                             const plugin::MenuGroupPlace& place) {
    plugin::BasePlugin* const frame = plugin::frame();
    return frame ? Data::create(frame->spPluginRef(), nearGroup, text, place) : nullptr;
}

} // namespace

// Construction

MenuGroup::MenuGroup(BuiltinMenuGroup group, const std::string& text, bool sorted, bool merged, bool subMenu,
                     bool onTop)
    : MenuGroup(newGroup(plugin::builtinGroupName(group), text, {sorted, merged, subMenu, onTop})) {}

MenuGroup::MenuGroup(const MenuGroup& parent, const std::string& text, bool sorted, bool merged, bool subMenu,
                     bool onTop)
    : MenuGroup(newGroup(parent.__name(), text, {sorted, merged, subMenu, onTop})) {}

MenuGroup::MenuGroup(_t_MenuGroupOpaque* handle)
    : data_(handle && plugin::frame() ? std::make_shared<__IntMenuGroupContainer>(handle) : nullptr) {}

// Identity

bool MenuGroup::isEmpty() const { return !implOf(data_); }
_t_MenuGroupOpaque* MenuGroup::aiMenuGroup() const { return ask(implOf(data_), &Data::handle); }
_t_MenuItemOpaque* MenuGroup::aiMenuItemHandle() const { return ask(implOf(data_), &Data::opener); }
std::string MenuGroup::__name() const { return ask(implOf(data_), &Data::name); }

// State

std::string MenuGroup::text() const { return ask(implOf(data_), &Data::text); }
void MenuGroup::setText(const std::string& text) { ask(implOf(data_), &Data::setText, text); }
bool MenuGroup::enabled() const { return ask(implOf(data_), &Data::enabled); }
void MenuGroup::setEnabled(bool enabled) { ask(implOf(data_), &Data::setEnabled, enabled); }
bool MenuGroup::sorted() const { return ask(implOf(data_), &Data::sorted); }
void MenuGroup::setSorted(bool sorted) { ask(implOf(data_), &Data::setSorted, sorted); }

// Tree

bool MenuGroup::isPartial() const { return ask(implOf(data_), &Data::isPartial); }
MenuGroup MenuGroup::parent() const { return MenuGroup(ask(implOf(data_), &Data::parent)); }

std::vector<MenuGroup::Child> MenuGroup::children() const {
    std::vector<Child> children;
    for (const plugin::MenuGroupEntry& entry : ask(implOf(data_), &Data::children))
        children.push_back(entry.group ? Child(MenuGroup(entry.group)) : Child(MenuItem(entry.item)));
    return children;
}

void MenuGroup::destroy() {
    plugin::BasePlugin* const frame = plugin::frame();
    if (frame && !isEmpty()) data_->get()->destroy(frame->menus());
}

} // namespace kzo::core
