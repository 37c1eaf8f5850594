// Annotators of a client: handles, the message that a callback sees, and what makes the host draw anew.
#include <gmock/gmock.h>

#include "core/app/Plugin.h"
#include "core/frame/AnnotationDrawer.h"
#include "core/frame/Annotator.h"
#include "core/frame/Dispatcher.h"
#include "core/frame/Messages.h"
#include "hostapi/AIAnnotatorSuite.h"
#include "hostapi/AITool.h"
#include "plugin/host/HostMonitor.h"
#include "support/Desk.h"
#include "support/Receiver.h"

namespace {

using namespace kzo::core;
using desk::Desk;
using desk::Receiver;
using easel::model::Mark;

class Annotators : public testing::Test {
  protected:
    [[nodiscard]] easel::session::Annotator& host() { return *desk.session().annotations.all().front(); }

    Receiver receiver;
    Desk desk;
};

TEST_F(Annotators, TellTheHostAndRunWhileTheyAreRegistered) {
    desk.inMessage([&] {
        Annotator live("Marks", receiver.callback());
        Annotator copy = live;
        copy.setOptions(Annotator::Options::Second | Annotator::Options(16));
        EXPECT_EQ(host().options, 18);
        EXPECT_EQ(live.options(), Annotator::Options(18));
        EXPECT_TRUE(copy == live && !(copy == Annotator()));
        copy.deactivate();
        EXPECT_FALSE(host().active || live.active());
        Dispatcher& dispatcher = *Plugin::instance()->dispatcher();
        AIAnnotatorMessage record{};
        record.annotator = live.aiAnnotatorHandle();
        for (const bool registered : {false, true}) {
            registered ? dispatcher.registerAnnotator(live) : dispatcher.unregisterAnnotator(copy);
            EXPECT_EQ(dispatcher.message(MessageType::AnnotationDraw, &record), registered ? 0 : 1);
            EXPECT_EQ(receiver.runs, registered ? 1 : 0);
        }
        host().invalid = {};
        live.invalidate();
        EXPECT_TRUE(host().invalid.all);
        copy.destroy();
        live.invalidate();
        EXPECT_TRUE(live.isEmpty());
        EXPECT_THAT(desk.session().annotations.all(), testing::IsEmpty());
    });
}

TEST_F(Annotators, DrawIntoTheContextOfTheirMessage) {
    receiver.work = [&] {
        const auto& message = static_cast<const AnnotatorMessage&>(*Dispatcher::lastMessage());
        if (message.type() != MessageType::AnnotationDraw) return;
        AIDocumentViewHandle view = nullptr;
        EXPECT_EQ(desk.tables().get<AIDocumentViewSuite>().GetNthDocumentView(0, &view), kNoErr);
        EXPECT_EQ(message.docView(), view);
        EXPECT_FALSE(message.triggeredByDragScroll());
        EXPECT_TRUE(message.showEdges());
        EXPECT_THAT(message.invalidationRects(), testing::ElementsAre(ArtboardRect(0, 0, 800, 600)));
        AnnotationDrawer drawer(message.context());
        EXPECT_TRUE(drawer.setOpacity(0) && drawer.setOpacity(1) && drawer.setLineDash(0));
        EXPECT_TRUE(drawer.setColor({1, 0, 0}) && drawer.setOpacity(0.5) && drawer.setLineWidth(2) &&
                    drawer.setLineDash(3) && drawer.setFontSize(9));
        EXPECT_TRUE(drawer.line({1, 2}, {3, 4}));
        EXPECT_TRUE(drawer.rect({1, 2, 3, 4}, AnnotationDrawer::Paint::Fill));
        EXPECT_TRUE(drawer.ellipse({1, 2, 3, 4}));
        EXPECT_TRUE(drawer.polygon({{1, 2}, {3, 4}, {5, 0}}));
        EXPECT_TRUE(drawer.text("12 mm", {7, 8}));
        EXPECT_FALSE(drawer.setOpacity(2));
    };
    desk.inMessage([&] { static_cast<void>(Annotator("Marks", receiver.callback())); });
    desk.session().annotations.update();
    const easel::model::Pen pen{.color = {1, 0, 0}, .opacity = 0.5, .lineWidth = 2, .dash = 3, .fontSize = 9};
    const auto mark = [&](Mark::Kind kind, std::vector<desk::Point> points, bool filled = false,
                          const char* text = "") {
        return Mark{.kind = kind, .points = std::move(points), .pen = pen, .filled = filled, .text = text};
    };
    using Kind = Mark::Kind;
    EXPECT_THAT(host().marks, testing::ElementsAre(
                                  mark(Kind::Line, {{1, 2}, {3, 4}}), mark(Kind::Rectangle, {{1, 2}, {3, 4}}, true),
                                  mark(Kind::Ellipse, {{1, 2}, {3, 4}}), mark(Kind::Polygon, {{1, 2}, {3, 4}, {5, 0}}),
                                  mark(Kind::Text, {{7, 8}}, true, "12 mm")));
}

AIRealRect viewBounds;

TEST_F(Annotators, AreInvalidOnceTheViewOrTheCursorHasMovedFarEnough) {
    desk.tables().get<AIDocumentViewSuite>().GetDocumentViewBounds = [](AIDocumentViewHandle,
                                                                        AIRealRect* bounds) -> AIErr {
        *bounds = viewBounds;
        return kNoErr;
    };
    viewBounds = {0, 0, 0, 0};
    auto& monitor = kzo::plugin::host::monitor();
    Dispatcher& dispatcher = *Plugin::instance()->dispatcher();
    desk.inMessage([&] {
        monitor.reset();
        dispatcher.message("Some", "Message", nullptr);
        EXPECT_EQ(monitor.calls(), 0u) << "although there is no annotator";
        const Annotator annotator("Marks", receiver.callback());
        const auto invalidatedBy = [&](auto message) {
            host().invalid = {};
            message();
            return host().invalid.all;
        };
        const struct {
            AIRealRect bounds;
            bool moves;
        } views[] = {
            {{0, 0, 0, 0}, false},   {{0.1, -0.1, 0, 0.1}, false}, {{0, 0, 0, 0.11}, true}, {{0.1, 0, 0, 0.05}, false},
            {{-0.2, 0, 0, 0}, true}, {{-0.2, 0, 0, 0}, false},     {{-0.2, 5, 0, 0}, true},
        };
        for (const auto& view : views) {
            viewBounds = view.bounds;
            EXPECT_EQ(invalidatedBy([&] { dispatcher.message("Some", "Message", nullptr); }), view.moves)
                << viewBounds.left << ", " << viewBounds.top << " to " << viewBounds.right << ", " << viewBounds.bottom;
        }
        int tools[2];
        const struct {
            int tool;
            AIRealPoint cursor;
            bool moves;
        } moves[] = {
            {0, {0, 0}, true},           {0, {0.001, -0.001}, false}, {0, {0, 0.0011}, true},
            {0, {0.001, 0.0011}, false}, {1, {0, 0.0011}, true},      {1, {0, 0.0011}, false},
        };
        for (const auto& move : moves) {
            AIToolMessage record{};
            record.tool = reinterpret_cast<AIToolHandle>(&tools[move.tool]);
            record.cursor = move.cursor;
            EXPECT_EQ(invalidatedBy([&] { dispatcher.message("AI Tool", "AI Mouse Drag", &record); }), move.moves)
                << move.tool << " at " << move.cursor.h << ", " << move.cursor.v;
        }
    });
}

} // namespace
