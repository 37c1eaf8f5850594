// The menu suite on the session's menus.
#include "hostapi/AIMenuSuite.h"
#include "session/frame/Menus.h"
#include "suites/Enter.h"

namespace easel::suites {

using session::MenuChild;
using session::MenuGroup;
using session::MenuItem;
using session::Menus;

template <> struct Argument<MenuGroup&> {
    static MenuGroup& from(AIMenuGroup handle) { return found(host<Menus>().find(handle)); }
};
template <> struct Argument<MenuItem&> {
    static MenuItem& from(AIMenuItemHandle handle) { return found(host<Menus>().find(handle)); }
};

namespace {

template <class T> const T& at(const std::vector<T>& list, std::int32_t index) {
    require(index >= 0 && static_cast<std::size_t>(index) < list.size());
    return list[static_cast<std::size_t>(index)];
}

void getNthChild(MenuGroup& group, std::int32_t index, AIMenuItemHandle& item, AIMenuGroup& child) {
    const MenuChild& found = at(group.children, index);
    returnTo(item, found.item);
    returnTo(child, found.group);
}

} // namespace

template <> void fill(AIMenuSuite& suite) {
    // Groups
    enter<&AIMenuSuite::CountMenuGroups>(suite, [] { return host<Menus>().groups().size(); });
    enter<&AIMenuSuite::GetNthMenuGroup>(suite, [](std::int32_t i) { return at(host<Menus>().groups(), i); });
    enter<&AIMenuSuite::AddMenuGroup, &Menus::addGroup>(suite);
    enter<&AIMenuSuite::RemoveMenuGroup, &Menus::removeGroup>(suite);
    enter<&AIMenuSuite::GetMenuGroupName, &MenuGroup::name>(suite);
    enter<&AIMenuSuite::GetMenuGroupText, &MenuGroup::text>(suite);
    enter<&AIMenuSuite::SetMenuGroupText>(
        suite, [](MenuGroup& of, std::string_view text) { host<Menus>().setText(of, text); });
    enter<&AIMenuSuite::GetMenuGroupEnabled, &MenuGroup::enabled>(suite);
    enter<&AIMenuSuite::SetMenuGroupEnabled>(suite, [](MenuGroup& of, bool on) { host<Menus>().setEnabled(of, on); });
    enter<&AIMenuSuite::GetMenuGroupOptions, &MenuGroup::options>(suite);
    enter<&AIMenuSuite::SetMenuGroupOptions, &Menus::setOptions>(suite);
    enter<&AIMenuSuite::GetMenuGroupParent, &MenuGroup::parent>(suite);
    enter<&AIMenuSuite::GetMenuGroupItem, &MenuGroup::opener>(suite);
    enter<&AIMenuSuite::CountMenuGroupChildren>(suite, [](MenuGroup& group) { return group.children.size(); });
    enter<&AIMenuSuite::GetNthMenuGroupChild, getNthChild>(suite);

    // Items
    enter<&AIMenuSuite::AddMenuItem, &Menus::addItem>(suite);
    enter<&AIMenuSuite::RemoveMenuItem, &Menus::removeItem>(suite);
    enter<&AIMenuSuite::GetMenuItemText, &MenuItem::text>(suite);
    enter<&AIMenuSuite::SetMenuItemText>(suite,
                                         [](MenuItem& of, std::string_view text) { host<Menus>().setText(of, text); });
    enter<&AIMenuSuite::GetMenuItemEnabled, &MenuItem::enabled>(suite);
    enter<&AIMenuSuite::SetMenuItemEnabled>(suite, [](MenuItem& of, bool on) { host<Menus>().setEnabled(of, on); });
    enter<&AIMenuSuite::GetMenuItemChecked, &MenuItem::checked>(suite);
    enter<&AIMenuSuite::SetMenuItemChecked, &Menus::setChecked>(suite);
    enter<&AIMenuSuite::GetMenuItemOptions, &MenuItem::options>(suite);
    enter<&AIMenuSuite::GetMenuItemGroup, &MenuItem::group>(suite);
    enter<&AIMenuSuite::GetMenuItemSubGroup, &MenuItem::opens>(suite);
}

} // namespace easel::suites
