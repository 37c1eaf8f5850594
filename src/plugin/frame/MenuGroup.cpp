// The menu suite's calls on groups.
#include "plugin/frame/MenuGroup.h"

#include <algorithm>
#include <utility>

#include "hostapi/AIMenuGroups.h"
#include "hostapi/AIMenuSuite.h"
#include "plugin/frame/MenuItem.h"
#include "plugin/host/HostCall.h"

namespace kzo::plugin {

namespace {

/// Of all plug-ins of the maker, so that they find one another's groups.
constexpr const char* makersPrefix = "KZO ";

std::vector<MenuGroupEntry> childrenOf(_t_MenuGroupOpaque* group) {
    std::vector<MenuGroupEntry> children;
    const auto count = host::ask<&AIMenuSuite::CountMenuGroupChildren>(std::int32_t{0}, group);
    for (std::int32_t i = 0; i < count; ++i) {
        MenuGroupEntry entry;
        if (host::call<&AIMenuSuite::GetNthMenuGroupChild>(group, i, &entry.item, &entry.group))
            children.push_back(entry);
    }
    return children;
}

} // namespace

std::string builtinGroupName(core::BuiltinMenuGroup group) {
    constexpr int step = 10;
    constexpr int gap = 880;
    const int value = static_cast<int>(group);
    const int index = value / step - (value > gap ? 2 : 1);
    const bool known = value % step == 0 && value != gap && index >= 0 && index < kAIBuiltinMenuGroupCount;
    return known ? kAIBuiltinMenuGroups[index] : "";
}

std::size_t menuGroupCount() {
    return static_cast<std::size_t>(std::max(host::ask<&AIMenuSuite::CountMenuGroups>(std::int32_t{0}), 0));
}

_t_MenuGroupOpaque* menuGroupAt(std::size_t index) {
    if (index >= menuGroupCount()) return nullptr;
    return host::ask<&AIMenuSuite::GetNthMenuGroup>(AIMenuGroup{}, static_cast<std::int32_t>(index));
}

_t_MenuGroupOpaque* __IntMenuGroupData::create(SPPlugin* plugin, const std::string& nearGroup, const std::string& text,
                                               const MenuGroupPlace& place) {
    if (nearGroup.empty()) return nullptr;
    std::int32_t options = place.sorted ? kMenuGroupSortedOption : 0;
    if (place.merged) {
        options |= kMenuGroupPartialOption;
        if (place.subMenu) options |= kMenuGroupSubMenuOption;
        if (place.onTop) options |= kMenuGroupOnTopOption;
    }
    return host::ask<&AIMenuSuite::AddMenuGroup>(AIMenuGroup{}, plugin, (makersPrefix + text).c_str(), text.c_str(),
                                                 nearGroup.c_str(), options);
}

_t_MenuItemOpaque* __IntMenuGroupData::opener() const {
    return host::ask<&AIMenuSuite::GetMenuGroupItem>(AIMenuItemHandle{}, handle_);
}

std::string __IntMenuGroupData::name() const { return host::ask<&AIMenuSuite::GetMenuGroupName>("", handle_); }
std::string __IntMenuGroupData::text() const { return host::ask<&AIMenuSuite::GetMenuGroupText>("", handle_); }

void __IntMenuGroupData::setText(const std::string& text) {
    host::call<&AIMenuSuite::SetMenuGroupText>(handle_, text.c_str());
}

bool __IntMenuGroupData::enabled() const {
    return host::ask<&AIMenuSuite::GetMenuGroupEnabled>(AIBoolean{0}, handle_) != 0;
}

void __IntMenuGroupData::setEnabled(bool enabled) {
    host::call<&AIMenuSuite::SetMenuGroupEnabled>(handle_, AIBoolean{enabled});
}

std::int32_t __IntMenuGroupData::options() const {
    return host::ask<&AIMenuSuite::GetMenuGroupOptions>(std::int32_t{0}, handle_);
}

bool __IntMenuGroupData::sorted() const { return (options() & kMenuGroupSortedOption) != 0; }

void __IntMenuGroupData::setSorted(bool sorted) {
    std::int32_t options = 0;
    if (!host::call<&AIMenuSuite::GetMenuGroupOptions>(handle_, &options)) return;
    options = sorted ? options | kMenuGroupSortedOption : options & ~kMenuGroupSortedOption;
    host::call<&AIMenuSuite::SetMenuGroupOptions>(handle_, options);
}

bool __IntMenuGroupData::isPartial() const { return (options() & kMenuGroupPartialOption) != 0; }

_t_MenuGroupOpaque* __IntMenuGroupData::parent() const {
    return host::ask<&AIMenuSuite::GetMenuGroupParent>(AIMenuGroup{}, handle_);
}

std::vector<MenuGroupEntry> __IntMenuGroupData::children() const { return childrenOf(handle_); }

void __IntMenuGroupData::destroy(MenuRegistry& items) {
    _t_MenuGroupOpaque* const handle = std::exchange(handle_, nullptr);
    if (!handle) return;
    std::vector<MenuGroupEntry> held{
        {.item = host::ask<&AIMenuSuite::GetMenuGroupItem>(AIMenuItemHandle{}, handle), .group = handle}};
    for (std::size_t i = 0; i < held.size(); ++i) {
        if (!held[i].group) continue;
        const std::vector<MenuGroupEntry> inner = childrenOf(held[i].group);
        held.insert(held.end(), inner.begin(), inner.end());
    }
    if (!host::call<&AIMenuSuite::RemoveMenuGroup>(handle)) return;
    for (const MenuGroupEntry& entry : held) {
        if (entry.item) items.forget(entry.item);
        auto* const shared = entry.group ? SharedMenuGroup::Map::find(entry.group) : nullptr;
        if (shared) shared->impl.forget();
    }
}

} // namespace kzo::plugin
