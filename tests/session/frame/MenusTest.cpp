// The menus: where groups and items come to stand, what can be chosen, and what remains when a plug-in goes.
#include <gmock/gmock.h>

#include "hostapi/AIMenuGroups.h"
#include "session/base/HostError.h"
#include "session/frame/Menus.h"

namespace {

using namespace easel::session;
using testing::ElementsAre;

constexpr std::int32_t kPartial = kMenuGroupPartialOption;

std::vector<std::string> textsIn(const MenuGroup& group) {
    std::vector<std::string> texts;
    for (const MenuChild& child : group.children)
        texts.push_back(child.item ? child.item->text : "<" + child.group->text);
    return texts;
}

template <class Work> SPErr errorOf(Work work) {
    try {
        work();
    } catch (const HostError& error) {
        return error.code;
    }
    return kNoErr;
}

class MenusTest : public testing::Test {
  protected:
    Plugin one;
    Plugin two;
    Menus menus;
    MenuGroup& edit = *menus.findGroup("Edit");
};

TEST_F(MenusTest, PlaceGroupsBelowOrInsideAndSortThem) {
    MenuGroup& below = menus.addGroup(one, "Below", "Below", "Edit", kMenuGroupSortedOption);
    EXPECT_EQ(below.parent, nullptr);
    EXPECT_EQ(menus.groups()[17], &below); // "Edit" is the 17th
    menus.addItem(one, "Edit", "First", 0);
    menus.addGroup(one, "Last", "last", "Edit", kPartial);
    menus.addGroup(one, "Top", "top", "Edit", kPartial | kMenuGroupOnTopOption);
    EXPECT_THAT(textsIn(edit), ElementsAre("<top", "First", "<last"));

    MenuItem& pear = menus.addItem(one, "Below", "Pear", 0);
    menus.addItem(one, "Below", "Apple", 0);
    menus.addItem(one, "Below", "unseen", kMenuItemDividerOption);
    menus.addGroup(one, "Sub", "Nuts", "Below", kPartial | kMenuGroupSubMenuOption);
    EXPECT_THAT(textsIn(below), ElementsAre("", "Apple", "<Nuts", "Pear"));
    menus.setText(pear, "Lemon");
    EXPECT_THAT(textsIn(below), ElementsAre("", "Apple", "Lemon", "<Nuts"));
    menus.setText(*menus.findItem("Nuts"), "Almonds"); // the opener speaks for its group
    EXPECT_THAT(textsIn(below), ElementsAre("", "<Almonds", "Apple", "Lemon"));
    EXPECT_EQ(errorOf([&] { menus.setText(*below.children[0].item, "x"); }), kRefusedErr);
    menus.setOptions(edit, kMenuGroupSortedOption);
    EXPECT_THAT(textsIn(edit), ElementsAre("First", "<last", "<top"));
}

TEST_F(MenusTest, RefuseWhatCannotBe) {
    menus.addGroup(one, "Mine", "Mine", "Edit", kPartial | kMenuGroupSubMenuOption);
    struct Wrong {
        const char* name;
        const char* near;
        std::int32_t options;
    };
    for (const Wrong& wrong : {Wrong{"Mine", "Edit", 0}, Wrong{"", "Edit", 0}, Wrong{"New", "Nowhere", 0},
                               Wrong{"New", "Edit", 16}, Wrong{"New", "Edit", kMenuGroupSubMenuOption}}) {
        EXPECT_EQ(errorOf([&] { menus.addGroup(two, wrong.name, "x", wrong.near, wrong.options); }), kBadParameterErr)
            << wrong.name << " " << wrong.near << " " << wrong.options;
    }
    EXPECT_EQ(errorOf([&] { menus.addItem(one, "Nowhere", "x", 0); }), kBadParameterErr);
    EXPECT_EQ(errorOf([&] { menus.addItem(one, "Mine", "x", 2); }), kBadParameterErr);
    EXPECT_EQ(errorOf([&] { menus.setOptions(edit, kPartial); }), kBadParameterErr);
    EXPECT_EQ(errorOf([&] { menus.removeItem(*menus.findItem("Mine")); }), kRefusedErr); // it opens the group
    EXPECT_EQ(errorOf([&] { menus.removeGroup(edit); }), kRefusedErr);                   // the host's own
    EXPECT_EQ(errorOf([&] { menus.setText(edit, "Mine"); }), kRefusedErr);
    EXPECT_EQ(menus.groups().size(), 96u);
}

TEST_F(MenusTest, EnableAnItemOnlyWithAllThatIsAroundIt) {
    MenuGroup& outer = menus.addGroup(one, "Outer", "Outer", "Edit", kPartial | kMenuGroupSubMenuOption);
    MenuGroup& inner = menus.addGroup(one, "Inner", "Inner", "Outer", kPartial);
    MenuItem& item = menus.addItem(one, "Inner", "Deep", 0);
    EXPECT_TRUE(Menus::isEnabled(item));
    for (bool* part : {&item.enabled, &inner.enabled, &outer.enabled, &outer.opener->enabled, &edit.enabled}) {
        *part = false;
        EXPECT_FALSE(Menus::isEnabled(item));
        *part = true;
    }
    EXPECT_TRUE(Menus::isEnabled(item));
}

TEST_F(MenusTest, AGroupSharedByPluginsOutlivesTheOneThatMadeIt) {
    MenuGroup& shared = menus.addGroup(one, "Shared", "Shared", "Edit", kPartial | kMenuGroupSubMenuOption);
    menus.addItem(one, "Shared", "Of one", 0);
    menus.addItem(two, "Shared", "Of two", 0);
    menus.addGroup(one, "Alone", "Alone", "Shared", kPartial);
    menus.forget(one);
    EXPECT_THAT(textsIn(shared), ElementsAre("Of two"));
    EXPECT_EQ(shared.owner, &two);
    EXPECT_EQ(shared.opener->owner, &two);
    menus.forget(two);
    EXPECT_THAT(menus.items(), testing::IsEmpty());
    EXPECT_EQ(menus.groups().size(), 95u);
}

} // namespace
