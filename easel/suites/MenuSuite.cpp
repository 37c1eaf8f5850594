// The menu suite on the session's menus.
#include "session/frame/Menus.h"
#include "suites/Suites.h"
#include "suites/Thunk.h"

namespace easel::suites {

template <> struct Argument<session::MenuGroup&> {
    static session::MenuGroup& from(AIMenuGroup handle) { return found(host<session::Menus>().find(handle)); }
};
template <> struct Argument<session::MenuItem&> {
    static session::MenuItem& from(AIMenuItemHandle handle) { return found(host<session::Menus>().find(handle)); }
};

namespace {

using session::MenuChild;
using session::MenuGroup;
using session::MenuItem;
using session::Menus;

Menus& menus() { return host<Menus>(); }

template <class T> const T& at(const std::vector<T>& list, std::int32_t index) {
    require(index >= 0 && static_cast<std::size_t>(index) < list.size());
    return list[static_cast<std::size_t>(index)];
}

AIMenuGroup handleOf(const MenuGroup* group) { return group ? group->handle : nullptr; }
AIMenuItemHandle handleOf(const MenuItem* item) { return item ? item->handle : nullptr; }

// Groups

void countGroups(std::int32_t& count) { count = static_cast<std::int32_t>(menus().groups().size()); }
void getNthGroup(std::int32_t index, AIMenuGroup& group) { group = at(menus().groups(), index)->handle; }

void addGroup(session::Plugin& self, std::string_view name, std::string_view text, std::string_view nearGroup,
              std::int32_t options, AIMenuGroup& group) {
    group = menus().addGroup(self, name, text, nearGroup, options).handle;
}

void removeGroup(MenuGroup& group) { menus().removeGroup(group); }
void getGroupName(MenuGroup& group, const char*& name) { name = group.name.c_str(); }
void getGroupText(MenuGroup& group, const char*& text) { text = group.text.c_str(); }
void setGroupText(MenuGroup& group, std::string_view text) { menus().setText(group, text); }
void getGroupEnabled(MenuGroup& group, AIBoolean& enabled) { enabled = group.enabled; }
void setGroupEnabled(MenuGroup& group, AIBoolean enabled) { menus().setEnabled(group, enabled != 0); }
void getGroupOptions(MenuGroup& group, std::int32_t& options) { options = group.options; }
void setGroupOptions(MenuGroup& group, std::int32_t options) { menus().setOptions(group, options); }
void getGroupParent(MenuGroup& group, AIMenuGroup& parent) { parent = handleOf(group.parent); }
void getGroupItem(MenuGroup& group, AIMenuItemHandle& item) { item = handleOf(group.opener); }

void countChildren(MenuGroup& group, std::int32_t& count) { count = static_cast<std::int32_t>(group.children.size()); }

void getNthChild(MenuGroup& group, std::int32_t index, AIMenuItemHandle& item, AIMenuGroup& child) {
    const MenuChild& found = at(group.children, index);
    item = handleOf(found.item);
    child = handleOf(found.group);
}

// Items

void addItem(session::Plugin& self, std::string_view group, std::string_view text, std::int32_t options,
             AIMenuItemHandle& item) {
    item = menus().addItem(self, group, text, options).handle;
}

void removeItem(MenuItem& item) { menus().removeItem(item); }
void getText(MenuItem& item, const char*& text) { text = item.text.c_str(); }
void setText(MenuItem& item, std::string_view text) { menus().setText(item, text); }
void getEnabled(MenuItem& item, AIBoolean& enabled) { enabled = item.enabled; }
void setEnabled(MenuItem& item, AIBoolean enabled) { menus().setEnabled(item, enabled != 0); }
void getChecked(MenuItem& item, AIBoolean& checked) { checked = item.checked; }
void setChecked(MenuItem& item, AIBoolean checked) { menus().setChecked(item, checked != 0); }
void getOptions(MenuItem& item, std::int32_t& options) { options = item.options; }
void getGroup(MenuItem& item, AIMenuGroup& group) { group = item.group->handle; }
void getSubGroup(MenuItem& item, AIMenuGroup& group) { group = handleOf(item.opens); }

} // namespace

void fill(AIMenuSuite& suite) {
    enter<&AIMenuSuite::CountMenuGroups, countGroups>(suite);
    enter<&AIMenuSuite::GetNthMenuGroup, getNthGroup>(suite);
    enter<&AIMenuSuite::AddMenuGroup, addGroup>(suite);
    enter<&AIMenuSuite::RemoveMenuGroup, removeGroup>(suite);
    enter<&AIMenuSuite::GetMenuGroupName, getGroupName>(suite);
    enter<&AIMenuSuite::GetMenuGroupText, getGroupText>(suite);
    enter<&AIMenuSuite::SetMenuGroupText, setGroupText>(suite);
    enter<&AIMenuSuite::GetMenuGroupEnabled, getGroupEnabled>(suite);
    enter<&AIMenuSuite::SetMenuGroupEnabled, setGroupEnabled>(suite);
    enter<&AIMenuSuite::GetMenuGroupOptions, getGroupOptions>(suite);
    enter<&AIMenuSuite::SetMenuGroupOptions, setGroupOptions>(suite);
    enter<&AIMenuSuite::GetMenuGroupParent, getGroupParent>(suite);
    enter<&AIMenuSuite::GetMenuGroupItem, getGroupItem>(suite);
    enter<&AIMenuSuite::CountMenuGroupChildren, countChildren>(suite);
    enter<&AIMenuSuite::GetNthMenuGroupChild, getNthChild>(suite);
    enter<&AIMenuSuite::AddMenuItem, addItem>(suite);
    enter<&AIMenuSuite::RemoveMenuItem, removeItem>(suite);
    enter<&AIMenuSuite::GetMenuItemText, getText>(suite);
    enter<&AIMenuSuite::SetMenuItemText, setText>(suite);
    enter<&AIMenuSuite::GetMenuItemEnabled, getEnabled>(suite);
    enter<&AIMenuSuite::SetMenuItemEnabled, setEnabled>(suite);
    enter<&AIMenuSuite::GetMenuItemChecked, getChecked>(suite);
    enter<&AIMenuSuite::SetMenuItemChecked, setChecked>(suite);
    enter<&AIMenuSuite::GetMenuItemOptions, getOptions>(suite);
    enter<&AIMenuSuite::GetMenuItemGroup, getGroup>(suite);
    enter<&AIMenuSuite::GetMenuItemSubGroup, getSubGroup>(suite);
}

} // namespace easel::suites
