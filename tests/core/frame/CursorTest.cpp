// Cursors: whose they are, which image shows, and the clicks of a hand that is the plug-in's.
#include <gmock/gmock.h>

#include "core/app/Plugin.h"
#include "core/frame/Cursor.h"
#include "core/frame/Dispatcher.h"
#include "plugin/frame/Cursor.h"
#include "plugin/host/HostMonitor.h"
#include "plugin/host/RefCountMap.h"
#include "support/Desk.h"
#include "support/Receiver.h"

namespace {

using namespace kzo::core;
using desk::Desk;
using testing::ElementsAre;
using testing::HasSubstr;

class Cursors : public testing::Test {
  protected:
    Desk desk;
};

TEST_F(Cursors, AreSharedByNumberAndByWhatTheyAreMadeOf) {
    Cursor kept;
    desk.inMessage([&] {
        EXPECT_TRUE(Cursor().isEmpty());
        EXPECT_EQ(Cursor(), Cursor(AdobeCursor{0}));
        EXPECT_TRUE(Cursor(AdobeCursor{kzo::plugin::kFirstImageCursor}).isEmpty());
        EXPECT_TRUE(Cursor(0, 0, 0, {1, 2}).isEmpty());
        EXPECT_EQ(Cursor(AdobeCursor::Pen), Cursor(AdobeCursor::Pen));
        EXPECT_FALSE(Cursor(AdobeCursor::Pen) == Cursor(AdobeCursor::Move));
        kept = Cursor(20, 21, 22, {3, 4});
        EXPECT_EQ(kept.hotSpot(), Point(3, 4));
        EXPECT_EQ(kept, Cursor(20, 21, 22, {3, 4}));
        EXPECT_FALSE(kept == Cursor(20, 21, 22, {3, 5}));
        EXPECT_FALSE(kept == Cursor(20, 21, 0, {3, 4}));
        EXPECT_FALSE(kept == Cursor(AdobeCursor::Pen)); // resource 20 is not the host's cursor 20
    });
    desk.session().quit();
    EXPECT_TRUE(kept.isEmpty());
    auto& monitor = kzo::plugin::host::monitor();
    monitor.reset();
    kept.enable();
    Cursor::click({1, 1});
    EXPECT_EQ(kept.hotSpot(), Point());
    EXPECT_TRUE(Cursor::CurrentCursor().isEmpty());
    EXPECT_EQ(Cursor::screenLoc(), Point());
    EXPECT_EQ(monitor.calls(), 0u);
    kept = Cursor();
    EXPECT_FALSE(kzo::plugin::MapOf<kzo::plugin::__CursorContainerID>::exists());
}

TEST_F(Cursors, ShowTheImageThatTheDisplayHasPixelsFor) {
    struct Row {
        double display;
        std::int16_t images[3];
        std::int16_t resource; // 0: nothing is shown
        int scale;
    };
    constexpr Row rows[] = {
        {1, {1, 2, 3}, 1, 1},    {1.01, {1, 2, 3}, 1, 1}, {1.02, {1, 2, 3}, 2, 2}, {2, {1, 2, 3}, 2, 2},
        {2.01, {1, 2, 3}, 2, 2}, {2.02, {1, 2, 3}, 3, 3}, {3, {1, 2, 0}, 2, 2},    {3, {1, 0, 0}, 1, 1},
        {2, {1, 0, 3}, 1, 1},    {3, {1, 0, 3}, 3, 3},    {1, {0, 2, 3}, 0, 1},
    };
    for (const Row& row : rows) {
        desk.session().screen.cursor = {};
        desk.session().screen.displayScale = row.display;
        desk.inMessage([&] {
            const Cursor cursor(row.images[0], row.images[1], row.images[2], {3, 4});
            cursor.enable();
            EXPECT_EQ(Cursor::CurrentCursor(), row.resource != 0 ? cursor : Cursor()) << row.display;
        });
        const StageCursor& shown = desk.session().screen.cursor;
        EXPECT_EQ(shown.resource, row.resource) << row.display;
        if (row.resource == 0) continue;
        EXPECT_EQ(shown.scale, row.scale) << row.display;
        EXPECT_EQ(shown.hotSpot.v, 4);
        EXPECT_EQ(shown.plugin, desk.session().plugins.all()[0]->handle);
    }
    desk.session().close(); // no frame to measure
    desk.inMessage([] { Cursor(1, 2, 3, {}).enable(); });
    EXPECT_EQ(desk.session().screen.cursor.resource, 1);
    desk.inMessage([] {
        EXPECT_TRUE(Cursor::CurrentCursor().isEmpty()); // nothing holds that cursor any more
        Cursor(AdobeCursor::Move).enable();
        EXPECT_EQ(Cursor::CurrentCursor(), Cursor(AdobeCursor::Move));
    });
    EXPECT_EQ(desk.session().screen.cursor.number, 140);
}

TEST_F(Cursors, ClickAfterTheMessageAsTheUserWould) {
    desk.selectTool();
    desk.document().view = {.zoom = 2, .center = {400, 300}};
    easel::session::Pointer& pointer = desk.session().pointer;
    pointer.snapping.toPoint = true;
    desk.addPath({{250, 180}, {300, 180}});
    desk.inMessage([&] {
        Cursor::mouseDown({102, 60}); // the window begins at (200, 150)
        EXPECT_FALSE(pointer.pressed());
    });
    EXPECT_TRUE(pointer.pressed());
    EXPECT_EQ(pointer.location(), (desk::Point{250, 180}));                 // on the anchor near by
    desk.inMessage([] { EXPECT_EQ(Cursor::screenLoc(), Point(102, 60)); }); // where the hand is
    desk.inMessage([] {
        Cursor::mouseUp({0, 0});
        Cursor::click({20, 30});
    });
    EXPECT_FALSE(pointer.pressed());
    EXPECT_EQ(pointer.rawLocation(), (desk::Point{210, 165}));
    EXPECT_EQ(desk.paths().size(), 2u); // a line from the first press; a click draws none
}

TEST_F(Cursors, CannotClickForEverNorWhereNothingIs) {
    desk.expectReports();
    desk.session().close();
    desk.inMessage([] { Cursor::click({1, 1}); });
    EXPECT_THAT(desk.session().reports.lines(),
                ElementsAre("plug-in: a posted press of the mouse was dropped: no document is open",
                            "plug-in: a posted release of the mouse was dropped: no document is open"));
    desk.session().newDocument(100, 100);
    desk.inMessage([] { Cursor::mouseUp({1, 1}); });
    EXPECT_THAT(desk.session().reports.lines().back(), HasSubstr("no mouse button is down"));
    desk.selectTool();
    desk::Receiver answer{[] { Cursor::click({10, 10}); }};
    desk.inMessage([&] { Plugin::instance()->setToolPostMouseUpCallback(answer.callback()); });
    desk.session().pointer.press({1, 1}, 0);
    desk.session().pointer.release({1, 1}, 0);
    EXPECT_EQ(answer.runs, 1 + easel::session::Messenger::kMaxDeferred / 2);
    EXPECT_THAT(desk.session().reports.lines().back(), HasSubstr("the rest is dropped"));
    // The click that a closing document's gesture leads to finds none any more.
    desk.session().pointer.press({1, 1}, 0);
    desk.session().close();
    EXPECT_FALSE(desk.session().pointer.pressed());
    EXPECT_THAT(desk.session().reports.lines().back(), HasSubstr("no document is open"));
}

// A plug-in that pressed the button when it heard of the user's press began a second gesture within the first, which
// then never ended.
TEST_F(Cursors, PressInsteadOfTheUserWhoseButtonTheyHearOf) {
    desk.selectTool();
    desk::Receiver monitor;
    monitor.work = [&] {
        if (monitor.runs == 1) Cursor::mouseDown({10, 10});
    };
    desk.inMessage([&] { Plugin::instance()->dispatcher()->addMouseMonitor(MouseButton::Left, monitor.callback()); });
    EXPECT_THROW(desk.session().pointer.press({50, 50}, 0), easel::session::Error);
    desk.session().pointer.release({90, 10}, 0);
    EXPECT_FALSE(desk.document().journal().running());
}

} // namespace
