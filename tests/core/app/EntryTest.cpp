// The entry: what is answered before start-up, in which order a life runs, and what stays behind.
#include <gmock/gmock.h>

#include "core/app/Illustrator.h"
#include "core/app/Plugin.h"
#include "core/frame/Dispatcher.h"
#include "hostapi/AINotifierSuite.h"
#include "maker/Globals.h"
#include "places/Places.h"
#include "plugin/host/HostMonitor.h"
#include "support/Desk.h"
#include "support/Receiver.h"
#include "tool/Plugin.h"

extern "C" SPErr PluginMain(const char* caller, const char* selector, void* message);

namespace {

using desk::Desk;
using desk::Receiver;
using easel::session::Session;
using kzo::core::Plugin;

constexpr std::int32_t kSetupFailed = 0x53554645; // "SUFE"

TEST(Entry, AnswersNothingWithoutTextsRecordOrStart) {
    SPMessageData record{};
    EXPECT_EQ(PluginMain(nullptr, "Startup", &record), 0);
    EXPECT_EQ(PluginMain("SP Interface", nullptr, &record), 0);
    EXPECT_EQ(PluginMain("SP Interface", "Startup", nullptr), 0);
    for (const char* selector : {"Shutdown", "About", "startup"})
        EXPECT_EQ(PluginMain("SP Interface", selector, &record), 0);
    EXPECT_EQ(PluginMain("AI Tool", "AI Mouse Down", &record), 0);
    EXPECT_EQ(PluginMain("SP Access", "Reload", &record), 0);
    EXPECT_EQ(Plugin::instance(), nullptr);
}

TEST(Entry, StartsPostStartsAndEndsEachOnce) {
    Desk desk({.openDocument = false});
    Plugin* const plugin = Plugin::instance();
    ASSERT_NE(plugin, nullptr);
    EXPECT_TRUE(plugin->hasStartedUp() && plugin->hasPostStartedUp());
    EXPECT_FALSE(plugin->startingUp() || plugin->postStartingUp() || plugin->hasPreShutdown() || plugin->hasShutdown());
    EXPECT_EQ(plugin->name(), "Ortholine");
    ASSERT_EQ(desk.session().plugins.all().size(), 1u);
    easel::session::Plugin& known = *desk.session().plugins.all().front();
    EXPECT_EQ(known.name, "Ortholine");

    // Again: nothing runs twice.
    Receiver again;
    plugin->setStartupCallback(again.callback());
    SPMessageData record{};
    EXPECT_EQ(desk.session().messenger.send(known, "SP Interface", "Startup", record), 0);
    EXPECT_EQ(again.runs, 0);
    EXPECT_EQ(desk.session().toolbox.all().size(), 4u);
    EXPECT_EQ(desk.session().messenger.send(known, "SP Access", "Unload", record), 0);
    EXPECT_EQ(desk.session().messenger.send(known, "Nobody", "Knows", record), 0);
    EXPECT_EQ(Plugin::instance(), plugin);

    desk.session().quit();
    EXPECT_EQ(Plugin::instance(), nullptr);
    EXPECT_EQ(ortho::Plugin::instance(), nullptr);
    EXPECT_EQ(vlGlobals::instance(), nullptr);
    EXPECT_EQ(desk.session().toolbox.all().size(), 2u); // the host's own
}

TEST(Entry, RunsTheClientsWorkAfterItsOwnOnTheWayUpAndBeforeItOnTheWayDown) {
    std::vector<std::string> seen;
    Receiver preShutdown{[&] { seen.push_back(Plugin::instance()->preShuttingDown() ? "pre-shut-down" : "?"); }};
    Receiver shutdown{[&] {
        const bool toolThere = ortho::Plugin::instance() && !ortho::Plugin::instance()->lineTool().isEmpty();
        seen.push_back(Plugin::instance()->shuttingDown() && toolThere ? "shut-down" : "?");
    }};
    Desk desk;
    Plugin::instance()->setPreShutdownCallback(preShutdown.callback());
    Plugin::instance()->setShutdownCallback(shutdown.callback());
    const kzo::core::Tool kept = ortho::Plugin::instance()->lineTool();
    AILayer* layer = nullptr;
    desk.inMessage(
        [&] { layer = kzo::core::Illustrator::instance()->currentDocument()->currentLayer()->aiLayerHandle(); });
    EXPECT_FALSE(kept.isEmpty());
    desk.session().quit();
    EXPECT_THAT(seen, testing::ElementsAre("pre-shut-down", "shut-down"));
    // A handle that lives on is empty, as is one made later, and asks the host nothing.
    const auto calls = kzo::plugin::host::monitor().calls();
    EXPECT_TRUE(kept.isEmpty());
    EXPECT_TRUE(layer && kzo::core::Layer(layer).isEmpty());
    EXPECT_EQ(kept.number(), -2);
    EXPECT_EQ(kept.title(), "");
    EXPECT_EQ(kzo::plugin::host::monitor().calls(), calls);
}

TEST(Entry, WithoutANameDeclinesAndIsCalledNoMore) {
    Session session;
    easel::session::Plugin& plugin = session.plugins.attach("", PluginMain);
    testing::internal::CaptureStderr();
    const auto lines = session.start();
    EXPECT_THAT(
        testing::internal::GetCapturedStderr(),
        testing::HasSubstr("ERROR: Could not acquire plugin name during startup, which is required! Bailing out.\n"));
    EXPECT_THAT(lines, testing::ElementsAre(": the plug-in declined to start: error \"SUFE\""));
    EXPECT_TRUE(plugin.broken);
    SPMessageData record{};
    EXPECT_EQ(session.messenger.send(plugin, "SP Interface", "Startup", record), kRefusedErr);
    EXPECT_EQ(Plugin::instance(), nullptr);
}

// The plug-in was deleted under the message that led to its shut-down.
TEST(Entry, OutlivesAShutDownFromWithinOneOfItsMessages) {
    Desk desk;
    bool stillThere = false;
    std::int32_t startAgain = 0;
    Receiver ender{[&] {
        Session& session = desk.session();
        SPMessageData record{};
        session.messenger.send(*session.plugins.all().front(), "SP Interface", "Shutdown", record);
        stillThere = Plugin::instance() && Plugin::instance()->hasShutdown();
        startAgain = session.messenger.send(*session.plugins.all().front(), "SP Interface", "Startup", record);
        session.messenger.send(*session.plugins.all().front(), "Nobody", "Knows", record);
    }};
    kzo::core::Tool tool = ortho::Plugin::instance()->lineTool();
    desk.selectTool();
    Plugin::instance()->setToolPreMouseDownCallback(ender.callback());
    Receiver later;
    tool.setMouseDownCallback(later.callback());
    Plugin::instance()->setToolPostMouseDownCallback(later.callback());
    desk.session().pointer.press({100, 100}, 0);
    EXPECT_TRUE(stillThere);
    EXPECT_EQ(startAgain, kSetupFailed);
    EXPECT_EQ(later.runs, 0); // nothing of the client's runs after its shut-down
    EXPECT_EQ(Plugin::instance(), nullptr);
    EXPECT_TRUE(tool.isEmpty());
    desk.session().pointer.release({100, 100}, 0);
    EXPECT_TRUE(desk.paths().empty());
}

TEST(Entry, RunsNothingBehindTheMenuItemThatEndedIt) {
    Desk desk;
    Receiver later;
    desk.inMessage([&] {
        kzo::core::MenuItem(kzo::core::BuiltinMenuGroup::Edit, "End", kzo::core::callback([&] {
                                SPMessageData record{};
                                desk.session().messenger.send(desk.product(), "SP Interface", "Shutdown", record);
                            }));
    });
    Plugin::instance()->setMenuItemSelectedCallback(later.callback());
    desk.session().input.chooseMenu("End");
    EXPECT_EQ(Plugin::instance(), nullptr);
    EXPECT_EQ(later.runs, 0);
}

// An exception of the client's was swallowed without a word.
TEST(Entry, StopsExceptionsOfCallbacksAndSaysWhoseTheyAre) {
    Desk desk;
    desk.expectReports();
    Receiver thrower{[] { throw std::runtime_error("no reason"); }};
    kzo::core::Tool tool = ortho::Plugin::instance()->lineTool();
    desk.selectTool();
    tool.setDragCallback(thrower.callback());
    desk.stroke({{100, 100}, {200, 100}});
    EXPECT_EQ(desk.paths().size(), 1u); // the release did its own
    Plugin::instance()->dispatcher()->registerMessageCallback("Some", "Message", kzo::core::callback([] { throw 1; }));
    SPMessageData record{};
    EXPECT_EQ(desk.session().messenger.send(desk.product(), "Some", "Message", record), 0);
    Plugin::instance()->setShutdownCallback(thrower.callback());
    desk.session().quit();
    EXPECT_EQ(Plugin::instance(), nullptr);
    const std::string from = "plug-in: Ortholine: exception in a callback ";
    EXPECT_THAT(desk.session().reports.lines(), testing::ElementsAre(from + "(AI Tool/AI Mouse Drag): no reason",
                                                                     from + "(Some/Message): no std::exception",
                                                                     from + "(SP Interface/Shutdown): no reason"));
}

// A declined start left what had been made by then, and a message during the destruction deleted the plug-in twice.
TEST(Entry, LeavesNothingOfAStartThatFails) {
    const struct {
        const char* name;
        std::vector<std::string> reports;
    } cases[] = {
        {"Declining", {}},
        {"Throwing",
         {"plug-in: Throwing: exception in pluginSetup (SP Interface/Startup): set-up failed",
          "plug-in: Throwing: exception in pluginDestroy (SP Interface/Startup): destruction failed"}},
        {"Starting", {"plug-in: Starting: a start in set-up: " + std::to_string(kSetupFailed)}},
        {"Ending", {}},
    };
    for (const auto& each : cases) {
        Session session;
        session.plugins.load(std::string(TEST_BUILD_DIR) + "/Failing.aip").name = each.name;
        testing::internal::CaptureStderr();
        EXPECT_THAT(session.start(), testing::ElementsAre(testing::HasSubstr("declined to start: error \"SUFE\"")));
        const std::string said = testing::internal::GetCapturedStderr();
        EXPECT_THAT(said, testing::HasSubstr("destroyed 1, left 0, start " + std::to_string(kSetupFailed) + "\n"));
        EXPECT_THAT(said, testing::Not(testing::HasSubstr("destroyed 2")));
        EXPECT_THAT(said, testing::Not(testing::HasSubstr("ran"))) << each.name;
        session.newDocument(100, 100);
        session.quit(); // reports suites that were not released
        EXPECT_THAT(session.reports.lines(), testing::ElementsAreArray(each.reports));
    }
}

TEST(Entry, SetsUpTheRestWhereTheHostRefusesItsNotifiers) {
    Session session;
    session.plugins.attach("Product", PluginMain);
    const desk::Refusing no(easel::suites::Tables::of(*session.suites), &AINotifierSuite::AddNotifier);
    EXPECT_THAT(session.start(), testing::IsEmpty());
    EXPECT_NE(session.toolbox.findByTitle("Isometric Line Tool"), nullptr);
    EXPECT_EQ(easel::suites::Tables::of(*session.suites).published<AIUndoSuite>().acquired, 1);
    EXPECT_THAT(session.reports.lines(),
                testing::ElementsAre("plug-in: Ortholine: start-up: the host refused a notifier"));
}

TEST(Entry, AnswersGarbageWithNothing) {
    Desk desk;
    const std::string endless(1 << 16, 'A');
    const char* const texts[] = {
        "",          " ",     "AI Tool",       "AI Menu",  "AI Timer", "AI Notifier",  "AI Annotation", "SP Interface",
        "SP Access", "AI Go", "AI Mouse Down", "\xff\x80", "%s%n",     endless.c_str()};
    struct {
        SPMessageData d;
        std::uint64_t fields[32];
    } record{};
    for (const std::int32_t check : {0, -1, int(kSPValidMessageData)}) {
        for (const char* caller : texts) {
            for (const char* selector : texts) {
                record.d.SPCheck = check;
                EXPECT_EQ(PluginMain(caller, selector, &record), 0);
            }
        }
    }
    // Messages that showed no way to the host have not taken the one that there was.
    desk.selectTool();
    desk.stroke({{100, 100}, {200, 100}});
    EXPECT_EQ(desk.paths().size(), 1u);
}

/// A whole life with a line in it, in a host of which something may be amiss: nothing crashes, and the document is
/// never left with half a line. `meddle` is called at its moments, of which there are five.
void live(const std::function<void(Session&, int moment)>& meddle) {
    Session session;
    session.reports.checkLevel = easel::session::CheckLevel::Refuse;
    session.pointer.snapping.toPoint = false;
    session.plugins.attach("Product", PluginMain);
    meddle(session, 0);
    const bool started = session.start().empty();
    auto& document = session.newDocument(400, 400);
    meddle(session, 1);
    auto* const tool = session.toolbox.findByTitle("Isometric Line Tool");
    EXPECT_TRUE(!tool || started);
    if (tool) {
        session.input.selectTool(*tool);
        meddle(session, 2);
        session.pointer.press({100, 100}, 0);
        session.pointer.drag({200, 100}, 0);
        meddle(session, 3);
        session.pointer.drag({200, 90}, 0);
        session.pointer.release({200, 90}, 0);
    }
    for (const auto* path = document.currentLayer().firstChild(); path; path = path->next()) {
        EXPECT_EQ(path->path().points.size(), 2u);
    }
    meddle(session, 4);
    session.quit();
    EXPECT_EQ(Plugin::instance(), nullptr);
}

// The n-th call of the host refused, for every n.
TEST(Entry, SurvivesTheRefusalOfAnyHostCall) {
    auto& monitor = kzo::plugin::host::monitor();
    const auto refuse = [&](std::uint64_t n) {
        SCOPED_TRACE(n);
        live([&](Session&, int moment) { moment == 0 ? monitor.reset(n) : void(); });
        return monitor.calls();
    };
    const std::uint64_t calls = refuse(0);
    ASSERT_GT(calls, 50u);
    testing::internal::CaptureStderr();
    for (std::uint64_t n = 1; n <= calls; ++n) refuse(n);
    const std::string log = testing::internal::GetCapturedStderr();
    EXPECT_THAT(log, testing::HasSubstr("Could not acquire plugin name"));
    EXPECT_THAT(log, testing::Not(testing::HasSubstr("threw")));
    monitor.reset();
}

// Every suite, the basic one and all of them: gone, of another version, or with no functions, from any moment on.
TEST(Entry, SurvivesTheLossOfAnySuiteAtAnyMoment) {
    int suites = 0;
    easel::suites::Tables::of(*Session().suites).each([&](auto&) { ++suites; });
    testing::internal::CaptureStderr();
    for (int lost = -2; lost < suites; ++lost) {
        for (int moment = 0; moment < 5; ++moment) {
            for (int way = 0; way < 3; ++way) {
                SCOPED_TRACE(std::to_string(lost) + ", " + std::to_string(moment) + ", " + std::to_string(way));
                live([&](Session& session, int now) {
                    if (now != moment) return;
                    int number = 0;
                    easel::suites::Tables::of(*session.suites).each([&](auto& suite) {
                        if (lost != -2 && number++ != lost) return;
                        if (way == 0) suite.available = false;
                        if (way == 1) ++suite.version;
                        if (way == 2) suite.table = {};
                    });
                    if (lost == -1) easel::suites::Tables::of(*session.suites).basicSuite = {};
                });
            }
        }
    }
    EXPECT_THAT(testing::internal::GetCapturedStderr(), testing::Not(testing::HasSubstr("threw")));
}

TEST(Entry, NamesTheRefusedOperation) {
    Desk desk;
    auto& monitor = kzo::plugin::host::monitor();
    desk.selectTool();
    const desk::Refusing no(desk.tables(), &AIArtSuite::NewArt);
    monitor.reset();
    desk.session().pointer.press({100, 100}, 0);
    desk.session().pointer.drag({200, 100}, 0);
    EXPECT_EQ(monitor.refusedOperation(), "AIArtSuite::NewArt");
    EXPECT_EQ(monitor.refusedError(), kRefusedErr);
    desk.session().pointer.cancel();
}

} // namespace
