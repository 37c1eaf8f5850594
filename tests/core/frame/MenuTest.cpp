// Menus, timers and handles on other plug-ins: what they mean.
#include <gmock/gmock.h>

#include <cmath>
#include <limits>

#include "core/app/Illustrator.h"
#include "core/app/Plugin.h"
#include "core/frame/Dispatcher.h"
#include "core/frame/MenuGroup.h"
#include "core/frame/Timer.h"
#include "places/Places.h"
#include "plugin/frame/MenuGroup.h"
#include "plugin/host/HostCall.h"
#include "plugin/host/RefCountMap.h"
#include "plugins/Question.h"
#include "support/Desk.h"
#include "support/Receiver.h"

namespace {

using namespace kzo::core;
using desk::Desk;
using desk::Receiver;

class Menus : public testing::Test {
  protected:
    Menus() { desk.session().start(); }

    [[nodiscard]] MenuGroup newGroup() { return {BuiltinMenuGroup::Preferences, "Group", true, true, true, false}; }

    Receiver receiver;
    Desk desk;
    easel::session::Plugin& other = desk.session().plugins.load(std::string(TEST_BUILD_DIR) + "/Answering.aip");
};

// Groups

TEST_F(Menus, NameTheHostsGroupsByTheirValues) {
    const std::pair<int, const char*> known[] = {
        {10, "About"}, {270, "Preferences"}, {870, "AIEdit Colors SubMenu Group"}, {960, "WorkspacesPresetsMenuGroup"}};
    for (const auto& [value, name] : known)
        EXPECT_EQ(kzo::plugin::builtinGroupName(BuiltinMenuGroup(value)), name) << value;
    for (const int none : {0, -10, 15, 880, 885, 970})
        EXPECT_EQ(kzo::plugin::builtinGroupName(BuiltinMenuGroup(none)), "") << none;
    EXPECT_EQ(kzo::plugin::builtinGroupName(BuiltinMenuGroup::WindowLibraries), "Window Libraries");
    desk.inMessage([&] {
        EXPECT_TRUE(MenuGroup(BuiltinMenuGroup(880), "x", false, true, true, true).isEmpty());
        EXPECT_TRUE(MenuItem(BuiltinMenuGroup(0), "x", receiver.callback()).isEmpty());
    });
}

TEST_F(Menus, PlaceAGroupAsTheFlagsSay) {
    desk.inMessage([&] {
        Illustrator& illustrator = *Illustrator::instance();
        const std::size_t before = illustrator.menuGroupCount();
        const MenuGroup merged = newGroup();
        const MenuGroup below(BuiltinMenuGroup::Preferences, "Below", true, false, true, true);
        EXPECT_EQ(illustrator.menuGroupCount(), before + 2);
        EXPECT_EQ(merged.__name(), "KZO Group");
        EXPECT_EQ(merged.parent().text(), "Preferences");
        EXPECT_TRUE(merged.sorted() && merged.isPartial());
        EXPECT_TRUE(below.sorted() && !below.isPartial());
        EXPECT_TRUE(below.parent().isEmpty());
        EXPECT_EQ(below.aiMenuItemHandle(), nullptr);
        EXPECT_TRUE(MenuGroup(BuiltinMenuGroup::Edit, "Group", false, true, true, false).isEmpty()); // taken

        const MenuGroup top(merged, "Top", false, true, false, true);
        const MenuItem added(merged, "A", receiver.callback());
        const auto children = merged.children();
        ASSERT_EQ(children.size(), 2u); // sorted by text
        EXPECT_EQ(children[0].item().text(), "A");
        EXPECT_EQ(children[1].group(), top);
        EXPECT_TRUE(children[1].isGroup() && children[1].item().isEmpty());

        EXPECT_TRUE(illustrator.menuGroupAtIndex(illustrator.menuGroupCount()).isEmpty());
        EXPECT_EQ(illustrator.menuGroupAtIndex(0).text(), "About");
    });
}

TEST_F(Menus, ShareAGroupAmongItsHandlesUntilItIsDestroyed) {
    using Map = kzo::plugin::MapOf<kzo::plugin::__IntMenuGroupData>;
    EXPECT_FALSE(Map::exists());
    desk.inMessage([&] {
        MenuGroup group = newGroup();
        MenuGroup copy = group;
        const MenuGroup separate(group.aiMenuGroup());
        EXPECT_EQ(separate, copy);
        EXPECT_FALSE(separate == MenuGroup());
        const MenuItem opener(group.aiMenuItemHandle());
        EXPECT_TRUE(opener.opensGroup());
        copy.setText("Other");
        copy.setEnabled(false);
        copy.setSorted(false);
        EXPECT_EQ(opener.text(), "Other");
        EXPECT_FALSE(separate.enabled() || separate.sorted());
        EXPECT_TRUE(separate.isPartial());
        EXPECT_EQ(group.__name(), "KZO Group");

        MenuGroup inner(group, "Inner", false, true, true, false);
        const MenuItem deep(inner, "Deep", receiver.callback());
        copy.destroy();
        for (const MenuGroup& gone : {group, copy, separate, inner}) EXPECT_TRUE(gone.isEmpty());
        EXPECT_TRUE(deep.isEmpty() && opener.isEmpty());
    });
    EXPECT_FALSE(Map::exists());
}

TEST_F(Menus, KeepAGroupInWhichAnotherPluginHasAnItem) {
    desk.inMessage([&] {
        MenuGroup group = newGroup();
        const MenuItem own(group, "Own", receiver.callback());
        desk.session().menus.addItem(other, "KZO Group", "Foreign", 0);
        const MenuItem foreign = group.children()[0].item();
        EXPECT_EQ(foreign.text(), "Foreign");
        EXPECT_EQ(foreign, group.children()[0].item());
        group.destroy();
        EXPECT_TRUE(group.isEmpty());
        EXPECT_FALSE(own.isEmpty());
        EXPECT_EQ(own.parent().text(), "Group");
    });
}

// Items

TEST_F(Menus, RunTheCallbackThatAnItemWasGivenLast) {
    Receiver first;
    MenuItem item;
    desk.inMessage([&] { item = MenuItem(BuiltinMenuGroup::Edit, "Item", first.callback()); });
    item.setCallback(receiver.callback());
    EXPECT_NE(item.callback(), nullptr);
    desk.session().input.chooseMenu("Item");
    EXPECT_TRUE(first.runs == 0 && receiver.runs == 1);
}

// Timers

TEST_F(Menus, CountATimersDelayInTicks) {
    desk.inMessage([&] {
        struct Delay {
            double seconds;
            std::int32_t ticks;
        };
        constexpr double infinite = std::numeric_limits<double>::infinity();
        Timer timer("Timer", 1, receiver.callback());
        const auto period = [&] { return desk.session().timers.find(timer.aiTimerHandle())->period; };
        for (const Delay& delay : {Delay{0.5, 30}, Delay{1.0 / 120, 1}, Delay{2.5 / 60, 3}, Delay{0.024, 1},
                                   Delay{0, 0}, Delay{infinite, 2147483647}, Delay{std::nan(""), 0}}) {
            timer.setDelay(delay.seconds);
            EXPECT_EQ(period(), delay.ticks) << delay.seconds;
            EXPECT_EQ(timer.delay(), delay.ticks / 60.0);
        }
        EXPECT_TRUE(Plugin::instance()->dispatcher()->scheduleCallback(receiver.callback(), 0.25));
        EXPECT_EQ(desk.session().timers.all().back()->period, 15);
        timer.setDelay(0.5);
        timer.setDelay(-1); // refused by the host, so nothing changes
        EXPECT_EQ(timer.delay(), 0.5);
        EXPECT_TRUE(Timer("Back", -1, receiver.callback()).isEmpty());
        EXPECT_EQ(timer.name(), "Timer");
    });
}

// Other plug-ins

TEST_F(Menus, TellAPluginsStateAndTalkToIt) {
    desk.inMessage([&] {
        other.options = 2 | 4 | 64; // the third has no name with us
        const auto plugins = Illustrator::instance()->allPlugins();
        ASSERT_EQ(plugins.size(), 2u);
        EXPECT_EQ(plugins.begin()->first, "Answering"); // by name
        const ThirdPartyPlugin& known = plugins.at("Answering");
        EXPECT_EQ(known.fileName(), "Answering.aip");
        EXPECT_EQ(known.filePath(), std::string(TEST_BUILD_DIR) + "/Answering.aip");
        EXPECT_EQ(known.options(), PluginOptions::First | PluginOptions::Second);
        EXPECT_TRUE(known.started() && !known.broken());

        answering::Question question{};
        int result = 99;
        EXPECT_TRUE(known.prepMessageData(question.d));
        EXPECT_EQ(question.d.SPCheck, kSPValidMessageData);
        EXPECT_EQ(question.d.self, known.spPluginRef());
        question.number = 21;
        EXPECT_EQ(known.message("Test", "Double", &question.d, result), 0);
        EXPECT_TRUE(result == 0 && question.answer == 42);
        EXPECT_TRUE(known.cleanMessageData(question.d));
        EXPECT_EQ(question.d.self, nullptr);
        EXPECT_FALSE(known.cleanMessageData(question.d)); // not prepared any more
    });
}

TEST_F(Menus, RefuseAMessageWithTheErrorThatFits) {
    desk.inMessage([&] {
        auto& monitor = kzo::plugin::host::monitor();
        const ThirdPartyPlugin known = Illustrator::instance()->allPlugins().at("Answering");
        SPMessageData record{};
        int result = 99;
        monitor.reset();
        EXPECT_EQ(ThirdPartyPlugin().message("Test", "", &record, result), 0x50214664);
        EXPECT_EQ(known.message("", "Double", &record, result), 0x5061726d);
        EXPECT_EQ(known.message("Test", "", &record, result), 0x5061726d);
        EXPECT_TRUE(ThirdPartyPlugin().prepMessageData(record) && ThirdPartyPlugin().cleanMessageData(record));
        EXPECT_EQ(record.self, nullptr);
        EXPECT_EQ(monitor.calls(), 0u);

        EXPECT_EQ(known.message("Test", "Double", nullptr, result), kBadParameterErr);
        other.started = false;
        EXPECT_EQ(known.message("Test", "Double", &record, result), kRefusedErr);
        other.started = true;
        kzo::plugin::host::releaseAll();
        desk.tables().published<SPInterfaceSuite>().available = false;
        EXPECT_EQ(known.message("Test", "Double", &record, result), kSPSuiteNotFoundErr);
        EXPECT_FALSE(known.prepMessageData(record));
        desk.tables().published<SPInterfaceSuite>().available = true;
        EXPECT_EQ(result, 99);
    });
}

} // namespace
