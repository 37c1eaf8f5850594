// Menus, timers and handles on other plug-ins: every operation's neutral answers from one table, then what they mean.
#include <gmock/gmock.h>

#include <cmath>
#include <limits>

#include "core/Dispatcher.h"
#include "core/Illustrator.h"
#include "core/MenuGroup.h"
#include "core/Messages.h"
#include "core/Plugin.h"
#include "core/Timer.h"
#include "plugin/BasePlugin.h"
#include "plugin/HostCall.h"
#include "plugin/MenuGroup.h"
#include "plugin/ThirdPartyPlugin.h"
#include "plugins/Question.h"
#include "support/Desk.h"

namespace {

using namespace kzo::core;
using desk::Desk;

/// Notes what callbacks run, and does what the test wants in them.
struct Witness {
    std::vector<std::string> seen;
    std::function<void()> during;

    void item() { note("item"); }
    void selected() { note("selected"); }
    void update() { note("update"); }
    void timer() { note("timer"); }
    void note(const char* what) {
        seen.emplace_back(what);
        if (during) during();
    }
};

using Bound = __Callback<Witness>;

/// All empty, or all on something for which every operation has a telling answer.
struct Handles {
    MenuGroup group;
    MenuItem item;
    MenuItem divider;
    Timer timer;
    ThirdPartyPlugin other;
};

struct Row {
    const char* name;
    bool (*neutral)(const Handles&);
    bool asksHost = true;
};

const Row rows[] = {
    {"MenuGroup::isEmpty", [](const Handles& h) { return h.group.isEmpty(); }, false},
    {"MenuGroup::aiMenuGroup", [](const Handles& h) { return !h.group.aiMenuGroup(); }, false},
    {"MenuGroup::aiMenuItemHandle", [](const Handles& h) { return !h.group.aiMenuItemHandle(); }},
    {"MenuGroup::text", [](const Handles& h) { return h.group.text().empty(); }},
    {"MenuGroup::enabled", [](const Handles& h) { return !h.group.enabled(); }},
    {"MenuGroup::sorted", [](const Handles& h) { return !h.group.sorted(); }},
    {"MenuGroup::isPartial", [](const Handles& h) { return !h.group.isPartial(); }},
    {"MenuGroup::parent", [](const Handles& h) { return h.group.parent().isEmpty(); }},
    {"MenuGroup::children", [](const Handles& h) { return h.group.children().empty(); }},
    {"MenuItem::isEmpty", [](const Handles& h) { return h.item.isEmpty(); }, false},
    {"MenuItem::aiMenuItemHandle", [](const Handles& h) { return !h.item.aiMenuItemHandle(); }, false},
    {"MenuItem::text", [](const Handles& h) { return h.item.text().empty(); }},
    {"MenuItem::enabled", [](const Handles& h) { return !h.item.enabled(); }},
    {"MenuItem::checked", [](const Handles& h) { return !h.item.checked(); }},
    {"MenuItem::isDivider", [](const Handles& h) { return !h.divider.isDivider(); }},
    {"MenuItem::parent", [](const Handles& h) { return h.item.parent().isEmpty(); }},
    {"MenuItem::callback", [](const Handles& h) { return !h.item.callback(); }, false},
    {"Timer::isEmpty", [](const Handles& h) { return h.timer.isEmpty(); }, false},
    {"Timer::aiTimerHandle", [](const Handles& h) { return !h.timer.aiTimerHandle(); }, false},
    {"Timer::name", [](const Handles& h) { return h.timer.name().empty(); }},
    {"Timer::delay", [](const Handles& h) { return h.timer.delay() == 0; }},
    {"Timer::active", [](const Handles& h) { return !h.timer.active(); }},
    {"Timer::callback", [](const Handles& h) { return !h.timer.callback(); }, false},
    {"ThirdPartyPlugin::isEmpty", [](const Handles& h) { return h.other.isEmpty(); }, false},
    {"ThirdPartyPlugin::spPluginRef", [](const Handles& h) { return !h.other.spPluginRef(); }, false},
    {"ThirdPartyPlugin::name", [](const Handles& h) { return h.other.name().empty(); }},
    {"ThirdPartyPlugin::fileName", [](const Handles& h) { return h.other.fileName().empty(); }},
    {"ThirdPartyPlugin::filePath", [](const Handles& h) { return h.other.filePath().empty(); }},
    {"ThirdPartyPlugin::options", [](const Handles& h) { return h.other.options() == PluginOptions::None; }},
    {"ThirdPartyPlugin::started", [](const Handles& h) { return !h.other.started(); }},
    {"ThirdPartyPlugin::broken", [](const Handles& h) { return h.other.broken(); }},
};

class Menus : public testing::Test {
  protected:
    Menus() {
        other.options = 2 | 4 | 64; // the third has no name with us
        desk.session().start();
    }

    [[nodiscard]] Bound bound(void (Witness::*method)()) { return {&witness, method}; }
    [[nodiscard]] std::vector<std::string> seen() { return std::exchange(witness.seen, {}); }
    [[nodiscard]] MenuGroup newGroup() { return {BuiltinMenuGroup::Preferences, "Group", true, true, true, false}; }

    Handles makeHandles() {
        Handles made;
        made.group = newGroup();
        made.divider = MenuItem::Divider(made.group);
        made.item = MenuItem(made.group, "Item", bound(&Witness::item));
        made.item.setChecked(true);
        made.timer = Timer("Timer", 0.5, bound(&Witness::timer));
        made.other = Illustrator::instance()->allPlugins()["Answering"];
        return made;
    }

    /// What the dispatcher answers to the choice of an item.
    std::int32_t choose(_t_MenuItemOpaque* item) {
        AIMenuMessage record{.d = {}, .menuItem = item};
        return Plugin::instance()->dispatcher()->message(MessageType::MenuGo, &record);
    }

    Witness witness;
    Desk desk;
    easel::session::Plugin& other = desk.session().load(std::string(TEST_BUILD_DIR) + "/Answering.aip");
};

TEST_F(Menus, AnswerNeutrallyWhenEmptyRefusedOrWithoutSuite) {
    const Handles empty;
    for (const Row& row : rows) EXPECT_TRUE(row.neutral(empty)) << row.name << " of an empty handle";
    desk.inMessage([&] {
        const Handles live = makeHandles();
        auto& monitor = kzo::plugin::host::monitor();
        for (const Row& row : rows) EXPECT_FALSE(row.neutral(live)) << row.name;
        for (const Row& row : rows) {
            monitor.reset(1);
            EXPECT_TRUE(row.neutral(live) || !row.asksHost) << row.name << " with its call refused";
            EXPECT_EQ(monitor.calls() > 0, row.asksHost) << row.name;
        }
        monitor.reset();
        kzo::plugin::host::releaseAll();
        desk.tables().each([](auto& suite) { suite.available = false; });
        for (const Row& row : rows) EXPECT_TRUE(!row.asksHost || row.neutral(live)) << row.name << " without its suite";
        EXPECT_TRUE(newGroup().isEmpty());
        EXPECT_TRUE(MenuItem(BuiltinMenuGroup::Edit, "x", bound(&Witness::item)).isEmpty());
        EXPECT_TRUE(Timer("x", 1, bound(&Witness::timer)).isEmpty());
        EXPECT_FALSE(Plugin::instance()->dispatcher()->scheduleCallback(bound(&Witness::timer), 1));
        EXPECT_EQ(Illustrator::instance()->menuGroupCount(), 0u);
        EXPECT_TRUE(Illustrator::instance()->allPlugins().empty());
        desk.tables().each([](auto& suite) { suite.available = true; });
    });
}

// Whatever changes, an empty handle does nothing, and does not ask the host.
TEST_F(Menus, LeaveEmptyHandlesAlone) {
    desk.inMessage([&] {
        Handles empty;
        kzo::plugin::host::monitor().reset();
        empty.group.setText("x");
        empty.group.setEnabled(true);
        empty.group.setSorted(true);
        empty.group.destroy();
        empty.item.setText("x");
        empty.item.setEnabled(true);
        empty.item.setChecked(true);
        empty.item.setCallback(bound(&Witness::item));
        empty.item.destroy();
        empty.timer.setDelay(1);
        empty.timer.activate();
        empty.timer.setCallback(bound(&Witness::timer));
        empty.timer.destroy();
        Plugin::instance()->dispatcher()->registerTimer(empty.timer);
        Plugin::instance()->dispatcher()->unregisterTimer(empty.timer);
        EXPECT_TRUE(MenuGroup(empty.group, "x", false, true, true, false).isEmpty());
        EXPECT_TRUE(MenuItem(empty.group, "x", bound(&Witness::item)).isEmpty());
        EXPECT_TRUE(MenuItem::Divider(empty.group).isEmpty());
        EXPECT_EQ(kzo::plugin::host::monitor().calls(), 0u);
    });
}

// Groups

TEST_F(Menus, NameTheHostsGroupsByTheirValues) {
    const std::pair<int, const char*> known[] = {{10, "About"},
                                                 {270, "Preferences"},
                                                 {700, "Effects"},
                                                 {870, "AIEdit Colors SubMenu Group"},
                                                 {880, ""},
                                                 {890, "Adobe Color Harmony Editor Menu Group"},
                                                 {960, "WorkspacesPresetsMenuGroup"},
                                                 {970, ""},
                                                 {0, ""},
                                                 {-10, ""},
                                                 {15, ""},
                                                 {885, ""}};
    for (const auto& [value, name] : known)
        EXPECT_EQ(kzo::plugin::builtinGroupName(BuiltinMenuGroup(value)), name) << value;
    EXPECT_EQ(kzo::plugin::builtinGroupName(BuiltinMenuGroup::WindowLibraries), "Window Libraries");
    desk.inMessage([&] {
        EXPECT_TRUE(MenuGroup(BuiltinMenuGroup(880), "x", false, true, true, true).isEmpty());
        EXPECT_TRUE(MenuItem(BuiltinMenuGroup(0), "x", bound(&Witness::item)).isEmpty());
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
        const MenuItem added(merged, "A", bound(&Witness::item));
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
    using Map = kzo::plugin::SharedMenuGroup::Map;
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
        const MenuItem deep(inner, "Deep", bound(&Witness::item));
        const auto handle = deep.aiMenuItemHandle();
        copy.destroy();
        for (const MenuGroup& gone : {group, copy, separate, inner}) EXPECT_TRUE(gone.isEmpty());
        EXPECT_TRUE(deep.isEmpty() && opener.isEmpty());
        EXPECT_EQ(choose(handle), 0);
        EXPECT_THAT(seen(), testing::IsEmpty());
    });
    EXPECT_FALSE(Map::exists());
}

TEST_F(Menus, KeepAGroupInWhichAnotherPluginHasAnItem) {
    desk.inMessage([&] {
        MenuGroup group = newGroup();
        const MenuItem own(group, "Own", bound(&Witness::item));
        desk.session().menus.addItem(other, "KZO Group", "Foreign", 0);
        const MenuItem foreign = group.children()[0].item();
        EXPECT_EQ(foreign.text(), "Foreign");
        EXPECT_EQ(foreign, group.children()[0].item());
        choose(foreign.aiMenuItemHandle());
        EXPECT_THAT(seen(), testing::IsEmpty()); // not ours to run
        group.destroy();
        EXPECT_TRUE(group.isEmpty());
        EXPECT_FALSE(own.isEmpty());
        EXPECT_EQ(own.parent().text(), "Group");
    });
}

// Items

TEST_F(Menus, RunTheChosenItemsCallbackAndThenThePlugins) {
    Plugin& plugin = *Plugin::instance();
    MenuItem item;
    desk.inMessage([&] { item = makeHandles().item; });
    plugin.setMenuItemSelectedCallback(bound(&Witness::selected));
    plugin.setMenuItemsUpdateCallback(bound(&Witness::update));
    EXPECT_TRUE(plugin.menuItemSelectedCallback() && plugin.menuItemsUpdateCallback());
    desk.session().chooseMenu("Item");
    EXPECT_THAT(seen(), testing::ElementsAre("update", "item", "selected"));
    item.setCallback(bound(&Witness::timer));
    EXPECT_NE(item.callback(), nullptr);
    desk.session().chooseMenu("Item");
    EXPECT_THAT(seen(), testing::ElementsAre("update", "timer", "selected"));
}

TEST_F(Menus, AreEmptyAfterShutDownAndAskTheHostNothing) {
    Handles kept;
    MenuItem foreign;
    desk.inMessage([&] {
        kept = makeHandles();
        // A timer that is not registered any more was left running, and its handle called the host after shut-down.
        Plugin::instance()->dispatcher()->unregisterTimer(kept.timer);
        foreign = MenuItem(kept.group.aiMenuItemHandle());
        Plugin::instance()->setAboutMenuItem(kept.item);
        EXPECT_EQ(Plugin::instance()->aboutMenuItem(), kept.item);
        EXPECT_TRUE(Plugin::instance()->prefsMenuItem().isEmpty());
    });
    desk.session().quit();
    const auto calls = kzo::plugin::host::monitor().calls();
    for (const Row& row : rows) EXPECT_TRUE(row.neutral(kept)) << row.name;
    EXPECT_TRUE(foreign.isEmpty());
    kept.group.destroy();
    kept.item.destroy();
    kept.timer.destroy();
    kept = {};
    EXPECT_TRUE(newGroup().isEmpty());
    EXPECT_TRUE(Timer("x", 1, bound(&Witness::timer)).isEmpty());
    EXPECT_EQ(kzo::plugin::host::monitor().calls(), calls);
    EXPECT_EQ(Illustrator::instance()->menuGroupCount(), 0u); // what asks without a handle finds no host
    EXPECT_EQ(kzo::plugin::host::basic, nullptr);
    EXPECT_FALSE(kzo::plugin::SharedMenuGroup::Map::exists());
    EXPECT_FALSE(kzo::plugin::SharedThirdPartyPlugin::Map::exists());
}

// Timers

TEST_F(Menus, CountATimersDelayInTicks) {
    desk.inMessage([&] {
        struct Delay {
            double seconds;
            std::int32_t ticks;
        };
        constexpr double infinite = std::numeric_limits<double>::infinity();
        Timer timer("Timer", 1, bound(&Witness::timer));
        const auto period = [&] { return desk.session().timers.find(timer.aiTimerHandle())->period; };
        for (const Delay& delay : {Delay{0.5, 30}, Delay{1.0 / 120, 1}, Delay{2.5 / 60, 3}, Delay{0.024, 1},
                                   Delay{0, 0}, Delay{infinite, 2147483647}, Delay{std::nan(""), 0}}) {
            timer.setDelay(delay.seconds);
            EXPECT_EQ(period(), delay.ticks) << delay.seconds;
            EXPECT_EQ(timer.delay(), delay.ticks / 60.0);
        }
        timer.setDelay(0.5);
        timer.setDelay(-1); // refused by the host, so nothing changes
        EXPECT_EQ(timer.delay(), 0.5);
        EXPECT_TRUE(Timer("Back", -1, bound(&Witness::timer)).isEmpty());
        EXPECT_EQ(timer.name(), "Timer");
    });
}

TEST_F(Menus, RunATimerUntilItDestroysItself) {
    Timer timer;
    desk.inMessage([&] { timer = Timer("Timer", 0.5, bound(&Witness::timer)); });
    desk.session().runFor(2.1);
    EXPECT_EQ(seen().size(), 4u);
    witness.during = [&] { timer.destroy(); };
    desk.session().runFor(2.1);
    EXPECT_EQ(seen().size(), 1u);
    EXPECT_TRUE(timer.isEmpty());
}

TEST_F(Menus, RunAScheduledCallbackOnce) {
    const std::size_t before = desk.session().timers.all().size();
    desk.inMessage([&] { EXPECT_TRUE(Plugin::instance()->dispatcher()->scheduleCallback(bound(&Witness::timer), 1)); });
    desk.session().runFor(0.9);
    EXPECT_THAT(seen(), testing::IsEmpty());
    desk.session().runFor(10);
    EXPECT_THAT(seen(), testing::ElementsAre("timer"));
    EXPECT_EQ(desk.session().timers.all().size(), before);
}

// Other plug-ins

TEST_F(Menus, TellAPluginsStateAndTalkToIt) {
    desk.inMessage([&] {
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
        EXPECT_EQ(question.d.basic, &desk.tables().basic);
        question.number = 21;
        EXPECT_EQ(known.message("Test", "Double", &question.d, result), 0);
        EXPECT_EQ(result, 0);
        EXPECT_EQ(question.answer, 42);
        EXPECT_STREQ(question.by, "Answering");
        EXPECT_TRUE(known.cleanMessageData(question.d));
        EXPECT_EQ(question.d.self, nullptr);
        EXPECT_FALSE(known.cleanMessageData(question.d)); // not prepared any more
    });
}

TEST_F(Menus, TakeNullForAnEmptyText) {
    desk.inMessage([&] {
        const Handles live = makeHandles();
        desk.tables().menu.table.GetMenuItemText = [](AIMenuItemHandle, const char** text) {
            *text = nullptr;
            return AIErr{kNoErr};
        };
        EXPECT_EQ(live.item.text(), "");
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
        desk.tables().interface.available = false;
        EXPECT_EQ(known.message("Test", "Double", &record, result), kSPSuiteNotFoundErr);
        EXPECT_FALSE(known.prepMessageData(record));
        desk.tables().interface.available = true;
        EXPECT_EQ(result, 99);
    });
}

} // namespace
