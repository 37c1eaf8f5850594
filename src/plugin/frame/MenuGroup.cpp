// The menu suite's calls on groups.
#include "plugin/frame/MenuGroup.h"

#include <algorithm>

#include "hostapi/AIMenuGroups.h"
#include "hostapi/AIMenuSuite.h"
#include "plugin/frame/MenuItem.h"
#include "plugin/host/HostCall.h"
#include "plugin/host/RefCountMap.h"

namespace kzo::plugin {

namespace host {

template <> struct HostForm<MenuGroupPlace> {
    static constexpr std::int32_t toHost(const MenuGroupPlace& place) {
        std::int32_t options = place.sorted ? kMenuGroupSortedOption : 0;
        if (!place.merged) return options;
        options |= kMenuGroupPartialOption;
        if (place.subMenu) options |= kMenuGroupSubMenuOption;
        if (place.onTop) options |= kMenuGroupOnTopOption;
        return options;
    }
};

} // namespace host

namespace {

/// Of all plug-ins of the maker, so that they find one another's groups.
constexpr const char* kMakersPrefix = "KZO ";

std::vector<MenuGroupEntry> childrenOf(_t_MenuGroupOpaque* group) {
    std::vector<MenuGroupEntry> children;
    const std::int32_t count = host::get<&AIMenuSuite::CountMenuGroupChildren>(group);
    for (std::int32_t i = 0; i < count; ++i) {
        MenuGroupEntry entry;
        if (host::call<&AIMenuSuite::GetNthMenuGroupChild>(group, i, &entry.item, &entry.group))
            children.push_back(entry);
    }
    return children;
}

} // namespace

std::string builtinGroupName(core::BuiltinMenuGroup group) {
    constexpr int kStep = 10;
    constexpr int kGap = 880;
    const int value = static_cast<int>(group);
    const int index = value / kStep - (value > kGap ? 2 : 1);
    const bool known = value % kStep == 0 && value != kGap && index >= 0 && index < kAIBuiltinMenuGroupCount;
    return known ? kAIBuiltinMenuGroups[index] : "";
}

std::size_t menuGroupCount() {
    return static_cast<std::size_t>(std::max(host::get<&AIMenuSuite::CountMenuGroups>(), 0));
}

_t_MenuGroupOpaque* menuGroupAt(std::size_t index) {
    if (index >= menuGroupCount()) return nullptr;
    return host::get<&AIMenuSuite::GetNthMenuGroup>(static_cast<std::int32_t>(index));
}

_t_MenuGroupOpaque* __IntMenuGroupData::create(SPPlugin* plugin, const std::string& nearGroup, const std::string& text,
                                               const MenuGroupPlace& place) {
    if (nearGroup.empty()) return nullptr;
    const std::string name = kMakersPrefix + text;
    return host::get<&AIMenuSuite::AddMenuGroup>(plugin, name, text, nearGroup, place);
}

_t_MenuItemOpaque* __IntMenuGroupData::opener() const { return get<&AIMenuSuite::GetMenuGroupItem>(); }
std::string __IntMenuGroupData::name() const { return get<&AIMenuSuite::GetMenuGroupName>(); }
std::string __IntMenuGroupData::text() const { return get<&AIMenuSuite::GetMenuGroupText>(); }
void __IntMenuGroupData::setText(const std::string& text) { call<&AIMenuSuite::SetMenuGroupText>(text); }
bool __IntMenuGroupData::enabled() const { return get<&AIMenuSuite::GetMenuGroupEnabled>(); }
void __IntMenuGroupData::setEnabled(bool enabled) { call<&AIMenuSuite::SetMenuGroupEnabled>(enabled); }
std::int32_t __IntMenuGroupData::options() const { return get<&AIMenuSuite::GetMenuGroupOptions>(); }
bool __IntMenuGroupData::sorted() const { return (options() & kMenuGroupSortedOption) != 0; }

void __IntMenuGroupData::setSorted(bool sorted) {
    const auto options = find<&AIMenuSuite::GetMenuGroupOptions>();
    if (!options) return;
    call<&AIMenuSuite::SetMenuGroupOptions>(sorted ? *options | kMenuGroupSortedOption
                                                   : *options & ~kMenuGroupSortedOption);
}

bool __IntMenuGroupData::isPartial() const { return (options() & kMenuGroupPartialOption) != 0; }
_t_MenuGroupOpaque* __IntMenuGroupData::parent() const { return get<&AIMenuSuite::GetMenuGroupParent>(); }
std::vector<MenuGroupEntry> __IntMenuGroupData::children() const { return childrenOf(handle()); }

void __IntMenuGroupData::destroy() {
    _t_MenuItemOpaque* const itsOpener = opener();
    _t_MenuGroupOpaque* const handle = release();
    if (!handle) return;
    MapOf<__IntMenuGroupData>::forget(handle);
    std::vector<MenuGroupEntry> held{{.item = itsOpener, .group = handle}};
    for (std::size_t i = 0; i < held.size(); ++i) {
        if (!held[i].group) continue;
        const std::vector<MenuGroupEntry> inner = childrenOf(held[i].group);
        held.insert(held.end(), inner.begin(), inner.end());
    }
    if (!host::call<&AIMenuSuite::RemoveMenuGroup>(handle)) return;
    for (const MenuGroupEntry& entry : held) {
        if (entry.item) MapOf<MenuItem>::forget(entry.item);
        if (entry.group) MapOf<__IntMenuGroupData>::forget(entry.group);
    }
}

} // namespace kzo::plugin
