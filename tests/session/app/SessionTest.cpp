// The session: loading, starting and ending plug-ins, tools and documents, as the faces of the application use it.
#include <gmock/gmock.h>

#include "places/Places.h"
#include "session/app/Session.h"
#include "support/Folder.h"

namespace {

using namespace easel;
using session::Session;

const std::string buildDir = TEST_BUILD_DIR;

// Plug-ins

// The stack ran over when a plug-in answered a message with the same message.
TEST(Session, EndsAnExchangeOfMessagesThatHasNoEnd) {
    Session session;
    session::Plugin& echo =
        session.plugins.attach("Echo", [](const char* caller, const char* selector, void* message) -> SPErr {
            Session& host = Session::current();
            auto& record = *static_cast<SPMessageData*>(message);
            const bool over = std::string(caller) != "Test";
            return over ? kNoErr : host.messenger.pass(*host.plugins.all()[0], caller, selector, record);
        });
    session.start();
    SPMessageData record{};
    EXPECT_EQ(session.messenger.send(echo, "Test", "Again", record), kRefusedErr);
    EXPECT_THAT(session.reports.lines(),
                testing::ElementsAre("plug-in: Echo was not sent Test/Again: messages are nested 100 deep"));
    EXPECT_EQ(session.messenger.send(echo, "Other", "Again", record), kNoErr);
}

TEST(Session, StartsAndEndsTheBundleAHundredTimes) {
    for (int i = 0; i < 100; ++i) {
        Session session;
        session.plugins.load(buildDir + "/Ortholine.aip");
        ASSERT_THAT(session.start(), testing::IsEmpty());
        session.newDocument(200, 200);
        session.input.selectTool(*session.toolbox.findByTitle("Isometric Line Tool"));
        session.pointer.press({50, 50}, 0);
        session.pointer.drag({100, 50}, 0);
        if (i % 2 == 0) session.pointer.release({100, 50}, 0);
        session.quit(); // with the gesture running, and with the document open
        ASSERT_EQ(session.document(), nullptr);
        ASSERT_THAT(session.reports.lines(), testing::IsEmpty());
        ASSERT_EQ(session.memory.blocksInUse(), 0u);
    }
}

TEST(Session, StartedAgainFindsNothingLeftOfTheTimeBefore) {
    Session session;
    session.plugins.load(buildDir + "/Ortholine.aip/"); // with a slash, as a shell completes it
    for (int i = 0; i < 3; ++i) {
        for (int again = 0; again < 2; ++again) EXPECT_THAT(session.start(), testing::IsEmpty());
        EXPECT_EQ(session.notifiers.all().size(), 3u);
        EXPECT_EQ(session.pluginGroups.all().size(), 1u);
        EXPECT_EQ(session.toolbox.all().size(), 4u);
        session.quit();
        EXPECT_THAT(session.notifiers.all(), testing::IsEmpty());
        EXPECT_EQ(session.toolbox.all().size(), 2u);
    }
    const std::string same = buildDir + "/tests/../Ortholine.aip";
    EXPECT_EQ(desk::errorOf<session::Error>([&] { session.plugins.load(same); }), same + ": is loaded already");
}

// Documents

TEST(Session, TellsHandlesOfOneDocumentFromThoseOfAnother) {
    Session session;
    model::Document& first = session.newDocument(100, 100);
    const auto firstNumber = session.documents.numberOf(first);
    model::Document& second = session.newDocument(200, 200);
    EXPECT_EQ(session.document(), &second);
    EXPECT_NE(session.documents.numberOf(second), firstNumber);
    EXPECT_EQ(session.documents.byNumber(firstNumber), &first);
    session.close();
    EXPECT_EQ(session.document(), &first);
    session.close();
    EXPECT_EQ(session.documents.byNumber(firstNumber), nullptr);
    session.newDocument(100, 100);
    EXPECT_EQ(session.documents.byNumber(firstNumber), nullptr); // a number is never used twice
}

// A path that leads through a link and back was taken by its letters, and saving replaced another drawing.
TEST(Session, SavesTheFileThatItOpened) {
    const desk::Folder folder;
    const std::string other = "<svg xmlns='http://www.w3.org/2000/svg' width='10' height='10'/>";
    folder.write("here/d.svg", other);
    folder.write("there/d.svg", other);
    std::filesystem::create_directory(folder.path("there/inner"));
    std::filesystem::create_directory_symlink(folder.path("there/inner"), folder.path("here/link"));
    Session session;
    model::Document& opened = session.open(folder.path("here/link/../d.svg"));
    opened.addLayer("New");
    session.save(session.documents.pathOf(opened), false);
    EXPECT_EQ(folder.content("here/d.svg"), other);
    EXPECT_THAT(folder.content("there/d.svg"), testing::HasSubstr("New"));
}

} // namespace
