// Dispatch: kinds of messages, what is known while one is handled, registration, notifiers.
#include <gmock/gmock.h>

#include <cmath>
#include <sstream>

#include "core/app/Plugin.h"
#include "core/frame/Dispatcher.h"
#include "core/frame/Keys.h"
#include "core/frame/Messages.h"
#include "hostapi/AIAnnotatorSuite.h"
#include "hostapi/AIMenuSuite.h"
#include "hostapi/AINotifierSuite.h"
#include "hostapi/AITimer.h"
#include "hostapi/AITool.h"
#include "support/Desk.h"
#include "support/Receiver.h"
#include "tool/Plugin.h"

namespace {

using desk::Desk;
using desk::Receiver;
using easel::model::Point;
using kzo::core::ArtboardPoint;
using kzo::core::Dispatcher;
using kzo::core::MessageType;
using kzo::core::ModifierKeys;
using kzo::core::Notifier;
using kzo::core::NotifierType;
using kzo::core::Plugin;
using kzo::core::Tool;

Dispatcher& dispatcher() { return *Plugin::instance()->dispatcher(); }

// Kinds

/// The messages that hosts send. Kinds are numbered in tens, except for one that came late.
const char* const kHostMessages = R"(
    Action Manager: Do Action
    AI Annotation: AI Draw, AI Invalidate
    AI Clipboard: AI Go, AI Can Copy, AI Clone, AI Dispose
    AI File Format: AI Set Parameters, AI Get Parameters, AI Go, AI Check, AI Update AI140
    AI Filter: AI Get Parameters, AI Go
    AI Layer List: AI Push Layer List, AI Pop Layer List, AI Delete Layer List
    AI Live Effect: AI Live Effect Edit Parameters, AI Live Effect Go Live, AI Live Effect Interpolate Parameters
    AI Live Effect: AI Live Effect Input Type, AI Live Effect Convert Color Space, AI Live Effect Scale Parameters
    AI Live Effect: AI Live Effect Handle Merge, AI Live Effect Get SVG Filter, AI Live Effect Adjust Colors
    AI Live Effect: AI Live Effect Is Compatible
    AI Menu: AI Go, AI Update
    AI Notifier: AI Notify
    AI Object Set: AI Object Set Dispose Contents, AI Object Set Mark Usage, AI Object Set Update Internal
    AI Object Set: AI Object Set Update External, AI Object Set Purge, AI Object Set Change
    AI Object Set: AI Object Set Change Indirect, AI Object Set Copy, AI Object Set Initialization Done
    AI Plugin Group: AI Notify Edits, AI Update, AI Show Contents, AI Interpolate Data, AI Art Replace Symbol
    AI Plugin Group: AI Plugin Group Disallow Art Type, AI Plugin Group Perform Custom Hit Test
    AI Plugin Group: AI Plugin Group Collect Paint Styles, AI Plugin Group Apply Paint Styles
    AI Plugin Group: AI Plugin Group Adjust Colors, AI Plugin Group Show Contents
    AI Preference: Init Preference Panel, Preference Dialog OK, Preference Dialog Cancel, Preference Dialog Upadate
    AI Timer: AI Go
    AI Tool: AI Edit Options, AI Track Cursor, AI Mouse Down, AI Mouse Drag, AI Mouse Up, AI Select, AI Reselect
    AI Tool: AI Deselect, AI Decrease Diameter, AI Increase Diameter, AI Alternate Selection Tool Query
    AI Tool: AI Alternate Selection Tool Activate, AI Alternate Selection Tool DeActivate
    AI Toolbox: AI Toolbox Start Toolbox, AI Toolbox End Toolbox, AI Toolbox Start Tool Group
    AI Toolbox: AI Toolbox End Tool Group, AI Toolbox Start Tool Set, AI Toolbox End Tool Set, AI Toolbox Add Tool
    AI Toolbox: AI Toolbox Add Rollover, AI Toolbox Tool Selected, AI Toolbox Alternate Tool Action Selected
    AI Toolbox: AI Toolbox Cycle Tool, AI Toolbox Soft Cycle Tool
    AI Transform Again: AI Go
    Workspace Manager: Write Workspace, Restore Workspace, Default Workspace
    SP Access: Reload
    SP Cache: Plug-in Purge
    SP Access: Unload
    SP Adapters: Start up, Shut down, Dispose info, Flush, Register plugins, Load plugin, Release plugin
    SP Adapters: Send message
    SP Properties: Acquire, Release)";

std::vector<std::string> split(const std::string& text, char at) {
    std::vector<std::string> parts;
    std::istringstream in(text);
    for (std::string part; std::getline(in >> std::ws, part, at);) parts.push_back(part);
    return parts;
}

// A client's callback takes the place of the framework's own, which was lost for good when that was unregistered.
TEST(Dispatch, KnowsEveryKindAndWhoHandlesIt) {
    Desk desk;
    constexpr std::size_t late = 8; // its place in the order
    struct {
        AIAnnotatorMessage record{};
        std::uint64_t more[4] = {};
    } room;
    std::vector<MessageType> kinds;
    for (const std::string& line : split(kHostMessages, '\n')) {
        const std::string caller = line.substr(0, line.find(':'));
        for (const std::string& selector : split(line.substr(caller.size() + 1), ',')) {
            SCOPED_TRACE(caller + "/" + selector);
            const auto number = static_cast<std::uint32_t>(kinds.size() + (kinds.size() < late ? 1 : 0)) * 10;
            const MessageType type = kinds.emplace_back(MessageType(kinds.size() == late ? 81 : number));
            const bool byHandle = caller == "AI Timer" || caller == "AI Notifier" || caller == "AI Annotation";
            const bool framework = caller == "AI Menu" || (caller == "AI Tool" && selector.find("Alt") > 3);
            Receiver receiver{[&] {
                EXPECT_EQ(Dispatcher::lastMessage()->type(), type);
                EXPECT_TRUE(Dispatcher::isExecuting(type));
            }};
            const auto answer = [&] { return dispatcher().message(caller, selector, &room.record); };
            EXPECT_EQ(answer(), framework ? 0 : 1);
            dispatcher().registerMessageCallback(type, receiver.callback());
            EXPECT_EQ(answer(), byHandle ? 1 : 0);
            EXPECT_EQ(receiver.runs, byHandle ? 0 : 1);
            dispatcher().unregisterMessageCallback(caller, selector);
            EXPECT_EQ(answer(), framework ? 0 : 1);
            EXPECT_EQ(receiver.runs, byHandle ? 0 : 1);
        }
    }
    EXPECT_EQ(kinds.size(), 97u);
    EXPECT_EQ(kinds.back(), MessageType(960));
    Receiver receiver;
    dispatcher().registerMessageCallback("Somebody", "Says", receiver.callback());
    EXPECT_EQ(dispatcher().message("Somebody", "Says", &room.record), 0);
    EXPECT_EQ(dispatcher().message("Somebody", "says", &room.record), 1);
    dispatcher().unregisterMessageCallback("Somebody", "Says");
    EXPECT_EQ(dispatcher().message("Somebody", "Says", &room.record), 1);
    EXPECT_EQ(receiver.runs, 1);
    EXPECT_EQ(dispatcher().message("AI Preference", "Preference Dialog Update", &room.record), 1); // spelt otherwise
    EXPECT_EQ(static_cast<std::uint32_t>(MessageType::Unknown), 0xFFFFFFF6);
}

// What is found by its handle: who runs, and what the dispatcher returns.
TEST(Dispatch, FindsByHandleWhatIsOurs) {
    Desk desk;
    Receiver receiver;
    desk.inMessage([&] {
        kzo::core::Timer timer("Timer", 1, receiver.callback());
        kzo::core::Annotator marks("Marks", receiver.callback());
        kzo::core::MenuItem item(kzo::core::BuiltinMenuGroup::Edit, "Item", receiver.callback());
        Notifier saved = dispatcher().registerNotifier("Saved", NotifierType::DocumentSaved, receiver.callback());
        AITimerMessage aboutTimer{.d = {}, .timer = timer.aiTimerHandle()};
        AIAnnotatorMessage aboutMarks{};
        aboutMarks.annotator = marks.aiAnnotatorHandle();
        AIMenuMessage aboutItem{.d = {}, .menuItem = item.aiMenuItemHandle()};
        AINotifierMessage aboutSaved{.d = {}, .notifier = saved.aiNotifierHandle(), .type = nullptr};
        int stranger = 0;
        const auto strange = [&](auto& handle) {
            handle = reinterpret_cast<std::decay_t<decltype(handle)>>(&stranger);
        };
        const struct {
            const char* what;
            std::function<void()> before;
            const char* caller;
            const char* selector;
            void* record;
            int answer;
            int runs;
        } rows[] = {
            {"timer", [] {}, "AI Timer", "AI Go", &aboutTimer, 0, 1},
            {"inactive timer", [&] { timer.deactivate(); }, "AI Timer", "AI Go", &aboutTimer, 1, 0},
            {"active again", [&] { timer.activate(); }, "AI Timer", "AI Go", &aboutTimer, 0, 1},
            {"unregistered", [&] { dispatcher().unregisterTimer(timer); }, "AI Timer", "AI Go", &aboutTimer, 1, 0},
            {"registered", [&] { dispatcher().registerTimer(timer); }, "AI Timer", "AI Go", &aboutTimer, 0, 1},
            {"destroyed", [&] { timer.destroy(); }, "AI Timer", "AI Go", &aboutTimer, 1, 0},
            {"no timer", [&] { aboutTimer.timer = nullptr; }, "AI Timer", "AI Go", &aboutTimer, 1, 0},
            {"item", [] {}, "AI Menu", "AI Go", &aboutItem, 0, 1},
            {"strange item", [&] { strange(aboutItem.menuItem); }, "AI Menu", "AI Go", &aboutItem, 0, 0},
            {"notifier", [] {}, "AI Notifier", "AI Notify", &aboutSaved, 0, 1},
            {"notifier, whatever is said of it", [] {}, "AI Notifier", "AI Tell", &aboutSaved, 0, 1},
            {"destroyed", [&] { saved.destroy(); }, "AI Notifier", "AI Notify", &aboutSaved, 1, 0},
            {"annotator", [] {}, "AI Annotation", "AI Draw", &aboutMarks, 0, 1},
            {"strange annotator", [&] { strange(aboutMarks.annotator); }, "AI Annotation", "AI Draw", &aboutMarks, 1,
             0},
        };
        for (const auto& row : rows) {
            receiver.runs = 0;
            row.before();
            EXPECT_EQ(dispatcher().message(row.caller, row.selector, row.record), row.answer) << row.what;
            EXPECT_EQ(receiver.runs, row.runs) << row.what;
        }
    });
}

TEST(NotifierTypes, MapBothWays) {
    for (std::uint16_t number = 10; number <= 1010; number += 10) {
        const auto name = kzo::core::notifierName(NotifierType(number));
        EXPECT_THAT(std::string(name), testing::AllOf(testing::StartsWith("AI "), testing::EndsWith(" Notifier")));
        EXPECT_EQ(kzo::core::notifierType(name), NotifierType(number));
    }
    EXPECT_EQ(kzo::core::notifierName(NotifierType(1020)), "");
    EXPECT_EQ(kzo::core::notifierType("AI Nothing Notifier"), NotifierType::None);
}

// Dispatch

// Which message that is, is seen where they are sent one inside of the other (MixedMessages).
TEST(Dispatch, KnowsWhatIsBeingHandledAndTheKeysAround) {
    Desk desk;
    desk.selectTool();
    Receiver inner;
    Receiver outer;
    inner.work = [&] {
        EXPECT_TRUE(Dispatcher::isExecuting(MessageType::ToolMouseDown));
        EXPECT_TRUE(Dispatcher::isExecuting(MessageType::FilterGo));
        EXPECT_EQ(kzo::core::modifierKeysPressed(), kzo::core::ModifierKeys::Option);
    };
    outer.work = [&] {
        EXPECT_EQ(Dispatcher::lastToolMessage()->cursorLoc(), kzo::core::ArtboardPoint(30, 40));
        EXPECT_EQ(Plugin::instance()->currentTool().cursorLoc(), kzo::core::ArtboardPoint(30, 40));
        EXPECT_EQ(Dispatcher::lastMessage()->spPluginRef(), desk.product().handle);
        SPMessageData record{};
        EXPECT_EQ(desk.session().messenger.send(desk.product(), "AI Filter", "AI Go", record), 0);
        EXPECT_FALSE(Dispatcher::isExecuting(MessageType::FilterGo));
    };
    dispatcher().registerMessageCallback(MessageType::FilterGo, inner.callback());
    Plugin::instance()->setToolPreMouseDownCallback(outer.callback());
    desk.session().pointer.press({30, 40}, kAIOptionKey);
    desk.session().pointer.cancel();
    EXPECT_EQ(inner.runs + outer.runs, 2);
}

TEST(Dispatch, PassesOverWhatHasNoKindOrNoRecord) {
    Desk desk;
    Receiver receiver;
    SPMessageData record{};
    dispatcher().registerMessageCallback(MessageType::WorkspaceWrite, receiver.callback());
    dispatcher().registerMessageCallback(MessageType::Unknown, receiver.callback());
    EXPECT_EQ(dispatcher().message(MessageType::Unknown, &record), 1);
    EXPECT_EQ(dispatcher().message(MessageType::WorkspaceWrite, nullptr), 1);
    EXPECT_EQ(receiver.runs, 0);
    EXPECT_EQ(dispatcher().message(MessageType::WorkspaceWrite, &record), 0);
}

TEST(Dispatch, LetsAToolDestroyItselfInItsOwnCallback) {
    Desk desk;
    desk.selectTool();
    kzo::core::Tool tool = ortho::Plugin::instance()->lineTool();
    Receiver destroyer{[&] { tool.destroy(); }};
    tool.setMouseDownCallback(destroyer.callback());
    desk.session().pointer.press({10, 10}, 0);
    EXPECT_TRUE(tool.isEmpty());
    EXPECT_EQ(desk.session().toolbox.current()->title, "Selection Tool");
    desk.session().pointer.drag({20, 10}, 0); // goes to no tool
    desk.session().pointer.release({20, 10}, 0);
    EXPECT_EQ(destroyer.runs, 1);
    EXPECT_TRUE(desk.paths().empty());
}

// Tools

/// A host that uses one record for all its tool messages.
class ToolMessages : public testing::Test {
  protected:
    ToolMessages() { desk.selectTool(); }

    SPErr send(const Tool& to, const char* selector, AIRealPoint at, std::uint32_t modifiers = 0) {
        record = {.d = {}, .tool = to.aiToolHandle(), .cursor = at, .modifiers = modifiers, .flags = 0};
        return desk.session().messenger.send(desk.product(), "AI Tool", selector, record.d);
    }

    Desk desk;
    Tool tool = ortho::Plugin::instance()->lineTool();
    AIToolMessage record{};
};

// After a nested message to the same tool the outer one saw the inner one's location.
TEST_F(ToolMessages, GiveTheOuterOneBackWhatItSaid) {
    Tool other;
    desk.inMessage([&] { other = Tool(-2, -2, "Other", "", 0, 0, kzo::core::ToolOptions::None); });
    desk.expectReports();
    int seen = 0;
    for (Tool inner : {tool, other}) {
        for (const bool throws : {false, true}) {
            inner.setTrackCallback(kzo::core::callback([&] {
                EXPECT_EQ(Plugin::instance()->currentTool(), inner);
                EXPECT_EQ(inner.cursorLoc(), ArtboardPoint(50, 60));
                inner.setCursorLoc({51, 61});
                ++seen;
                if (throws) throw std::runtime_error("inside");
            }));
            tool.setMouseDownCallback(kzo::core::callback([&] {
                EXPECT_EQ(send(inner, "AI Track Cursor", {50, 60}, 0xFFFFFFFF), 0);
                EXPECT_EQ(record.cursor.h, throws ? 50 : 51);
                EXPECT_EQ(tool.cursorLoc(), ArtboardPoint(10, 20));
                EXPECT_EQ(Plugin::instance()->currentTool(), tool);
                EXPECT_EQ(Dispatcher::lastMessage(), Dispatcher::lastToolMessage());
                EXPECT_EQ(Dispatcher::lastToolMessage()->type(), MessageType::ToolMouseDown);
                EXPECT_EQ(Dispatcher::lastToolMessage()->aiToolHandle(), tool.aiToolHandle());
                EXPECT_EQ(Dispatcher::lastToolMessage()->cursorLoc(), ArtboardPoint(10, 20));
                EXPECT_EQ(kzo::core::modifierKeysPressed(), ModifierKeys::Shift);
                record.cursor = {7, 7}; // the host's own affair
                ++seen;
            }));
            send(tool, "AI Mouse Down", {10, 20}, kAIShiftKey);
            EXPECT_EQ(inner.cursorLoc(), inner == tool ? ArtboardPoint(10, 20) : ArtboardPoint(51, 61));
            EXPECT_EQ(record.cursor.h, 7); // held nowhere
        }
    }
    EXPECT_EQ(seen, 8);
    EXPECT_EQ(desk.session().reports.lines().size(), 2u);
    // One that is not nested leaves its tool current.
    other.setTrackCallback(kzo::core::callback([] {}));
    send(other, "AI Track Cursor", {1, 2});
    EXPECT_EQ(Plugin::instance()->currentTool(), other);
}

// Any record under this caller was read as a tool's, and written to.
TEST_F(ToolMessages, AreThoseOfTheTableAlone) {
    const auto shorter = std::make_unique<SPMessageData>();
    Receiver receiver{[] {
        EXPECT_EQ(Dispatcher::lastToolMessage(), nullptr);
        EXPECT_EQ(Dispatcher::lastMessage(), nullptr);
        EXPECT_EQ(kzo::core::modifierKeysPressed(), ModifierKeys::Option);
    }};
    dispatcher().registerMessageCallback("AI Tool", "AI Something", receiver.callback());
    desk.session().pointer.setModifiers(kAIOptionKey | 0x70);
    EXPECT_EQ(desk.session().messenger.send(desk.product(), "AI Tool", "AI Something", *shorter), 0);
    EXPECT_EQ(receiver.runs, 1);
}

TEST_F(ToolMessages, KnowFourModifierKeys) {
    Receiver receiver{[] { EXPECT_EQ(bits(Dispatcher::lastToolMessage()->modifierKeys()), 15u); }};
    tool.setTrackCallback(receiver.callback());
    send(tool, "AI Track Cursor", {1, 1}, 0xFFFFFFFF);
    EXPECT_EQ(receiver.runs, 1);
}

// What a handler wrote into the record itself was overwritten.
TEST_F(ToolMessages, GiveTheHostWhereTheToolHoldsTheCursor) {
    const struct {
        std::function<void()> work;
        Point to;
    } rows[] = {
        {[&] {
             tool.setCursorLoc({12, 34});
         },
         {12, 34}},
        {[&] {
             static_cast<AIToolMessage*>(Dispatcher::lastRecord())->cursor = {5, 6};
         },
         {5, 6}},
        {[&] {
             tool.setCursorLoc({NAN, 0});
         },
         {10, 30}}, // which the host does not take
        {[] {}, {10, 30}},
    };
    for (const auto& row : rows) {
        tool.setTrackCallback(kzo::core::callback(row.work));
        desk.session().pointer.move({10, 30}, 0);
        EXPECT_EQ(desk.session().pointer.location(), row.to);
    }
}

TEST_F(ToolMessages, TellATakenBackGestureFromARelease) {
    Tool other;
    desk.inMessage([&] { other = Tool(-2, -2, "Other", "", 0, 0, kzo::core::ToolOptions::None); });
    std::vector<bool> takenBack;
    tool.setMouseUpCallback(kzo::core::callback([&] {
        takenBack.push_back(tool.gestureTakenBack());
        EXPECT_FALSE(other.gestureTakenBack());
        EXPECT_EQ(Dispatcher::lastToolMessage()->gestureTakenBack(), tool.gestureTakenBack());
    }));
    for (const bool cancel : {true, false, true}) {
        desk.session().pointer.press({10, 10}, 0);
        cancel ? desk.session().pointer.cancel() : desk.session().pointer.release({20, 20}, 0);
        EXPECT_FALSE(tool.gestureTakenBack());
    }
    EXPECT_EQ(takenBack, (std::vector<bool>{true, false, true}));
}

TEST_F(ToolMessages, RememberTheGestureUntilTheyAreToldToForget) {
    tool.setMouseDownCallback(kzo::core::callback([] {}));
    tool.setMouseUpCallback(kzo::core::callback([] {}));
    desk.stroke({{10, 10}, {20, 20}});
    EXPECT_TRUE(tool.wasDragged());
    send(tool, "AI Mouse Down", {5, 6});
    EXPECT_FALSE(tool.wasDragged());
    EXPECT_THAT(tool.mouseDownLocs(), testing::ElementsAre(ArtboardPoint(10, 10), ArtboardPoint(5, 6)));
    EXPECT_THAT(tool.mouseUpLocs(), testing::ElementsAre(ArtboardPoint(20, 20)));
    tool.resetCursorLocs();
    EXPECT_THAT(tool.mouseDownLocs(), testing::IsEmpty());
    EXPECT_THAT(tool.mouseUpLocs(), testing::IsEmpty());
    const std::int16_t dark = tool.darkIconID();
    desk.inMessage([&] { tool.setLightIconID(77); });
    std::int16_t icons[2] = {};
    desk.inMessage([&] { desk.tables().get<AIToolSuite>().GetToolIconIDs(tool.aiToolHandle(), &icons[0], &icons[1]); });
    EXPECT_THAT(icons, testing::ElementsAre(77, dark));
}

// A pre-callback that destroyed its tool did not keep the tool's own from running.
TEST_F(ToolMessages, EndWithTheToolThatTheyWereFor) {
    Receiver own;
    Receiver after;
    tool.setMouseDownCallback(own.callback());
    Plugin::instance()->setToolPreMouseDownCallback(kzo::core::callback([&] { tool.destroy(); }));
    Plugin::instance()->setToolPostMouseDownCallback(after.callback());
    EXPECT_EQ(send(tool, "AI Mouse Down", {10, 10}), 0);
    EXPECT_EQ(own.runs, 0);
    EXPECT_EQ(after.runs, 1);
}

// Notifiers

// When they run is seen where all is mixed.
TEST(Notifiers, AreListedByTypeAndEmptyWhenRefused) {
    Desk desk;
    Receiver receiver;
    Notifier notifier;
    desk.inMessage([&] {
        notifier = dispatcher().registerNotifier("Test", NotifierType::DocumentSaved, receiver.callback());
        EXPECT_EQ(dispatcher().registeredNotifiersOfType(NotifierType::DocumentSaved), std::vector<Notifier>{notifier});
        EXPECT_EQ(notifier.type(), NotifierType::DocumentSaved);
        EXPECT_EQ(notifier.name(), "Test");
        EXPECT_TRUE(dispatcher().registerNotifier("None", NotifierType::None, receiver.callback()).isEmpty());
        const desk::Refusing no(desk.tables(), &AINotifierSuite::AddNotifier);
        EXPECT_TRUE(dispatcher().registerNotifier("No", NotifierType::DocumentNew, receiver.callback()).isEmpty());
    });
    receiver.work = [&] {
        notifier.destroy(); // while it runs; the message says the same as before
        const auto* const message = dynamic_cast<const kzo::core::NotifyMessage*>(Dispatcher::lastMessage());
        EXPECT_EQ(message->notifierType(), NotifierType::DocumentSaved);
    };
    desk.session().notifiers.raise("AI Document Saved Notifier");
    EXPECT_TRUE(receiver.runs == 1 && notifier.isEmpty());
    EXPECT_EQ(desk.session().notifiers.all().size(), 3u); // the framework's own are left, and nobody else's business
    for (const auto type : {NotifierType::ApplicationStarted, NotifierType::UIBrightnessChanged})
        EXPECT_THAT(dispatcher().registeredNotifiersOfType(type), testing::IsEmpty());
}

} // namespace
