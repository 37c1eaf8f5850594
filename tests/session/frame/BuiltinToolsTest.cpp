// The host's own tools, played as a user would: what is selected, what moved, and what became an undo step.
#include <gmock/gmock.h>

#include "hostapi/AIToolNames.h"
#include "session/app/Session.h"
#include "session/input/Keys.h"
#include "support/Drawing.h"

namespace {

using namespace easel;
using model::Node;
using model::Point;
using testing::ElementsAre;
using testing::IsEmpty;

class BuiltinToolsTest : public testing::Test {
  protected:
    BuiltinToolsTest() { session.pointer.snapping.toPoint = false; }

    void take(const char* tool) { session.input.selectTool(*session.toolbox.findByName(tool)); }
    void stroke(std::initializer_list<Point> points, session::Modifiers modifiers = 0) {
        session.pointer.press(*points.begin(), modifiers);
        for (auto point = points.begin() + 1; point != points.end(); ++point) session.pointer.drag(*point, modifiers);
        session.pointer.release(*(points.end() - 1), modifiers);
    }
    void click(Point at, session::Modifiers modifiers = 0) { stroke({at}, modifiers); }
    Node& line(Point from, Point to) { return addLine(document, document.currentLayer(), from, to); }
    /// A filled square of 20 points.
    Node& square(double left, double top, Node* container = nullptr) {
        using model::corner;
        Node& path = addPath(
            document, container ? *container : document.currentLayer(),
            {corner(left, top), corner(left + 20, top), corner(left + 20, top + 20), corner(left, top + 20)}, true);
        document.setStyle(path, model::painted(true, 1));
        return path;
    }
    static Point anchor(const Node& path, std::size_t index) { return path.path().points[index].anchor; }
    static std::vector<std::size_t> selectedPoints(const Node& path) {
        std::vector<std::size_t> selected;
        for (std::size_t i = 0; i < path.path().points.size(); ++i)
            if (path.pointSelected(i)) selected.push_back(i);
        return selected;
    }

    session::Session session;
    model::Document& document = session.newDocument(200, 200);
};

// Of what is selected in part a click takes the rest, and nothing moves that is locked from above.
TEST_F(BuiltinToolsTest, SelectionTakesAllOfWhatIsPartlySelectedAndMovesWhatItMay) {
    Node& group = document.create(model::NodeType::Group, model::Placement::OnTopInside, document.currentLayer());
    Node& kept = square(100, 100, &group);
    Node& part = square(10, 10);
    document.setLocked(group, true);
    document.select(kept, true);
    document.selectPoints(part, model::PointSelection{true, false, false, false});
    take(kAISelectionTool);
    click({20, 20}, kAIShiftKey);
    EXPECT_TRUE(part.allPointsSelected());
    stroke({{20, 20}, {50, 20}});
    EXPECT_EQ(anchor(part, 0), (Point{40, 10}));
    EXPECT_EQ(anchor(kept, 0), (Point{100, 100}));

    // One path of a group used to be dragged out of it.
    const Node& other = square(140, 100, &group);
    document.setLocked(group, false);
    document.deselectAll();
    document.select(kept, true);
    stroke({{110, 110}, {110, 115}});
    EXPECT_EQ(anchor(other, 0), (Point{140, 105}));
    stroke({{110, 115}, {110, 155}}, kAIOptionKey); // a copy of the whole, once
    EXPECT_THAT(allNodes(document), testing::SizeIs(1 + 3 + 3 + 1));
    EXPECT_EQ(anchor(kept, 0), (Point{100, 105}));
}

// What had been hidden or locked went on being moved by the arrow keys, and shown as selected.
TEST_F(BuiltinToolsTest, WhatCannotBeEditedIsNotSelected) {
    Node& layer = document.currentLayer();
    Node& first = square(10, 10);
    Node& second = square(100, 10);
    for (const bool hides : {true, false}) {
        const auto keep = [&](Node& node) { hides ? document.setHidden(node, true) : document.setLocked(node, true); };
        document.select(first, true);
        document.select(second, true);
        keep(first);
        EXPECT_THAT(document.selection(), ElementsAre(&second));
        keep(layer);
        EXPECT_THAT(document.selection(), IsEmpty());
        ASSERT_TRUE(document.journal().undo() && document.journal().undo());
        EXPECT_THAT(document.selection(), testing::SizeIs(2));
        document.deselectAll();
        document.select(second, true);
        for (int i = 0; i < 2; ++i) session.input.pressKey(session::key::kZ, kAICommandKey | kAIShiftKey);
        EXPECT_THAT(document.selection(), IsEmpty());
        ASSERT_TRUE(document.journal().undo() && document.journal().undo());
    }
}

TEST_F(BuiltinToolsTest, SelectionSelectsTheTopmostObjectThatCanBe) {
    EXPECT_EQ(session.toolbox.current()->name, kAISelectionTool);
    Node& below = line({0, 15}, {100, 15});
    Node& above = square(10, 10);
    const auto depth = document.journal().undoDepth();
    click({15, 15});
    EXPECT_THAT(document.selection(), ElementsAre(&above)); // though the line passes right through the place
    click({50, 17});                                        // two screen units away, and no more
    EXPECT_THAT(document.selection(), ElementsAre(&below));
    click({15, 15}, kAIShiftKey);
    EXPECT_THAT(document.selection(), ElementsAre(&above, &below));
    click({50, 15}, kAIShiftKey);
    EXPECT_THAT(document.selection(), ElementsAre(&above));
    click({150, 150}, kAIShiftKey);
    EXPECT_THAT(document.selection(), ElementsAre(&above));
    click({150, 150});
    EXPECT_THAT(document.selection(), IsEmpty());
    EXPECT_EQ(document.journal().undoDepth(), depth);
    document.view.zoom = 8; // two screen units are a quarter of a point
    click({50, 15.5});
    EXPECT_THAT(document.selection(), IsEmpty());
}

TEST_F(BuiltinToolsTest, SelectionMovesWhatIsSelectedInOneStep) {
    Node& a = line({10, 10}, {50, 10});
    Node& b = line({10, 50}, {50, 50});
    const auto depth = document.journal().undoDepth();
    click({20, 10});
    const auto before = listing(document);
    stroke({{20, 50}, {25, 60}, {30, 70}}, kAIShiftKey); // shift takes b as well and keeps to a diagonal
    EXPECT_EQ(session.pointer.location(), (Point{35, 65}));
    EXPECT_EQ(anchor(a, 0), (Point{25, 25}));
    EXPECT_EQ(anchor(b, 1), (Point{65, 65}));
    stroke({{30, 25}, {31, 20}, {30, 35}});
    EXPECT_EQ(anchor(b, 0), (Point{25, 75}));
    EXPECT_THAT(document.selection(), testing::SizeIs(2));
    EXPECT_EQ(document.journal().undoDepth(), depth + 2);
    click({30, 35}); // a click on one of several leaves just that one
    EXPECT_THAT(document.selection(), ElementsAre(&a));
    EXPECT_TRUE(document.journal().undo() && document.journal().undo());
    EXPECT_EQ(listing(document), before);

    session.pointer.press({20, 50}, 0);
    session.pointer.drag({90, 90}, 0);
    session.pointer.cancel();
    EXPECT_EQ(listing(document), before);
    stroke({{20, 50}, {60, 60}, {20, 50}}); // there and back again
    EXPECT_EQ(document.journal().undoDepth(), depth);
}

TEST_F(BuiltinToolsTest, SelectionTakesGroupsAsOneAndWhatAMarqueeTouches) {
    Node& group = document.create(model::NodeType::Group, model::Placement::OnTopInside, document.currentLayer());
    Node& first = square(10, 10, &group);
    Node& second = square(100, 10, &group);
    // An arc whose control points reach up to y = 20, the curve itself only to (70 + 3 * 20) / 4 = 32.5.
    Node& arc =
        addPath(document, document.currentLayer(), {{{10, 70}, {10, 70}, {10, 20}}, {{50, 70}, {50, 20}, {50, 70}}});
    stroke({{15, 15}, {15, 20}});
    EXPECT_THAT(document.selection(), ElementsAre(&group, &second, &first));
    EXPECT_EQ(anchor(second, 0), (Point{100, 15}));
    stroke({{48, 22}, {35, 30}}); // in the hull of the arc, but above all of it
    EXPECT_THAT(document.selection(), IsEmpty());
    stroke({{60, 65}, {40, 62}});
    EXPECT_THAT(document.selection(), ElementsAre(&arc));
    stroke({{45, 66}, {115, 20}}, kAIShiftKey); // turns each around: the arc off, the group on
    EXPECT_THAT(document.selection(), ElementsAre(&group, &second, &first));
    stroke({{150, 150}, {151, 151}});
    EXPECT_THAT(document.selection(), IsEmpty());
    document.settings.isolated = group.id(); // of which the parts are taken, then
    click({15, 20});
    EXPECT_THAT(document.selection(), ElementsAre(&first));
    document.settings.isolated = {};
    stroke({{15, 20}, {15, 25}}); // all of the group, not the part alone
    EXPECT_EQ(anchor(second, 0), (Point{100, 20}));
}

TEST_F(BuiltinToolsTest, DirectSelectionMovesAnchorsSegmentsAndHandles) {
    take(kAIDirectSelectionTool);
    Node& path = square(10, 10);
    click({10, 10});
    EXPECT_THAT(selectedPoints(path), ElementsAre(0));
    click({30, 30}, kAIShiftKey);
    EXPECT_THAT(selectedPoints(path), ElementsAre(0, 2));
    click({10, 10}, kAIShiftKey);
    EXPECT_THAT(selectedPoints(path), ElementsAre(2));
    click({10, 20}); // the segment that closes the path
    EXPECT_THAT(selectedPoints(path), ElementsAre(0, 3));
    stroke({{10, 20}, {0, 0}, {5, 20}});
    EXPECT_EQ(anchor(path, 3), (Point{5, 30}));
    EXPECT_EQ(anchor(path, 2), (Point{30, 30}));
    stroke({{20, 20}, {20, 25}}); // its inside is all of it
    EXPECT_EQ(anchor(path, 0), (Point{5, 15}));
    EXPECT_THAT(selectedPoints(path), ElementsAre(0, 1, 2, 3));
    stroke({{0, 0}, {40, 20}});
    EXPECT_THAT(selectedPoints(path), ElementsAre(0, 1));
    click({100, 100});
    EXPECT_FALSE(path.selected());

    Node& curve =
        addPath(document, document.currentLayer(), {{{100, 100}, {90, 100}, {120, 100}}, model::corner(150, 100)});
    document.setCorners(curve, 0, {false});
    stroke({{120, 100}, {100, 140}}); // no handle yet, but the segment, for the anchor is not selected
    EXPECT_EQ(anchor(curve, 0), (Point{80, 140}));
    ASSERT_TRUE(document.journal().undo());
    click({100, 100});
    stroke({{120, 100}, {100, 130}});
    const auto point = [&] { return curve.path().points[0]; };
    EXPECT_EQ(point().out, (Point{100, 130}));
    EXPECT_EQ(point().in, (Point{100, 90})); // turned along, as long as it was
    stroke({{100, 130}, {110, 130}}, kAIOptionKey);
    EXPECT_EQ(point().in, (Point{100, 90}));
    EXPECT_TRUE(curve.path().isCorner(0));
    document.select(curve, true);
    stroke({{110, 130}, {120, 150}}); // of all of it no handle shows
    EXPECT_EQ(point().out, (Point{110, 130}));
}

TEST_F(BuiltinToolsTest, DirectSelectionCopiesWithOption) {
    take(kAIDirectSelectionTool);
    Node& path = square(10, 10);
    const auto anchors = [&] { // of what is selected
        std::vector<Point> all;
        for (const Node* const node : document.selection())
            for (const model::PathPoint& each : node->path().points) all.push_back(each.anchor);
        return all;
    };
    const auto before = path.path();
    stroke({{30, 20}, {50, 20}, {60, 20}}, kAIOptionKey); // a side of the square is a line then
    EXPECT_THAT(anchors(), ElementsAre(Point{60, 10}, Point{60, 30}));
    EXPECT_FALSE(document.selection()[0]->path().closed);
    stroke({{20, 20}, {120, 20}}, kAIOptionKey); // its fill means all of it
    EXPECT_THAT(anchors(), ElementsAre(Point{110, 10}, Point{130, 10}, Point{130, 30}, Point{110, 30}));
    EXPECT_EQ(path.path(), before);
    EXPECT_EQ(document.currentLayer().childCount(), 3U);
    stroke({{10, 10}, {5, 5}}, kAIOptionKey); // a lone anchor has no segment to copy
    EXPECT_EQ(anchor(path, 0), (Point{5, 5}));
    EXPECT_EQ(document.currentLayer().childCount(), 3U);
}

TEST_F(BuiltinToolsTest, KeysRemoveWhatIsSelectedAndTakeStepsBack) {
    const auto press = [&](std::int32_t key, session::Modifiers modifiers = 0) {
        session.input.pressKey(key, modifiers);
    };
    Node& below = line({0, 50}, {100, 50});
    Node& path = square(10, 10);
    const auto before = listing(document);
    press(session::key::kDelete); // nothing is selected
    click({15, 15});
    click({50, 50}, kAIShiftKey);
    document.setLocked(below, true);
    document.select(below, true); // as plug-ins may
    const auto depth = document.journal().undoDepth();
    press(session::key::kForwardDelete);
    EXPECT_THAT(allNodes(document), ElementsAre(&document.currentLayer(), &below));
    EXPECT_EQ(document.journal().undoDepth(), depth + 1);
    press(session::key::kZ, kAIShiftKey); // without command it is a letter
    session.pointer.press({150, 150}, 0);
    press(session::key::kZ, kAICommandKey); // not in the middle of a gesture
    session.pointer.cancel();
    EXPECT_FALSE(path.alive());
    press(session::key::kZ, kAICommandKey);
    EXPECT_TRUE(path.alive());
    press(session::key::kZ, kAICommandKey | kAIShiftKey);
    EXPECT_FALSE(path.alive());
    while (document.journal().undoDepth() > depth - 1) press(session::key::kZ, kAICommandKey);
    document.deselectAll();
    EXPECT_EQ(listing(document), before);

    // Of a square without its first corner two sides are left; without its second too, one. An open path falls apart.
    const struct {
        bool closed;
        std::vector<std::size_t> selected;
        std::vector<std::vector<Point>> left;
    } rows[] = {
        {true, {0}, {{{30, 10}, {30, 30}, {10, 30}}}},  {true, {1}, {{{30, 30}, {10, 30}, {10, 10}}}},
        {true, {0, 1}, {{{30, 30}, {10, 30}}}},         {true, {0, 2}, {}},
        {false, {0}, {{{30, 10}, {30, 30}, {10, 30}}}}, {false, {1}, {{{30, 30}, {10, 30}}}},
    };
    for (const auto& row : rows) {
        const auto steps = document.journal().undoDepth();
        document.setClosed(path, row.closed);
        model::PointSelection flags(4);
        for (const std::size_t index : row.selected) flags[index] = true;
        document.selectPoints(path, flags);
        press(session::key::kDelete);
        std::vector<std::vector<Point>> left;
        for (const Node* node : allNodes(document)) {
            if (node->type() != model::NodeType::Path || node == &below) continue;
            EXPECT_FALSE(node->path().closed || node->selected());
            left.emplace_back();
            for (std::size_t i = 0; i < node->path().points.size(); ++i) left.back().push_back(anchor(*node, i));
        }
        EXPECT_EQ(left, row.left);
        while (document.journal().undoDepth() > steps) document.journal().undo();
    }
}

} // namespace
