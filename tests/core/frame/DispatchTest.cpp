// Dispatch: kinds of messages, what is known while one is handled, registration, notifiers.
#include <gmock/gmock.h>

#include "core/app/Plugin.h"
#include "core/frame/Dispatcher.h"
#include "core/frame/Keys.h"
#include "core/frame/Messages.h"
#include "hostapi/AINotifierSuite.h"
#include "hostapi/AIToolSuite.h"
#include "support/Desk.h"
#include "support/Receiver.h"
#include "tool/Plugin.h"

namespace {

using desk::Desk;
using desk::Receiver;
using kzo::core::Dispatcher;
using kzo::core::MessageType;
using kzo::core::Notifier;
using kzo::core::NotifierType;
using kzo::core::Plugin;

Dispatcher& dispatcher() { return *Plugin::instance()->dispatcher(); }

// Kinds

// Which kind stands for which pair is seen where all of them are sent (MixedMessages).
TEST(MessageTypes, AreNinetySeven) {
    using kzo::core::messageRow;
    int rows = 0;
    for (std::uint32_t number = 0; number <= 1000; ++number) rows += messageRow(MessageType(number)) != nullptr;
    EXPECT_EQ(rows, 97);
    EXPECT_EQ(messageRow("AI Preference", "Preference Dialog Update"), nullptr); // the host spells it otherwise
    EXPECT_EQ(messageRow("AI Annotation", "AI Invalidate")->type, MessageType(30));
    EXPECT_EQ(messageRow(MessageType::Unknown), nullptr);
    EXPECT_EQ(static_cast<std::uint32_t>(MessageType::Unknown), 0xFFFFFFF6);
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
        const desk::Refusing no(desk.tables().notifier, &AINotifierSuite::AddNotifier);
        EXPECT_TRUE(dispatcher().registerNotifier("No", NotifierType::DocumentNew, receiver.callback()).isEmpty());
    });
    receiver.work = [&] {
        notifier.destroy(); // while it runs; the message says the same as before
        const auto* const message = dynamic_cast<const kzo::core::NotifyMessage*>(Dispatcher::lastMessage());
        EXPECT_EQ(message->notifierType(), NotifierType::DocumentSaved);
    };
    desk.session().notify("AI Document Saved Notifier");
    EXPECT_TRUE(receiver.runs == 1 && notifier.isEmpty());
    EXPECT_EQ(desk.session().notifiers.all().size(), 3u); // the framework's own are left
}

} // namespace
