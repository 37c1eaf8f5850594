// The line tool as a user meets it: mouse messages in, lines in the document out.
#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>

#include "core/app/Plugin.h"
#include "maker/Globals.h"
#include "support/Desk.h"
#include "support/Drawing.h"
#include "support/Receiver.h"
#include "tool/Plugin.h"

namespace {

using desk::Desk;
using desk::Point;
using desk::Refusing;
using easel::model::Document;
using easel::model::Node;

Point along(Point from, double distance, double degrees) {
    const double radians = degrees * std::numbers::pi / 180;
    return {from.x + distance * std::cos(radians), from.y - distance * std::sin(radians)};
}

/// The one new line of a desk whose document was empty.
std::vector<Point> onlyLine(Desk& desk) {
    const auto paths = desk.paths();
    EXPECT_EQ(paths.size(), 1u);
    return paths.empty() ? std::vector<Point>{{}, {}} : desk.anchors(*paths.front());
}

void expectNear(Point actual, Point expected) {
    EXPECT_NEAR(actual.x, expected.x, 1e-9);
    EXPECT_NEAR(actual.y, expected.y, 1e-9);
}

// Directions

TEST(LineTool, HoldsLinesToTheNearestAxisUnlessKeysSayOtherwise) {
    struct Case {
        double drawn;
        double held;
        easel::session::Modifiers keys = 0;
    };
    // Six senses of three axes; ties go to the axis that is listed first, also straight to the right.
    for (const Case& c : {Case{40, 30},
                          {61, 90},
                          {100, 90},
                          {170, 150},
                          {200, 210},
                          {-100, 270},
                          {-20, 330},
                          {0, 30},
                          {60, 30},
                          {33, 45, kAIShiftKey},
                          {33, 33, kAIOptionKey},
                          {33, 45, kAIShiftKey | kAIOptionKey},
                          {33, 30, kAICommandKey}}) {
        Desk desk;
        desk.selectTool();
        const Point start{400, 300};
        desk.stroke({start, along(start, 120, c.drawn)}, c.keys);
        const auto line = onlyLine(desk);
        SCOPED_TRACE(c.drawn);
        expectNear(line[0], start);
        expectNear(line[1], along(start, 120, c.held));
    }
}

TEST(LineTool, MeasuresAndTestsInAZoomedViewAsOnScreen) {
    Desk desk;
    desk.document().view.zoom = 10;
    desk.selectTool();
    EXPECT_EQ(desk.session().screen.cursor.number, 20);
    desk.inMessage([] { EXPECT_EQ(vlGlobals::adj4vue(8), 0.8); });
    // A path's end 0.4 points away is 4 screen units away: too far to be pressed on.
    desk.addPath({{100, 100}, {140, 100}});
    desk.session().pointer.press({100.4, 100}, 0);
    EXPECT_FALSE(vlGlobals::instance()->continuing);
    desk.session().pointer.cancel();
    desk.session().pointer.press({100.2, 100}, 0);
    EXPECT_TRUE(vlGlobals::instance()->continuing);
    EXPECT_EQ(desk.session().screen.cursor.number, 230);
    desk.session().pointer.cancel();
}

// What is made

TEST(LineTool, MakesAnOpenSelectedThinBlackLineOfTwoCornersInTheCurrentLayer) {
    Desk desk;
    Node& lower = desk.document().currentLayer();
    Node& other = desk.addPath({{10, 10}, {20, 20}});
    desk.document().select(other, true);
    desk.document().addLayer("Upper");
    desk.document().setCurrentLayer(lower);
    desk.selectTool();
    desk.stroke({{100, 100}, {200, 100}});
    ASSERT_EQ(desk.paths().size(), 2u);
    const Node& line = *desk.paths().front();
    EXPECT_EQ(&line.layer(), &lower);
    EXPECT_FALSE(line.path().closed);
    EXPECT_FALSE(line.path().smooth);
    for (const auto& point : line.path().points) EXPECT_TRUE(point.in == point.anchor && point.out == point.anchor);
    EXPECT_FALSE(line.style().fill);
    EXPECT_TRUE(line.style().stroke);
    EXPECT_EQ(line.style().strokeColor, easel::model::Color());
    EXPECT_EQ(line.style().strokeWidth, 0.5);
    EXPECT_EQ(line.style().dashes().count, 0);
    EXPECT_THAT(desk.document().selection(), testing::ElementsAre(&line));
}

TEST(LineTool, LeavesNoLineThatIsShorterThanTwoPoints) {
    for (const double length : {0.0, 1.999, 2.0, 2.001}) {
        Desk desk;
        desk.selectTool();
        const Point start{37.1, 45.3};
        desk.stroke({start, along(start, length, 30)});
        EXPECT_EQ(desk.paths().size(), length < 2 ? 0u : 1u) << length;
        EXPECT_EQ(desk.document().journal().undoDepth(), length < 2 ? 0u : 1u) << length;
    }
    // A click beside an end is none on it from afar: 2.6 screen units are more than two points.
    for (const double zoom : {1.0, 0.25}) {
        for (const int keys : {0, int{kAICommandKey}}) {
            for (const Point end : {Point{100, 100}, {200, 100}}) {
                Desk desk;
                desk.document().view.zoom = zoom;
                Node& path = desk.addPath({{100, 100}, {200, 100}});
                const auto steps = desk.document().journal().undoDepth();
                desk.selectTool();
                const Point beside{end.x + (end.x > 100 ? 2.25 : -2.25) / zoom, end.y - 1.3 / zoom};
                desk.session().pointer.press(beside, keys);
                EXPECT_TRUE(vlGlobals::instance()->continuing);
                if (end.x > 100) desk.session().pointer.drag(beside, keys);
                EXPECT_EQ(vlGlobals::instance()->endPoint.x(), end.x);
                desk.session().pointer.release({beside.x, beside.y + 1.9}, keys);
                EXPECT_EQ(desk.anchors(path), (std::vector<Point>{{100, 100}, {200, 100}}));
                EXPECT_EQ(desk.paths().size(), 1u);
                EXPECT_EQ(desk.document().journal().undoDepth(), steps);
            }
        }
    }
    // A press and a release with no drag between them draw the line from one to the other.
    Desk desk;
    desk.selectTool();
    desk.session().pointer.press({100, 100}, 0);
    desk.session().pointer.release({100, 50}, 0);
    expectNear(onlyLine(desk)[1], {100, 50});
}

TEST(LineTool, DrawsNothingOnALockedOrHiddenLayer) {
    for (const bool locked : {true, false}) {
        Desk desk;
        Document& document = desk.document();
        Node& layer = document.currentLayer();
        locked ? document.setLocked(layer, true) : document.setHidden(layer, true);
        const auto steps = document.journal().undoDepth();
        desk.selectTool();
        desk.session().pointer.press({100, 100}, 0);
        desk.session().pointer.drag({200, 100}, 0);
        EXPECT_TRUE(desk.paths().empty());
        desk.session().pointer.release({200, 100}, 0);
        EXPECT_TRUE(desk.paths().empty());
        EXPECT_EQ(document.journal().undoDepth(), steps);
        // Told once a stroke, and never of one that is taken back.
        using easel::session::Remark;
        const std::string report =
            std::string("user data: \"Isometric Line Tool\" cannot draw: the current layer is ") +
            (locked ? "locked" : "hidden");
        EXPECT_EQ(desk.session().pointer.remark(), locked ? Remark::LayerLocked : Remark::LayerHidden);
        desk.session().pointer.press({100, 100}, 0);
        desk.session().pointer.cancel();
        EXPECT_THAT(desk.session().reports.lines(), testing::ElementsAre(report));
        locked ? document.setLocked(layer, false) : document.setHidden(layer, false);
        desk.stroke({{100, 100}, {200, 100}});
        EXPECT_EQ(desk.session().pointer.remark(), Remark::None);
        EXPECT_EQ(desk.session().reports.lines().size(), 1U);
        desk.expectReports();
    }
}

// Gestures

TEST(LineTool, LeavesOneLineAndOneStepAfterAThousandDrags) {
    Desk desk;
    desk.addPath({{10, 10}, {300, 200}});
    const std::string before = desk.svg();
    const auto steps = desk.document().journal().undoDepth();
    desk.selectTool();
    auto& pointer = desk.session().pointer;
    pointer.press({400, 300}, 0);
    for (int i = 0; i < 1000; ++i) {
        pointer.drag(along({400, 300}, 50 + i % 97, i), 0);
        ASSERT_EQ(desk.paths().size(), 2u); // the feedback line of this drag alone
    }
    pointer.release({500, 300}, 0);
    EXPECT_EQ(desk.paths().size(), 2u);
    EXPECT_EQ(desk.document().journal().undoDepth(), steps + 1);
    const std::string after = desk.svg();
    EXPECT_TRUE(desk.document().journal().undo());
    EXPECT_EQ(desk.svg(), before);
    EXPECT_TRUE(desk.document().journal().redo());
    EXPECT_EQ(desk.svg(), after);
}

TEST(LineTool, EndedByEscapeOrAnotherChoiceOfToolLeavesTheDocumentAsBeforeThePress) {
    enum class End { Escape, AnotherChoice, Press, Deselection };
    for (const End end : {End::Escape, End::AnotherChoice, End::Press, End::Deselection}) {
        const bool lost = end == End::Press || end == End::Deselection; // the release, by the host
        SCOPED_TRACE(static_cast<int>(end));
        Desk desk;
        Node& path = desk.addPath({{100, 100}, {160, 100}});
        desk.document().select(path, true);
        const std::string before = desk.svg();
        desk.selectTool();
        auto& pointer = desk.session().pointer;
        if (lost) {
            AIToolMessage press{.d = {},
                                .tool = desk.session().toolbox.current()->handle,
                                .cursor = {100, 100}, // on the start, which turns the path round
                                .modifiers = 0,
                                .flags = 0};
            desk.session().messenger.send(desk.product(), kCallerAITool, kSelectorAIToolMouseDown, press.d);
            if (end == End::Deselection) desk.selectTool("Isometric Mover Tool");
            if (end == End::Deselection) desk.selectTool();
            desk.stroke({{300, 300}});
        } else {
            pointer.press({100, 100}, 0);
            pointer.drag({100, 40}, 0);
            end == End::Escape ? pointer.cancel() : desk.selectTool();
        }
        EXPECT_FALSE(pointer.pressed());
        EXPECT_EQ(desk.svg(), before);
        EXPECT_EQ(path.selected(), !lost); // a click deselects
        desk.stroke({{300, 300}, {300, 200}});
        EXPECT_EQ(desk.anchors(*desk.paths().front())[0], (Point{300, 300}));
    }
}

// Escape once raised the alert that the path, which goes back anyway, would be too long.
TEST(LineTool, TellsOfTooManyPointsOnlyWhereTheLineIsToStay) {
    for (const bool stays : {false, true}) {
        std::vector<std::string> said;
        Desk desk({.said = &said});
        std::vector<easel::model::PathPoint> points;
        for (int i = 0; i < 32000; ++i) points.push_back(easel::model::cornerAt({0.01 * i, 100.0 + (i + 1) % 2}));
        const Point end = points.back().anchor;
        easel::model::addPath(desk.document(), desk.document().currentLayer(), std::move(points));
        desk.selectTool();
        vlGlobals::instance()->autoConcat = true;
        said.clear();
        auto& pointer = desk.session().pointer;
        pointer.press(end, 0);
        pointer.drag({end.x, 10}, 0);
        stays ? pointer.release({end.x, 10}, 0) : pointer.cancel();
        EXPECT_EQ(said.size(), stays ? 1u : 0u);
        EXPECT_EQ(desk.paths().size(), stays ? 2u : 1u);
    }
}

TEST(LineTool, StartsOnTheAnchorThatIsPressedNearby) {
    Desk desk({.snapToPoint = true});
    desk.addPath({{100, 100}, {160, 130}});
    desk.selectTool();
    desk.stroke({{161, 129}, {250, 180}});
    EXPECT_EQ(desk.anchors(*desk.paths().front())[0], (Point{160, 130}));
    // Ends snap too, and the distance to what they snapped to is the line's length.
    desk.stroke({{300, 131}, {160.5, 130.5}}, kAIOptionKey);
    expectNear(desk.anchors(*desk.paths().front())[1], {160, 130});
}

// Continuing a path

TEST(LineTool, TurnsAnOpenPathThatIsPressedOnAtItsStart) {
    struct Case {
        Point pressed;
        bool closed;
        bool continuing;
        bool turned;
    };
    const Point first{100, 100}, middle{150, 80}, last{200, 120};
    for (const Case& c : {Case{first, false, true, true},
                          {last, false, true, false},
                          {middle, false, false, false},
                          {first, true, false, false},
                          {{125, 90}, false, false, false}}) {
        Desk desk;
        Node& path = desk.addPath({first, middle, last}, c.closed);
        desk.selectTool();
        desk.session().pointer.press(c.pressed, 0);
        const vlGlobals& globals = *vlGlobals::instance();
        EXPECT_EQ(globals.continuing, c.continuing);
        EXPECT_EQ(desk.anchors(path).front(), c.turned ? last : first);
        // The way out of the path's last point, whichever that is now.
        if (c.continuing) {
            const double way = c.turned ? std::atan2(80 - 100, 100 - 150) : std::atan2(80 - 120, 200 - 150);
            EXPECT_NEAR(globals.exitAngle.asRadians(), way, 1e-12);
        }
        desk.session().pointer.cancel();
    }
    // What an earlier press continued is forgotten by the next.
    Desk desk;
    desk.addPath({first, middle, last});
    desk.selectTool();
    desk.stroke({last, {300, 120}});
    desk.session().pointer.press({500, 500}, 0);
    EXPECT_FALSE(vlGlobals::instance()->continuing);
    desk.session().pointer.cancel();
}

// A click on the first point of a path once left the path turned round, an undo step with nothing to see, and no redo.
TEST(LineTool, ClickedOnThePathsStartLeavesNothingBehind) {
    for (const bool locked : {false, true}) {
        Desk desk;
        Node& path = desk.addPath({{100, 100}, {160, 130}});
        desk.addPath({{1, 1}, {9, 9}});
        auto& journal = desk.document().journal();
        ASSERT_TRUE(journal.undo());
        if (locked) {
            Node& free = desk.document().currentLayer();
            desk.document().setLocked(desk.document().addLayer("Locked"), true);
            EXPECT_NE(&free, &desk.document().currentLayer());
            desk.expectReports();
        }
        const auto steps = journal.undoDepth();
        const auto redoSteps = journal.redoDepth();
        desk.selectTool();
        const Point end = locked ? Point{200, 40} : Point{100, 100};
        desk.stroke({{100, 100}, end});
        EXPECT_EQ(desk.anchors(path).front(), (Point{100, 100}));
        EXPECT_EQ(journal.undoDepth(), steps);
        EXPECT_EQ(journal.redoDepth(), redoSteps);
    }
}

// Joining

TEST(LineTool, JoinsToThePressedEndWhenJustOneOfSettingAndCommandSaysSo) {
    const Point first{100, 100}, middle{150, 80}, last{200, 120};
    for (const bool setting : {false, true}) {
        for (const bool command : {false, true}) {
            for (const bool atStart : {false, true}) {
                Desk desk;
                Node& path = desk.addPath({first, middle, last});
                easel::model::Style style = path.style();
                style.strokeWidth = 7;
                desk.document().setStyle(path, style);
                desk.addPath({{1, 1}, {9, 9}});
                desk.selectTool();
                vlGlobals::instance()->autoConcat = setting;
                const std::string before = desk.svg();
                const auto steps = desk.document().journal().undoDepth();
                const Point end = atStart ? first : last;
                // A press beside the end is one on it.
                desk.stroke({{end.x + 0.3, end.y - 0.2}, along(end, 60, 90)}, command ? kAICommandKey : 0);
                SCOPED_TRACE(testing::Message() << setting << command << atStart);
                const bool joins = setting != command;
                ASSERT_EQ(desk.paths().size(), joins ? 2u : 3u);
                EXPECT_EQ(desk.document().journal().undoDepth(), steps + 1);
                if (joins) {
                    const auto points = desk.anchors(path);
                    ASSERT_EQ(points.size(), 4u);
                    EXPECT_EQ(points[0], atStart ? last : first);
                    EXPECT_EQ(points[2], end);
                    expectNear(points[3], along(end, std::hypot(0.0, 60.0), 90));
                    EXPECT_EQ(path.style(), style);
                    EXPECT_TRUE(path.selected());
                } else {
                    EXPECT_EQ(desk.anchors(path).front(), first);
                    EXPECT_EQ(desk.anchors(*desk.paths().front()).front(), end);
                }
                EXPECT_TRUE(desk.document().journal().undo());
                EXPECT_EQ(desk.svg(), before);
            }
        }
    }
}

TEST(LineTool, JoinsOneLineAfterAnotherIntoOnePath) {
    Desk desk({.snapToPoint = true});
    desk.selectTool();
    vlGlobals::instance()->autoConcat = true;
    desk.stroke({{100, 400}, {160, 366}});
    for (int step = 0; step < 4; ++step) {
        const Point end = desk.anchors(*desk.paths().front()).back();
        desk.stroke({end, along(end, 60, step % 2 == 0 ? 90 : 30)});
    }
    ASSERT_EQ(desk.paths().size(), 1u);
    EXPECT_EQ(desk.anchors(*desk.paths().front()).size(), 6u);
    // Straight on, the segment only gets longer.
    for (int step = 0; step < 2; ++step) {
        const Point end = desk.anchors(*desk.paths().front()).back();
        desk.stroke({end, along(end, 25, 90)});
        EXPECT_EQ(desk.anchors(*desk.paths().front()).size(), 7u);
    }
}

TEST(LineTool, JoinsNothingThatTurnsBackOrIsTooShort) {
    const struct {
        double length;
        double degrees;
        std::size_t paths;
    } rows[] = {{50, 178, 2}, {50, 140, 1}, {1.9, 90, 1}};
    for (const auto& row : rows) {
        Desk desk;
        Node& path = desk.addPath({{100, 100}, {200, 100}});
        desk.selectTool();
        vlGlobals::instance()->autoConcat = true;
        desk.stroke({{200, 100}, along({200, 100}, row.length, row.degrees)}, kAIOptionKey);
        EXPECT_EQ(desk.paths().size(), row.paths);
        EXPECT_EQ(desk.anchors(path).size(), row.degrees == 140 ? 3u : 2u);
    }
}

// Trouble

// What becomes of the hit path and the layers after the last drag, and how many paths there are then.
TEST(LineTool, FindsWhatChangedBetweenPressAndRelease) {
    struct Drawing {
        Desk desk;
        Document& document = desk.document();
        Node& layer = document.currentLayer();
        Node& other = document.addLayer("Other");
        Node& path = desk.addPath({{100, 100}, {200, 100}}, false, &layer);
    };
    const struct {
        const char* what;
        std::function<void(Drawing&)> change;
        std::size_t paths;
    } rows[] = {
        {"nothing", [](Drawing&) {}, 1},
        {"the path is locked", [](Drawing& d) { d.document.setLocked(d.path, true); }, 2},
        {"the path is hidden", [](Drawing& d) { d.document.setHidden(d.path, true); }, 2},
        {"the path is gone", [](Drawing& d) { d.document.remove(d.path); }, 1},
        {"the path is closed", [](Drawing& d) { d.document.setClosed(d.path, true); }, 2},
        {"the path has moved", [](Drawing& d) { d.document.offset(d.path, 3, 3); }, 2},
        {"the path has no points", [](Drawing& d) { d.document.setPointCount(d.path, 0); }, 2},
        {"its layer is locked", [](Drawing& d) { d.document.setLocked(d.layer, true); }, 2},
        {"its layer is hidden", [](Drawing& d) { d.document.setHidden(d.layer, true); }, 2},
        {"its layer is gone", [](Drawing& d) { d.document.remove(d.layer); }, 1},
        {"the current layer is locked", [](Drawing& d) { d.document.setLocked(d.other, true); }, 1},
        {"the current layer is gone", [](Drawing& d) { d.document.remove(d.other); }, 1},
    };
    for (const auto& row : rows) {
        for (const bool atStart : {false, true}) {
            SCOPED_TRACE(testing::Message() << row.what << atStart);
            Drawing drawing;
            drawing.desk.selectTool();
            vlGlobals::instance()->autoConcat = true;
            desk::Receiver change{[&] { row.change(drawing); }};
            kzo::core::Plugin::instance()->setToolPreMouseUpCallback(change.callback());
            const Point from{atStart ? 100.0 : 200.0, 100};
            drawing.desk.stroke({from, {from.x, 40}});
            const auto paths = drawing.desk.paths();
            EXPECT_EQ(paths.size(), row.paths);
            const auto there = std::find(paths.begin(), paths.end(), &drawing.path);
            const auto points = there == paths.end() ? std::vector<Point>() : drawing.desk.anchors(drawing.path);
            EXPECT_TRUE(points.size() != 2 || points[0].x < points[1].x); // turned back, unless it was joined
            drawing.desk.expectReports();                                 // where a layer cannot be drawn on
        }
    }
}

TEST(LineTool, RefusedHostCallsLeaveTheDrawingAsItWas) {
    const auto strokeWith = [](auto entryOf) {
        Desk desk;
        desk.addPath({{10, 10}, {300, 200}});
        desk.selectTool();
        const std::string before = desk.svg();
        {
            auto no = entryOf(desk);
            desk.stroke({{100, 100}, {160, 40}});
        }
        EXPECT_EQ(desk.svg(), before);
        desk.stroke({{100, 100}, {160, 40}});
        EXPECT_EQ(desk.paths().size(), 2u);
    };
    strokeWith([](Desk& desk) { return Refusing(desk.tables(), &AIArtSuite::NewArt); });
    strokeWith([](Desk& desk) { return Refusing(desk.tables(), &AIPathSuite::SetPathSegments); });
    strokeWith([](Desk& desk) { return Refusing(desk.tables(), &AIPathSuite::SetPathSegmentCount); });
    strokeWith([](Desk& desk) { return Refusing(desk.tables(), &AILayerSuite::GetCurrentLayer); });
    strokeWith([](Desk& desk) { return Refusing(desk.tables(), &AIDocumentSuite::GetDocument); });
}

} // namespace
