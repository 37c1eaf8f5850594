// What the plug-in object tells and sets of the whole plug-in: its listing, snapping, undo, monitors, the interface.
#include <gmock/gmock.h>

#include "core/app/Illustrator.h"
#include "core/app/Plugin.h"
#include "core/frame/Dispatcher.h"
#include "core/frame/Keys.h"
#include "hostapi/AICursorSnapSuite.h"
#include "places/Places.h"
#include "session/input/Keys.h"
#include "support/Desk.h"
#include "support/Folder.h"
#include "support/Receiver.h"
#include "tool/Plugin.h"

namespace {

using desk::Desk;
using desk::Receiver;
using easel::model::Point;
using kzo::core::Dispatcher;
using kzo::core::ModifierKeys;
using kzo::core::MouseButton;
using kzo::core::Plugin;
using kzo::core::PluginOptions;
using kzo::core::VirtualKey;

Plugin& plugin() { return *Plugin::instance(); }
Dispatcher& dispatcher() { return *plugin().dispatcher(); }

// Listing

TEST(PluginListing, HasOptionsOneBitHigherInTheHost) {
    Desk desk;
    desk.inMessage([&] {
        plugin().setOptions(PluginOptions::Second);
        EXPECT_EQ(desk.product().options, 4);
        plugin().setOptions(PluginOptions::First | PluginOptions::Second | PluginOptions(0x70));
        EXPECT_EQ(desk.product().options, 6);
        desk.product().options = 0x7FFFFFFB;
        EXPECT_EQ(plugin().options(), PluginOptions::First);
    });
}

TEST(PluginListing, ReadsResourcesOfItsBundleByNumber) {
    Desk desk;
    const std::string bundle = ORTHOLINE_BUNDLE;
    desk.inMessage([&] {
        EXPECT_EQ(plugin().filePath(), ""); // it came from no file
        EXPECT_EQ(plugin().platformPlugin(), nullptr);
        EXPECT_THAT(plugin().resourceData("png", 17000), testing::IsEmpty());
        desk.product().filePath = bundle;
        desk.product().fileName = "Ortholine.aip";
        EXPECT_EQ(plugin().filePath(), bundle);
        EXPECT_EQ(plugin().fileName(), "Ortholine.aip");
        const std::string file = desk::contents(bundle + "/Contents/Resources/17000.png");
        ASSERT_GT(file.size(), 100u);
        EXPECT_EQ(plugin().resourceData("png", 17000), std::vector<std::uint8_t>(file.begin(), file.end()));
        EXPECT_THAT(plugin().resourceData("png", 1), testing::IsEmpty());
        EXPECT_THAT(plugin().resourceData("", 17000), testing::IsEmpty());
        EXPECT_THAT(plugin().resourceData("/../17000.png", 17000), testing::IsEmpty());
        const desk::Refusing no(desk.tables(), &SPPluginsSuite::GetPluginResource);
        EXPECT_THAT(plugin().resourceData("png", 17000), testing::IsEmpty());
    });
}

// Snapping

TEST(ToolSnapping, DrawsLocationsToWhatIsSwitchedOn) {
    Desk desk;
    desk.selectTool();
    desk.addPath({{100, 100}, {200, 100}, {200, 150}}); // bounds 100 100 200 150, centre 150 125
    struct Case {
        void (Plugin::*set)(bool);
        bool (Plugin::*get)() const;
        Point from;
        Point to;
    };
    const Case cases[] = {
        {&Plugin::setToolsSnapToArt, &Plugin::toolsSnapToArt, {141, 101.5}, {141, 100}},
        {&Plugin::setToolsSnapToArt, &Plugin::toolsSnapToArt, {101, 101}, {100, 100}}, // the anchor comes first
        {&Plugin::setToolsSnapToArtBounds, &Plugin::toolsSnapToArtBounds, {101, 149}, {100, 150}},
        {&Plugin::setToolsSnapToArtBounds, &Plugin::toolsSnapToArtBounds, {151, 126}, {150, 125}},
        {&Plugin::setToolsSnapToArtboard, &Plugin::toolsSnapToArtboard, {799, 301}, {800, 300}},
        {&Plugin::setToolsSnapToArtboard, &Plugin::toolsSnapToArtboard, {321, 1.5}, {321, 0}},
        {&Plugin::setToolsSnapToGrids, &Plugin::toolsSnapToGrids, {331, 489}, {330, 490}},
        {&Plugin::setToolsSnapToGrids, &Plugin::toolsSnapToGrids, {332, 490}, {330, 490}}, // from two units away
    };
    const auto locationOf = [&](Point at) {
        desk.session().pointer.move(at, 0);
        return desk.session().pointer.location();
    };
    for (const Case& each : cases) {
        EXPECT_EQ(locationOf(each.from), each.from);
        desk.inMessage([&] { (plugin().*each.set)(true); });
        desk.inMessage([&] { EXPECT_TRUE((plugin().*each.get)()); });
        EXPECT_EQ(locationOf(each.from), each.to);
        EXPECT_EQ(locationOf({each.to.x + 2.1, each.to.y + 2.1}).y, each.to.y + 2.1); // beyond two screen units
        desk.document().view.zoom = 4;                                                // a quarter of the way on screen
        EXPECT_EQ(locationOf({each.to.x + 0.6, each.to.y + 0.6}).y, each.to.y + 0.6);
        desk.document().view.zoom = 1;
        desk.inMessage([&] { (plugin().*each.set)(false); });
        desk.inMessage([&] { EXPECT_FALSE((plugin().*each.get)()); });
    }
}

// Undo

TEST(PluginUndo, TakesBackWhatTheMessageHasChanged) {
    Desk desk;
    auto& path = desk.addPath({{10, 10}, {20, 20}});
    const std::string before = desk.svg();
    const auto depth = desk.document().journal().undoDepth();
    desk.inMessage([&] {
        desk.document().offset(path, 5, 0);
        desk.addPath({{1, 1}, {2, 2}});
        EXPECT_TRUE(plugin().undo());
        EXPECT_EQ(desk.svg(), before);
        desk.document().offset(path, 7, 0); // the message may go on
    });
    EXPECT_EQ(desk.document().journal().undoDepth(), depth + 1);
    desk.document().journal().undo();
    EXPECT_EQ(desk.svg(), before);
}

TEST(PluginUndo, KnowsThreeKindsWhileThePluginLives) {
    using kzo::core::UndoContext;
    EXPECT_FALSE(Plugin::setUndoKind(UndoContext::Standard));
    Desk desk;
    desk.inMessage([] {
        for (const int kind : {10, 20, 30}) EXPECT_TRUE(Plugin::setUndoKind(UndoContext(kind)));
        for (const int kind : {0, 1, 15, 40}) EXPECT_FALSE(Plugin::setUndoKind(UndoContext(kind)));
    });
    desk.quit();
    EXPECT_FALSE(Plugin::setUndoKind(UndoContext::Standard));
}

// Monitors

// What may be removed while one runs is seen where all is mixed.
TEST(Monitors, HearKeysAndButtonsUntilTheyAreRemoved) {
    Desk desk;
    desk.selectTool();
    Receiver escape;
    Receiver button;
    std::uint32_t escapeId = 0;
    std::uint32_t buttonId = 0;
    desk.inMessage([&] {
        escapeId = dispatcher().addKeypressMonitor(VirtualKey::Escape, escape.callback());
        buttonId = dispatcher().addMouseMonitor(MouseButton::Left, button.callback());
        EXPECT_NE(dispatcher().getKeypressMonitor(escapeId), nullptr);
        EXPECT_EQ(dispatcher().getMouseMonitor(escapeId), nullptr);
        EXPECT_NE(dispatcher().getMouseMonitor(buttonId), nullptr);
        dispatcher().removeMouseMonitor(escapeId); // is none
    });
    // A monitor hears of Escape before the gesture is taken back, and of the button before its tool
    desk.session().pointer.press({50, 50}, 0);
    desk.session().pointer.drag({150, 50}, 0);
    bool running = false;
    ModifierKeys held{};
    escape.work = [&] {
        running = desk.session().pointer.pressed();
        held = kzo::core::modifierKeysPressed();
        dispatcher().removeKeypressMonitor(escapeId);
    };
    for (int i = 0; i < 2; ++i) desk.session().input.pressKey(*easel::session::keyCode("Escape"), kAIShiftKey);
    EXPECT_TRUE(running);
    EXPECT_EQ(held, ModifierKeys::Shift);
    EXPECT_FALSE(desk.session().pointer.pressed());
    desk.session().pointer.rightClick({1, 1}, 0);
    EXPECT_EQ(escape.runs, 1);
    EXPECT_EQ(button.runs, 1);
    // With the last one the host is no longer asked for input
    desk.inMessage([&] { dispatcher().removeMouseMonitor(buttonId); });
    EXPECT_FALSE(desk.product().monitorsInput);
}

TEST(Monitors, AreNotAddedWhereThePlatformTellsOfNoInput) {
    Desk desk;
    Receiver receiver;
    desk.inMessage([&] {
        const desk::Refusing no(desk.tables(), &StageSuite::MonitorInput);
        EXPECT_EQ(dispatcher().addKeypressMonitor(VirtualKey::A, receiver.callback()), 0u);
    });
}

// Interface and messages of life

TEST(PluginInterface, HearsOfBrightnessAndAbout) {
    Desk desk;
    Receiver brightness;
    Receiver about;
    plugin().setBrightnessAdjustedCallback(brightness.callback());
    dispatcher().registerMessageCallback("SP Interface", "About", about.callback());
    desk.session().screen.setBrightness(0.25);
    desk.session().screen.setBrightness(0.25); // nothing new
    EXPECT_EQ(brightness.runs, 1);
    SPMessageData record{};
    EXPECT_EQ(desk.session().messenger.send(desk.product(), "SP Interface", "About", record), 0);
    EXPECT_EQ(about.runs, 1);
    EXPECT_EQ(desk.session().messenger.send(desk.product(), "SP Interface", "Anything", record), 0);
    desk.session().reload(desk.product());
    EXPECT_FALSE(ortho::Plugin::instance()->lineTool().isEmpty()); // it stays as it is
}

TEST(HostApplication, TellsWhoseItIsAndOpensAddresses) {
    Desk desk;
    auto& identity = desk.session().identity;
    EXPECT_FALSE(identity.userName.empty());
    identity = {.majorVersion = 20, .userName = "Ada Østby", .userOrganization = "Umbra"};
    desk.inMessage([&] {
        auto& host = *kzo::core::Illustrator::instance();
        EXPECT_EQ(host.majorVersion(), 20);
        EXPECT_EQ(host.userName() + "|" + host.userOrganization(), "Ada Østby|Umbra");
        EXPECT_TRUE(host.openURL("https://a.example/b"));
        EXPECT_FALSE(host.openURL(""));
        const desk::Refusing no(desk.tables(), &AIRuntimeSuite::GetAppMajorVersion);
        EXPECT_EQ(host.majorVersion(), 0);
    });
    EXPECT_THAT(desk.session().browser.opened, testing::ElementsAre("https://a.example/b"));
}

} // namespace
