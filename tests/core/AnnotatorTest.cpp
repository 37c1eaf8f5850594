// Annotators of a client: handles, the message that a callback sees, and what makes the host draw anew.
#include <gmock/gmock.h>

#include "core/AnnotationDrawer.h"
#include "core/Annotator.h"
#include "core/Dispatcher.h"
#include "core/Messages.h"
#include "core/Plugin.h"
#include "hostapi/AIAnnotatorSuite.h"
#include "hostapi/AIToolSuite.h"
#include "plugin/HostMonitor.h"
#include "support/Desk.h"

namespace {

using namespace kzo::core;
using desk::Desk;
using easel::model::Mark;

struct Witness {
    int runs = 0;
    std::function<void(const AnnotatorMessage&)> during;
    void run() {
        ++runs;
        if (during) during(static_cast<const AnnotatorMessage&>(*Dispatcher::lastMessage()));
    }
};

class Annotators : public testing::Test {
  protected:
    [[nodiscard]] __Callback<Witness> callback() { return {&witness, &Witness::run}; }
    /// What the dispatcher answers to "AI Draw" for a handle.
    std::int32_t draw(AIAnnotator* handle) {
        AIAnnotatorMessage record{};
        record.annotator = handle;
        return Plugin::instance()->dispatcher()->message(MessageType::AnnotationDraw, &record);
    }
    [[nodiscard]] easel::session::Annotator& host() { return *desk.session().annotations.all().front(); }

    Witness witness;
    Desk desk;
};

TEST_F(Annotators, AnswerForWhatTheHostKeepsAndNeutrallyWithoutIt) {
    desk.inMessage([&] {
        auto& monitor = kzo::plugin::host::monitor();
        monitor.reset(1);
        EXPECT_TRUE(Annotator("Refused", callback()).isEmpty());
        const Annotator live("Marks", callback());
        Annotator copy = live;
        Annotator empty;
        copy.setOptions(Annotator::Options::Second | Annotator::Options(16));
        EXPECT_EQ(host().options, 18);
        EXPECT_EQ(live.options(), Annotator::Options(18));
        EXPECT_EQ(live.name(), "Marks");
        EXPECT_TRUE(live.active());
        EXPECT_TRUE(copy == live && !(copy == empty));
        copy.deactivate();
        EXPECT_FALSE(host().active);
        EXPECT_FALSE(live.active());
        copy.activate();
        copy.destroy();
        for (Annotator none : {live, empty}) {
            monitor.reset();
            EXPECT_TRUE(none.isEmpty());
            none.activate();
            none.setOptions(Annotator::Options::First);
            none.setCallback(callback());
            none.destroy();
            Plugin::instance()->dispatcher()->unregisterAnnotator(none);
            EXPECT_FALSE(none.active());
            EXPECT_EQ(none.name(), "");
            EXPECT_EQ(none.options(), Annotator::Options::None);
            EXPECT_EQ(none.callback(), nullptr);
            EXPECT_EQ(none.aiAnnotatorHandle(), nullptr);
            EXPECT_FALSE(AnnotationDrawer(nullptr).line({0, 0}, {1, 1}));
            EXPECT_EQ(monitor.calls(), 0u);
        }
        EXPECT_THAT(desk.session().annotations.all(), testing::IsEmpty());
    });
}

TEST_F(Annotators, RunWhileTheyAreRegistered) {
    Annotator kept;
    desk.inMessage([&] {
        kept = Annotator("Kept", callback());
        Annotator annotator("Marks", callback());
        AIAnnotator* const handle = annotator.aiAnnotatorHandle();
        Dispatcher& dispatcher = *Plugin::instance()->dispatcher();
        EXPECT_EQ(draw(handle), 0);
        EXPECT_EQ(draw(nullptr), 1);
        EXPECT_EQ(draw(reinterpret_cast<AIAnnotator*>(&annotator)), 1);
        dispatcher.unregisterAnnotator(annotator);
        EXPECT_EQ(draw(handle), 1);
        dispatcher.registerAnnotator(annotator);
        witness.during = [&](const AnnotatorMessage& message) {
            EXPECT_EQ(message.annotator(), annotator);
            message.annotator().destroy();
            dispatcher.unregisterAnnotator(kept);
        };
        EXPECT_EQ(draw(handle), 0);
        EXPECT_TRUE(annotator.isEmpty());
        EXPECT_EQ(draw(handle), 1);
        EXPECT_EQ(draw(kept.aiAnnotatorHandle()), 1);
        EXPECT_EQ(witness.runs, 2);
    });
    desk.quit();
    EXPECT_TRUE(kept.isEmpty());
    EXPECT_FALSE(kept.active());
}

TEST_F(Annotators, DrawIntoTheContextOfTheirMessage) {
    witness.during = [&](const AnnotatorMessage& message) {
        if (message.type() != MessageType::AnnotationDraw) return;
        AIDocumentViewHandle view = nullptr;
        EXPECT_EQ(desk.tables().view.table.GetNthDocumentView(0, &view), kNoErr);
        EXPECT_EQ(message.docView(), view);
        EXPECT_FALSE(message.triggeredByDragScroll());
        EXPECT_TRUE(message.showEdges());
        EXPECT_THAT(message.invalidationRects(), testing::ElementsAre(ArtboardRect(0, 0, 800, 600)));
        AnnotationDrawer drawer(message.context());
        EXPECT_TRUE(drawer.setColor({1, 0, 0}) && drawer.setOpacity(0.5) && drawer.setLineWidth(2) &&
                    drawer.setLineDash(3) && drawer.setFontSize(9));
        EXPECT_TRUE(drawer.line({1, 2}, {3, 4}));
        EXPECT_TRUE(drawer.rect({1, 2, 3, 4}, AnnotationDrawer::Paint::Fill));
        EXPECT_TRUE(drawer.ellipse({1, 2, 3, 4}));
        EXPECT_TRUE(drawer.polygon({{1, 2}, {3, 4}, {5, 0}}));
        EXPECT_TRUE(drawer.text("12 mm", {7, 8}));
        EXPECT_FALSE(drawer.setOpacity(2));
    };
    desk.inMessage([&] { static_cast<void>(Annotator("Marks", callback())); });
    desk.session().updateAnnotations();
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
    desk.tables().view.table.GetDocumentViewBounds = [](AIDocumentViewHandle, AIRealRect* bounds) -> AIErr {
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
        const Annotator annotator("Marks", callback());
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
