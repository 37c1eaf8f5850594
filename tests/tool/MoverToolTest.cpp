// The mover tool as a user meets it: what is selected moves along the axes, as what it is and once.
#include <gmock/gmock.h>

#include <cmath>
#include <functional>
#include <numbers>

#include "core/app/Plugin.h"
#include "support/Desk.h"
#include "support/Drawing.h"
#include "support/Receiver.h"

namespace {

using desk::Desk;
using desk::Point;
using easel::model::Node;
using easel::model::NodeType;
using easel::model::Placement;
using easel::model::PointSelection;

constexpr const char* kMover = "Isometric Mover Tool";

Point along(double distance, double degrees) {
    const double radians = degrees * std::numbers::pi / 180;
    return {distance * std::cos(radians), -distance * std::sin(radians)};
}

/// A drag of a path around (300, 200), which ends `by` further.
void drag(Desk& desk, Point by, easel::session::Modifiers keys = 0) {
    desk.selectTool(kMover);
    desk.stroke({{300, 200}, {310, 190}, {300 + by.x, 200 + by.y}}, keys);
}

TEST(MoverTool, HoldsTheWayToTheNearestAxisUnlessKeysSayOtherwise) {
    const struct {
        double dragged, held;
        easel::session::Modifiers keys = 0;
    } rows[] = {{40, 30}, {61, 90}, {200, 210}, {33, 45, kAIShiftKey | kAIOptionKey}, {33, 33, kAIOptionKey}};
    for (const auto& row : rows) {
        Desk desk;
        Node& path = desk.addPath({{0, 0}, {10, 0}});
        Node& other = desk.addPath({{0, 0}, {10, 0}});
        desk.document().select(path, true);
        const std::string before = desk.svg();
        const auto steps = desk.document().journal().undoDepth();
        drag(desk, along(80, row.dragged), row.keys);
        const Point moved = along(80, row.held);
        EXPECT_NEAR(desk.anchors(path)[0].x, moved.x, 1e-9) << row.dragged;
        EXPECT_NEAR(desk.anchors(path)[1].y, moved.y, 1e-9) << row.dragged;
        EXPECT_EQ(desk.anchors(other)[0], Point());
        EXPECT_THAT(desk.document().selection(), testing::ElementsAre(&path));
        EXPECT_EQ(desk.document().journal().undoDepth(), steps + 1);
        EXPECT_TRUE(desk.document().journal().undo());
        EXPECT_EQ(desk.svg(), before);
    }
}

// What is selected, and by how many ways each of five paths has moved then: a and b in a group, in the group's own
// group c, beside it d, on another layer e.
TEST(MoverTool, MovesWhatIsSelectedOnceAndAsWhatItIs) {
    struct Drawing {
        Desk desk;
        Node& layer = desk.document().currentLayer();
        Node& group = desk.document().create(NodeType::Group, Placement::OnTopInside, layer);
        Node& inner = desk.document().create(NodeType::Group, Placement::OnTopInside, group);
        Node& a = desk.addPath({{0, 0}, {10, 0}}, false, &group);
        Node& b = desk.addPath({{0, 0}, {10, 0}}, false, &group);
        Node& c = desk.addPath({{0, 0}, {10, 0}}, false, &inner);
        Node& d = desk.addPath({{0, 0}, {10, 0}, {10, 10}}, false, &layer);
        Node& e = desk.addPath({{0, 0}, {10, 0}}, false, &desk.document().addLayer("Other"));

        void select(std::initializer_list<Node*> nodes) {
            for (Node* const node : nodes) desk.document().select(*node, true);
        }
    };
    const struct {
        const char* what;
        std::function<void(Drawing&)> set;
        std::vector<int> moved;
        Point group = {}; // how far the containers count as moved
    } rows[] = {
        {"nothing", [](Drawing&) {}, {0, 0, 0, 0, 0}},
        {"a group", [](Drawing& d) { d.select({&d.group}); }, {1, 1, 1, 0, 0}, {0, -50}},
        {"part of a group",
         [](Drawing& d) {
             d.select({&d.a, &d.inner});
         },
         {1, 0, 1, 0, 0}},
        {"all",
         [](Drawing& d) {
             d.select({&d.group, &d.d, &d.e});
         },
         {1, 1, 1, 1, 1},
         {0, -50}},
        {"a locked group",
         [](Drawing& d) {
             d.select({&d.group, &d.d});
             d.desk.document().setLocked(d.group, true);
         },
         {0, 0, 0, 1, 0}},
        {"members of a hidden group",
         [](Drawing& d) {
             d.select({&d.a, &d.c, &d.e});
             d.desk.document().setHidden(d.group, true);
         },
         {0, 0, 0, 0, 1}},
        {"art beside a locked layer that is current, of which nobody need hear",
         [](Drawing& d) {
             d.select({&d.d});
             d.desk.document().setLocked(d.desk.document().currentLayer(), true);
         },
         {0, 0, 0, 1, 0}},
        {"art on a locked layer",
         [](Drawing& d) {
             d.select({&d.group, &d.e});
             d.desk.document().setLocked(d.layer, true);
         },
         {0, 0, 0, 0, 1}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        Drawing drawing;
        row.set(drawing);
        const auto steps = drawing.desk.document().journal().undoDepth();
        drag(drawing.desk, {0, -50});
        std::vector<int> moved;
        for (const Node* const path : {&drawing.a, &drawing.b, &drawing.c, &drawing.d, &drawing.e})
            moved.push_back(static_cast<int>(std::lround(drawing.desk.anchors(*path)[0].y / -50)));
        EXPECT_EQ(moved, row.moved);
        EXPECT_EQ(drawing.group.placed(), (easel::model::Affine{.e = row.group.x, .f = row.group.y}));
        EXPECT_EQ(drawing.desk.document().journal().undoDepth() - steps, row.moved == std::vector<int>(5) ? 0u : 1u);
    }
}

TEST(MoverTool, MovesACompoundPathOrThePartsOfItThatAreSelected) {
    for (const bool whole : {true, false}) {
        Desk desk;
        Node& ring = desk.document().create(NodeType::Compound, Placement::OnTopInside, desk.document().currentLayer());
        Node& hole = desk.addPath({{2, 2}, {4, 2}, {4, 4}}, true, &ring);
        Node& rim = desk.addPath({{0, 0}, {9, 0}, {9, 9}}, true, &ring);
        desk.document().select(whole ? ring : hole, true);
        drag(desk, {0, -50});
        EXPECT_EQ(desk.anchors(hole)[0], (Point{2, -48}));
        EXPECT_EQ(desk.anchors(rim)[0], (Point{0, whole ? -50.0 : 0.0}));
    }
}

TEST(MoverTool, MovesTheSelectedPointsOfAPathWithTheirHandles) {
    Desk desk;
    Node& path = desk.addPath({{0, 0}, {10, 0}, {10, 10}});
    easel::model::PathPoint curved{{10, 0}, {8, 0}, {12, 1}};
    desk.document().setPoints(path, 1, &curved, 1);
    // Of the first only a control point is selected, which is not its anchor.
    desk.document().selectPoints(path, PointSelection{easel::model::kOutPart, easel::model::kAnchorPart, 0});
    drag(desk, {0, 40});
    EXPECT_EQ(desk.anchors(path), (std::vector<Point>{{0, 0}, {10, 40}, {10, 10}}));
    EXPECT_EQ(path.path().points[1].in, (Point{8, 40}));
    EXPECT_EQ(path.path().points[1].out, (Point{12, 41}));
}

TEST(MoverTool, ShowsAGuideFromTheSecondDragOn) {
    Desk desk;
    Node& path = desk.addPath({{0, 0}, {10, 0}});
    desk.document().select(path, true);
    desk.selectTool(kMover);
    auto& pointer = desk.session().pointer;
    pointer.press({300, 200}, 0);
    EXPECT_EQ(desk.session().screen.cursor.number, 140);
    for (const std::size_t paths : {1u, 2u, 2u}) {
        pointer.drag({300, 150}, 0);
        EXPECT_EQ(desk.paths().size(), paths);
        EXPECT_EQ(desk.anchors(path)[0], (Point{0, -50})); // from the press, however many drags
    }
    const auto ends = desk.anchors(*desk.paths().front());
    EXPECT_NEAR(ends[0].x, 300, 1e-6);
    EXPECT_NEAR(ends[0].y, 200 - 7200, 1e-6);
    EXPECT_NEAR(ends[1].y, 200 + 7200, 1e-6);
    pointer.release({300, 160}, 0);
    EXPECT_EQ(desk.session().screen.cursor.number, 20);
    EXPECT_EQ(desk.paths().size(), 1u);
    EXPECT_EQ(desk.anchors(path)[0], (Point{0, -40}));
}

// What the last drag moved, and what becomes of it before the release moves it for good.
TEST(MoverTool, MovesWhatCanStillBeMovedAtTheRelease) {
    struct Drawing {
        Desk desk;
        easel::model::Document& document = desk.document();
        Node& rest = desk.addPath({{0, 0}, {10, 0}});
        Node& layer = document.addLayer("Upper");
        Node& path = desk.addPath({{0, 0}, {10, 0}}, false, &layer);
    };
    const struct {
        const char* what;
        std::function<void(Drawing&)> change;
        std::size_t paths;
        double moved; // the path; the rest moves in any case
    } rows[] = {
        {"nothing", [](Drawing&) {}, 2, -50},
        {"it is locked", [](Drawing& d) { d.document.setLocked(d.path, true); }, 2, 0},
        {"it is hidden", [](Drawing& d) { d.document.setHidden(d.path, true); }, 2, 0},
        {"it is gone", [](Drawing& d) { d.document.remove(d.path); }, 1, 0},
        {"its layer is locked", [](Drawing& d) { d.document.setLocked(d.layer, true); }, 2, 0},
        {"its layer is hidden", [](Drawing& d) { d.document.setHidden(d.layer, true); }, 2, 0},
        {"its layer is gone", [](Drawing& d) { d.document.remove(d.layer); }, 1, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        Drawing drawing;
        for (Node* const path : {&drawing.path, &drawing.rest}) drawing.document.select(*path, true);
        desk::Receiver change{[&] { row.change(drawing); }};
        kzo::core::Plugin::instance()->setToolPreMouseUpCallback(change.callback());
        drag(drawing.desk, {0, -50});
        const auto paths = drawing.desk.paths();
        ASSERT_EQ(paths.size(), row.paths);
        EXPECT_EQ(drawing.desk.anchors(*paths.back())[0], (Point{0, -50}));
        if (row.paths > 1) {
            EXPECT_EQ(drawing.desk.anchors(*paths.front())[0], (Point{0, row.moved}));
        }
    }
}

// Back where it began, by a click or without a selection: no step. By Escape: as before the press.
TEST(MoverTool, LeavesNoStepWhereNothingChanged) {
    Desk desk;
    Node& path = desk.addPath({{0, 0}, {10, 0}});
    const std::string before = desk.svg();
    const auto steps = desk.document().journal().undoDepth();
    const std::function<void()> gestures[] = {[&] {
                                                  drag(desk, {60, 0});
                                              },
                                              [&] {
                                                  desk.document().select(path, true);
                                                  drag(desk, {});
                                              },
                                              [&] {
                                                  desk.stroke({{300, 200}});
                                              },
                                              [&] {
                                                  desk.session().pointer.press({300, 200}, 0);
                                                  desk.session().pointer.drag({400, 200}, 0);
                                                  desk.session().pointer.cancel();
                                              }};
    for (const auto& gesture : gestures) {
        gesture();
        EXPECT_EQ(desk.svg(), before);
        EXPECT_EQ(desk.document().journal().undoDepth(), steps);
    }
}

} // namespace
