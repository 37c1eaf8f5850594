// Placing, sorting and removing. Groups nest as deep as plug-ins like, so nothing here recurses.
#include "session/frame/Menus.h"

#include <algorithm>

#include "hostapi/AIMenuGroups.h"
#include "session/base/HostError.h"

namespace easel::session {

namespace {

constexpr std::int32_t kPartialOptions = kMenuGroupSubMenuOption | kMenuGroupOnTopOption;
constexpr std::int32_t kGroupOptions = kMenuGroupSortedOption | kMenuGroupPartialOption | kPartialOptions;

const std::string& textOf(const MenuChild& child) { return child.item ? child.item->text : child.group->text; }

std::vector<MenuItem*> itemsCalled(std::string_view text, const MenuGroup& group) {
    std::vector<MenuItem*> items;
    for (const MenuChild& child : group.children) {
        MenuItem* const item = child.item ? child.item : child.group->opener;
        if (item && !item->isDivider() && item->text == text) items.push_back(item);
    }
    return items;
}

} // namespace

Menus::Menus() {
    for (const char* name : kAIBuiltinMenuGroups) {
        auto group = std::make_unique<MenuGroup>();
        group->name = group->text = name;
        order_.push_back(&groups_.add(std::move(group)));
    }
}

// Groups

MenuGroup& Menus::addGroup(Plugin& owner, std::string_view name, std::string_view text, std::string_view nearGroup,
                           std::int32_t options) {
    MenuGroup* const near = findGroup(nearGroup);
    const bool partial = (options & kMenuGroupPartialOption) != 0;
    require(near && !name.empty() && !findGroup(name));
    require((options & ~kGroupOptions) == 0 && (partial || (options & kPartialOptions) == 0));

    auto made = std::make_unique<MenuGroup>();
    made->owner = &owner;
    made->name = name;
    made->text = text;
    made->options = options;
    ++changes_;
    MenuGroup& group = groups_.add(std::move(made));
    order_.insert(std::find(order_.begin(), order_.end(), near) + 1, &group);
    if (!partial) return group;

    group.parent = near;
    near->children.insert((options & kMenuGroupOnTopOption) ? near->children.begin() : near->children.end(),
                          MenuChild{.item = nullptr, .group = &group});
    if (options & kMenuGroupSubMenuOption) {
        auto opener = std::make_unique<MenuItem>();
        opener->owner = &owner;
        opener->group = near;
        opener->opens = &group;
        opener->text = text;
        group.opener = &items_.add(std::move(opener));
    }
    sort(*near);
    return group;
}

void Menus::removeGroup(MenuGroup& group) {
    require(group.owner && !otherOwner(group), kRefusedErr);
    if (group.parent) detach(*group.parent, {.item = nullptr, .group = &group});
    for (const MenuChild& child : contents(group)) {
        if (child.item) drop(*child.item);
        if (child.group) drop(*child.group);
    }
    drop(group);
}

void Menus::setText(MenuGroup& group, std::string_view text) {
    require(group.owner, kRefusedErr);
    change(group.text, text);
    if (group.opener) group.opener->text = text;
    if (group.parent) sort(*group.parent);
}

void Menus::setOptions(MenuGroup& group, std::int32_t options) {
    require(((options ^ group.options) & ~kMenuGroupSortedOption) == 0);
    change(group.options, options);
    sort(group);
}

MenuGroup* Menus::findGroup(std::string_view name) const {
    const auto at = std::find_if(order_.begin(), order_.end(), [&](const MenuGroup* g) { return g->name == name; });
    return at == order_.end() ? nullptr : *at;
}

// Items

MenuItem& Menus::addItem(Plugin& owner, std::string_view group, std::string_view text, std::int32_t options) {
    MenuGroup* const home = findGroup(group);
    require(home && (options & ~kMenuItemDividerOption) == 0);
    auto made = std::make_unique<MenuItem>();
    made->owner = &owner;
    made->group = home;
    made->options = options;
    if (!made->isDivider()) made->text = text;
    ++changes_;
    MenuItem& item = items_.add(std::move(made));
    home->children.push_back({.item = &item, .group = nullptr});
    sort(*home);
    return item;
}

void Menus::removeItem(MenuItem& item) {
    require(!item.opens, kRefusedErr);
    detach(*item.group, {.item = &item, .group = nullptr});
    drop(item);
}

void Menus::setText(MenuItem& item, std::string_view text) {
    if (item.opens) return setText(*item.opens, text);
    require(!item.isDivider(), kRefusedErr);
    change(item.text, text);
    sort(*item.group);
}

MenuItem* Menus::findItem(std::string_view text, std::string_view group, std::size_t number) const {
    std::vector<MenuGroup*> searched = order_;
    if (!group.empty()) {
        std::erase_if(searched, [&](const MenuGroup* each) { return each->text != group && each->name != group; });
        std::stable_partition(searched.begin(), searched.end(),
                              [&](const MenuGroup* each) { return each->name == group; });
    }
    for (const MenuGroup* const each : searched) {
        const std::vector<MenuItem*> items = itemsCalled(text, *each);
        if (number <= items.size()) return items[number - 1];
        number -= items.size();
    }
    return nullptr;
}

std::size_t Menus::numberOf(const MenuItem& item) {
    const std::vector<MenuItem*> items = itemsCalled(item.text, *item.group);
    return static_cast<std::size_t>(std::find(items.begin(), items.end(), &item) - items.begin()) + 1;
}

bool Menus::isEnabled(const MenuItem& item) {
    if (!item.enabled) return false;
    for (const MenuGroup* group = item.group; group; group = group->parent)
        if (!group->enabled || (group->opener && !group->opener->enabled)) return false;
    return true;
}

// Ends

void Menus::forget(const Plugin& plugin) {
    for (MenuItem* item : items_.all())
        if (item->owner == &plugin && !item->opens) removeItem(*item);
    for (const MenuGroup* known : std::vector<MenuGroup*>(order_)) {
        // Gone with a group around it, perhaps.
        const auto at = std::find(order_.begin(), order_.end(), known);
        if (at == order_.end() || known->owner != &plugin) continue;
        MenuGroup& group = **at;
        if (Plugin* const heir = otherOwner(group)) {
            group.owner = heir;
            if (group.opener) group.opener->owner = heir;
        } else {
            removeGroup(group);
        }
    }
}

/// All that a group contains, also inside of its groups, whose openers count.
std::vector<MenuChild> Menus::contents(const MenuGroup& group) {
    std::vector<MenuChild> held = group.children;
    for (std::size_t i = 0; i < held.size(); ++i) {
        const MenuGroup* const inner = held[i].group;
        if (inner) held.insert(held.end(), inner->children.begin(), inner->children.end());
    }
    return held;
}

Plugin* Menus::otherOwner(const MenuGroup& group) {
    for (const MenuChild& child : contents(group)) {
        Plugin* const owner = child.item ? child.item->owner : child.group->owner;
        if (owner != group.owner) return owner;
    }
    return nullptr;
}

void Menus::detach(MenuGroup& group, MenuChild child) { std::erase(group.children, child); }

void Menus::sort(MenuGroup& group) {
    if (!(group.options & kMenuGroupSortedOption)) return;
    // A divider has no text, so it comes first.
    std::stable_sort(group.children.begin(), group.children.end(),
                     [](const MenuChild& a, const MenuChild& b) { return textOf(a) < textOf(b); });
}

void Menus::drop(MenuGroup& group) {
    ++changes_;
    if (group.opener) items_.remove(*group.opener);
    std::erase(order_, &group);
    groups_.remove(group);
}

} // namespace easel::session
