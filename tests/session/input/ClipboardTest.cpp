// Cutting, copying and pasting by keys, within a drawing and from one to another.
#include <gmock/gmock.h>

#include <filesystem>
#include <string>

#include "session/app/Session.h"
#include "session/input/Keys.h"
#include "support/Folder.h"

namespace {

using easel::model::Node;
using easel::model::Point;
using testing::HasSubstr;

class ClipboardTest : public testing::Test {
  protected:
    void press(const char* name, easel::session::Modifiers held = kAICommandKey) {
        session.input.pressKey(*easel::session::keyCode(name), held);
    }
    easel::model::Document& document() { return *session.document(); }
    Node& top() { return *document().currentLayer().firstChild(); }
    std::size_t count() { return document().currentLayer().childCount(); }
    std::string saved() {
        session.save(folder.path("saved.svg"), true);
        return folder.content("saved.svg");
    }

    static constexpr easel::session::Modifiers kInPlace = kAICommandKey | kAIShiftKey;
    desk::Folder folder;
    easel::session::Session session;
    const std::string drawing = folder.write(
        "drawing.svg",
        "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' width='100' height='100'>"
        "<defs><linearGradient id='dawn'><stop stop-color='red'/></linearGradient></defs>"
        "<rect id='sky' width='50' height='20' fill='url(#dawn)'/>"
        "<g id='both'><path d='M0 0L10 0'/><path d='M0 5L10 5'/></g><path d='M0 0h9v9zM3 2h1v1z'/></svg>");
};

TEST_F(ClipboardTest, GivesBackAllThatADrawingHolds) {
    session.open(drawing);
    press("A");
    press("X");
    EXPECT_EQ(count(), 0U);
    EXPECT_THAT(saved(), testing::Not(HasSubstr("#dawn)")));
    press("V", kInPlace);
    ASSERT_EQ(count(), 3U);
    EXPECT_EQ(top().childCount(), 2U); // the hole too
    EXPECT_EQ(top().next()->childCount(), 2U);
    EXPECT_THAT(saved(), HasSubstr("#dawn)"));
    EXPECT_EQ(document().selection().size(), 7U);
    document().journal().undo(); // one step each
    EXPECT_EQ(count(), 0U);
    document().journal().undo();
    EXPECT_EQ(count(), 3U);
}

/// The first time too, while what was copied is there; what changed after that is not pasted.
TEST_F(ClipboardTest, PutsCopiesAside) {
    session.open(drawing);
    Node& group = *top().next();
    document().select(group, true);
    const Point from = group.firstChild()->path().points[0].anchor;
    press("C");
    document().offset(group, 1, 1);
    for (const double away : {10.0, 20.0}) {
        press("V");
        EXPECT_EQ(top().firstChild()->path().points[0].anchor, (Point{from.x + away, from.y + away}));
        EXPECT_TRUE(top().selected());
        EXPECT_FALSE(group.selected());
    }
    press("V", kInPlace);
    EXPECT_EQ(top().firstChild()->path().points[0].anchor, from);
    const std::size_t before = count();
    document().setLocked(document().currentLayer(), true);
    press("V");
    EXPECT_EQ(count(), before);
    EXPECT_THAT(session.reports.lines().back(), HasSubstr("nothing can be pasted: the current layer is locked"));
}

TEST_F(ClipboardTest, OtherDrawingsGetWhatCanBeSaidOfItAlone) {
    session.open(drawing);
    press("A");
    press("C");
    session.newDocument(300, 300);
    press("V");
    EXPECT_EQ(count(), 2U); // without the gradient's
    EXPECT_THAT(session.reports.lines().back(), HasSubstr("1 object was not pasted"));
    for (const char* const damaged : {"", "no drawing", "<svg", "<svg xmlns='http://www.w3.org/2000/svg'/>"}) {
        session.clipboard.setText(damaged);
        press("V");
        EXPECT_EQ(count(), 2U) << damaged;
    }
    session.clipboard.setText("<svg xmlns='http://www.w3.org/2000/svg'><symbol id='s'><path d='M0 0h9'/></symbol>"
                              "<path d='M0 0h9'/><use href='#s'/><path d='M2e9 0h9'/><image href='here.png'/></svg>");
    press("V");
    EXPECT_EQ(count(), 3U);
    EXPECT_THAT(session.reports.lines().back(), HasSubstr("3 objects were not pasted"));
    const std::string before = session.clipboard.text();
    press("A", kInPlace); // with nothing selected the clipboard stays as it is
    press("C");
    EXPECT_EQ(session.clipboard.text(), before);
}

} // namespace
