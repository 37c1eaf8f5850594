// Searching by place: kinds, distances, order, what is passed over; curves against an independent geometry library.
#include "model/HitTest.h"

#include <2geom/path.h>
#include <2geom/pathvector.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/Drawing.h"

namespace easel::model {
namespace {

constexpr HitRequest kEverything = HitRequest::Anchors | HitRequest::InHandles | HitRequest::OutHandles |
                                   HitRequest::Segments | HitRequest::Fills | HitRequest::Guides;

class HitTest : public testing::Test {
  protected:
    Hit at(double x, double y, HitRequest request = kEverything, double tolerance = 2) {
        return document.hitTest(document.root(), {x, y}, tolerance, request);
    }

    Document document{200, 200};
    Node& layer = document.currentLayer();
};

TEST_F(HitTest, KindDecidesBeforeDistanceBeforePaintOrder) {
    Node& below = addLine(document, layer, {0, 0}, {10, 0});
    Node& above = addLine(document, layer, {0, 1}, {10, 1});
    const struct {
        double x, y;
        HitKind kind;
        Node* node;
        int index;
        HitOrder order = HitOrder::Kind;
    } rows[] = {
        {1.5, 0.9, HitKind::Anchor, &above, 0}, // though the segment is nearer
        {9.9, 0.2, HitKind::Anchor, &below, 1}, // nearer than the other anchor
        {10, 0.5, HitKind::Anchor, &above, 1},  // equally near: the upper one
        {5, 0.4, HitKind::Segment, &below, 0},  // nearer
        {5, 0.5, HitKind::Segment, &above, 0},  // equally near
        {5, 4, HitKind::None, nullptr, -1},
        {1.5, 0.9, HitKind::Anchor, &above, 0, HitOrder::Paint},
        {9.9, 0.2, HitKind::Anchor, &above, 1, HitOrder::Paint},
        {5, 0.4, HitKind::Segment, &above, 0, HitOrder::Paint},
        {11.9, 0, HitKind::Anchor, &below, 1, HitOrder::Paint}, // out of the other's reach
    };
    for (const auto& row : rows) {
        const Hit hit = document.hitTest(document.root(), {row.x, row.y}, 2, kEverything, row.order);
        EXPECT_EQ(std::tie(hit.kind, hit.node, hit.index), std::tie(row.kind, row.node, row.index))
            << row.x << ' ' << row.y;
    }
}

TEST_F(HitTest, OnlyWhatIsAskedForIsFound) {
    // A square with one curved corner; the point lies near an anchor and both its handles.
    Node& path = addPath(document, layer, {{{10, 10}, {9, 10}, {11, 10}}, corner(50, 10), corner(50, 50)}, true);
    document.setStyle(path, painted(true, 1));
    const struct {
        HitRequest request;
        HitKind kind;
        Point point;
        int index;
    } rows[] = {
        {kEverything, HitKind::Anchor, {10, 10}, 0},
        {HitRequest::InHandles | HitRequest::OutHandles | HitRequest::Segments, HitKind::InHandle, {9, 10}, 0},
        {HitRequest::OutHandles | HitRequest::Segments, HitKind::OutHandle, {11, 10}, 0},
        {HitRequest::Fills, HitKind::Fill, {10.5, 10.1}, -1},
        {HitRequest::Guides, HitKind::None, {}, -1},
        {HitRequest::Nothing, HitKind::None, {}, -1},
    };
    for (const auto& row : rows) {
        const Hit hit = at(10.5, 10.1, row.request);
        EXPECT_EQ(std::tie(hit.kind, hit.point, hit.index), std::tie(row.kind, row.point, row.index));
    }
    EXPECT_EQ(at(50, 10, HitRequest::InHandles | HitRequest::OutHandles).kind, HitKind::None); // retracted
    EXPECT_EQ(at(30, 30.5, HitRequest::Segments).index, 2);                                    // the closing one
    document.setClosed(path, false);
    EXPECT_EQ(at(30, 30.5, HitRequest::Segments).kind, HitKind::None);
    EXPECT_EQ(at(30, 25, HitRequest::Fills, 0).kind, HitKind::Fill); // an open path is filled all the same
    document.setStyle(path, painted(false, 1));
    EXPECT_EQ(at(30, 25, HitRequest::Fills, 0).kind, HitKind::None);
}

TEST_F(HitTest, ToleranceIncludesItsBoundaryAndNeedsNoSegment) {
    addLine(document, layer, {103, 104}, {150, 104});
    EXPECT_EQ(at(100, 100, kEverything, 5).kind, HitKind::Anchor);
    EXPECT_EQ(at(100, 100, kEverything, std::nextafter(5, 0)).kind, HitKind::None);
    EXPECT_EQ(at(120, 103.9, kEverything, 104 - 103.9).kind, HitKind::Segment);
    EXPECT_EQ(at(103, 104, kEverything, 0).kind, HitKind::Anchor);
    for (const double bad : {-1.0, std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_EQ(at(103, 104, kEverything, bad).kind, HitKind::None);
        EXPECT_EQ(at(std::log(bad), 104).kind, HitKind::None);
    }
    EXPECT_EQ(at(0, 0, kEverything, std::numeric_limits<double>::infinity()).kind, HitKind::Anchor);
    // An arc that comes down to y = (170 + 3 * 120) / 4 = 132.5; two in one place, and the upper one is hit.
    Node* upper = nullptr;
    for (int i = 0; i < 2; ++i)
        upper = &addPath(document, layer, {{{10, 170}, {10, 170}, {10, 120}}, {{50, 170}, {50, 120}, {50, 170}}});
    EXPECT_EQ(at(30, 130, HitRequest::Segments, 2.5).node, upper);
    EXPECT_EQ(at(30, 130, HitRequest::Segments, 2.499).node, nullptr);
    // Far out, where the index rounds.
    addPath(document, layer, {corner(16777217.5, 3), corner(16777219.5, 3)});
    EXPECT_EQ(at(16777217.5, 3, kEverything, 0).kind, HitKind::Anchor);
    EXPECT_EQ(at(16777217.25, 3, kEverything, 0.125).kind, HitKind::None);
    // A lone anchor is nothing else, and a path may have none at all.
    addPath(document, layer, {corner(10, 10)}, true);
    addPath(document, layer, {});
    EXPECT_EQ(at(10, 11).kind, HitKind::Anchor);
    EXPECT_EQ(at(10, 11, HitRequest::Segments | HitRequest::Fills).kind, HitKind::None);
}

TEST_F(HitTest, HiddenAndLockedArtIsPassedOver) {
    Node& group = document.create(NodeType::Group, Placement::OnTopInside, layer);
    Node& line = addLine(document, group, {10, 10}, {20, 10});
    for (Node* node : {&line, &group, &layer}) {
        document.setLocked(*node, true);
        EXPECT_EQ(at(10, 10).kind, HitKind::None);
        EXPECT_EQ(document.topmostAt({10, 10}, 2), nullptr);
        EXPECT_TRUE(document.snapPoint({10, 10}, 2));
        document.setLocked(*node, false);
        document.setHidden(*node, true);
        EXPECT_EQ(at(10, 10).kind, HitKind::None);
        EXPECT_EQ(document.topmostAt({10, 10}, 2), nullptr);
        EXPECT_FALSE(document.snapPoint({10, 10}, 2));
        document.setHidden(*node, false);
        EXPECT_EQ(at(10, 10).node, &line);
    }
}

TEST_F(HitTest, SearchIsLimitedToWhatANodeHolds) {
    Node& group = document.create(NodeType::Group, Placement::OnTopInside, layer);
    Node& inside = addLine(document, group, {10, 10}, {20, 10});
    Node& outside = addLine(document, layer, {10, 10}, {20, 10});
    Node& second = document.addLayer("second");
    const auto hit = [&](Node& within) { return document.hitTest(within, {10, 10}, 1, kEverything).node; };
    EXPECT_EQ(hit(document.root()), &outside);
    EXPECT_EQ(hit(layer), &outside);
    EXPECT_EQ(hit(group), &inside);
    EXPECT_EQ(hit(inside), &inside);
    EXPECT_EQ(hit(second), nullptr);
}

TEST_F(HitTest, SnapPassesOverWhatTheGestureMoves) {
    Node& moved = addLine(document, layer, {10, 10}, {20, 10});
    addLine(document, layer, {11, 10}, {20, 20});
    Journal& journal = document.journal();
    journal.begin();
    journal.mark();
    document.offset(moved, 5, 5);
    addLine(document, layer, {10, 10}, {0, 0});
    journal.rollBackToMark();
    EXPECT_EQ(document.snapPoint({10, 10}, 2), (Point{11, 10}));
    journal.rollBackToMark(); // the last one put nothing back
    EXPECT_EQ(document.snapPoint({10, 10}, 2), (Point{10, 10}));
    document.offset(moved, 5, 5);
    journal.rollBackToMark();
    journal.dropMark();
    EXPECT_EQ(document.snapPoint({10, 10}, 2), (Point{10, 10}));
    journal.end();
}

// Against other ways to the result

TEST_F(HitTest, IndexFindsWhatLookingAtEveryPathFinds) {
    RandomEditor random(11);
    Journal& journal = document.journal();
    for (int round = 0; round < 250; ++round) {
        journal.begin();
        if (round == 100) {
            for (int i = 0; i < 600; ++i)
                addPath(document, document.currentLayer(), random.points(2)); // enough to build it anew
        }
        if (round == 150) { // most go at once, and it is built from the rest
            for (Node* const node : allNodes(document))
                if (node->type() == NodeType::Path && random.below(10) > 0) document.remove(*node);
        }
        if (round % 3 == 0) journal.mark();
        for (int i = 0; i < 5; ++i) random.edit(document);
        if (round % 2 == 0) journal.rollBackToMark();
        const auto compare = [&] {
            const Point point = random.point();
            double nearest = 20;
            for (const Node* node : allNodes(document)) {
                if (node->type() != NodeType::Path || node->effectivelyHidden() || journal.wasRolledBack(*node))
                    continue;
                for (const PathPoint& p : node->path().points) {
                    nearest = std::min(nearest, std::hypot(p.anchor.x - point.x, p.anchor.y - point.y));
                }
            }
            const std::optional<Point> found = document.snapPoint(point, 20);
            ASSERT_EQ(found.has_value(), nearest < 20);
            if (found) {
                ASSERT_NEAR(std::hypot(found->x - point.x, found->y - point.y), nearest, 1e-12);
            }
        };
        compare();
        journal.end();
        compare();
        if (round % 7 == 0 && journal.undo()) compare();
    }
}

// Whoever asks again at one place is told from what was kept, whatever has changed in between.
TEST_F(HitTest, WhatIsKeptOfASearchIsWhatSearchingAnewFinds) {
    RandomEditor random(5);
    for (int round = 0; round < 500; ++round) {
        document.journal().begin();
        if (round % 50 == 0)
            for (int i = 0; i < 20; ++i)
                document.setStyle(addPath(document, document.currentLayer(), random.points(4)), painted(true, 1));
        const Point point = random.point();
        const HitOrder order = round % 2 == 0 ? HitOrder::Kind : HitOrder::Paint;
        const auto find = [&](Node& within) { return document.hitTest(within, point, 9, kEverything, order); };
        const auto findAll = [&] {
            std::vector<Hit> hits{find(document.root())};
            for (Node* node = document.root().firstChild(); node; node = node->next()) hits.push_back(find(*node));
            return hits;
        };
        findAll();
        for (int change = 0; change < 6; ++change) {
            findAll(); // kept from the second time on
            const Hit hit = find(document.root());
            switch (hit.node ? random.below(8) : 7) {
            case 0: document.setHidden(*hit.node, true); break;
            case 1: document.select(*hit.node, true); break;
            case 2:
                if (document.currentLayer().mayHold(hit.node->type()) && !hit.node->isSubpath())
                    document.place(*hit.node, Placement::AtBottomInside, document.currentLayer());
                break;
            case 3:
                if (!hit.node->isSubpath()) document.create(NodeType::Group, Placement::Below, *hit.node);
                break;
            case 4: document.setStyle(*hit.node, painted(random.below(2) == 0, 2)); break;
            case 5: document.journal().rollBackTransaction(); break;
            default: random.edit(document);
            }
        }
        const std::vector<Hit> kept = findAll();
        static_cast<void>(document.hitTest(document.root(), {-1e6, 0}, 0, kEverything));
        const std::vector<Hit> anew = findAll();
        ASSERT_EQ(kept.size(), anew.size());
        for (std::size_t i = 0; i < kept.size(); ++i)
            ASSERT_EQ(std::tie(kept[i].kind, kept[i].node, kept[i].index, kept[i].point),
                      std::tie(anew[i].kind, anew[i].node, anew[i].index, anew[i].point))
                << round;
        document.journal().end();
        if (round % 5 == 0) document.journal().undo();
    }
}

TEST_F(HitTest, LongPathsAreSearchedAsTheyAreWhileTheyChange) {
    // A path that a running transaction has made is looked through point by point.
    Document looking{200, 200};
    looking.journal().begin();
    RandomEditor random(12);
    Node& path = addPath(document, layer, {});
    Node& same = addPath(looking, looking.currentLayer(), {});
    for (int round = 0; round < 40; ++round) {
        const PathData data{random.points(256 + random.below(200)), round % 2 == 0};
        document.setPath(path, data);
        looking.setPath(same, data);
        for (int i = 0; i < 40; ++i) {
            const Point from = random.point();
            for (const HitRequest request : {HitRequest::Anchors, HitRequest::InHandles, HitRequest::OutHandles,
                                             HitRequest::Segments, kEverything}) {
                const Hit hit = at(from.x, from.y, request, i % 4);
                const Hit expected = looking.hitTest(looking.root(), from, i % 4, request);
                ASSERT_EQ(std::tie(hit.kind, hit.index, hit.t, hit.point),
                          std::tie(expected.kind, expected.index, expected.t, expected.point))
                    << round << ' ' << i;
            }
        }
    }
    looking.journal().end();
}

Geom::Path outline(const PathData& data) {
    const auto point = [](Point p) { return Geom::Point(p.x, p.y); };
    Geom::Path path(point(data.points.front().anchor));
    for (std::size_t i = 0; i < data.segmentCount(); ++i) {
        const PathPoint& start = data.points[i];
        const PathPoint& end = data.points[(i + 1) % data.points.size()];
        path.appendNew<Geom::CubicBezier>(point(start.out), point(end.in), point(end.anchor));
    }
    path.close();
    return path;
}

TEST_F(HitTest, CurvesAgreeWithAnIndependentLibrary) {
    RandomEditor random(5);
    Node& path = addPath(document, layer, {});
    Style style = painted(true, 1);
    for (int round = 0; round < 3000; ++round) {
        style.evenOdd = round % 2 == 0;
        document.setStyle(path, style);
        document.setPath(path, {random.points(1 + random.below(5)), true});
        const Geom::Path other = outline(path.path());
        const Point from = random.point();
        if (path.path().segmentCount() > 0) {
            double expected = 0;
            other.nearestTime({from.x, from.y}, &expected);
            const Hit hit = at(from.x, from.y, HitRequest::Segments, 200);
            ASSERT_EQ(hit.kind, HitKind::Segment);
            ASSERT_NEAR(std::hypot(hit.point.x - from.x, hit.point.y - from.y), expected, 1e-6) << round;
            const Geom::Point onCurve = other[std::size_t(hit.index)].pointAt(hit.t);
            ASSERT_NEAR(std::hypot(onCurve.x() - hit.point.x, onCurve.y() - hit.point.y), 0, 1e-9) << round;
            const int winding = other.winding({from.x, from.y});
            const bool inside = style.evenOdd ? winding % 2 != 0 : winding != 0;
            ASSERT_EQ(at(from.x, from.y, HitRequest::Fills, 0).kind == HitKind::Fill, inside) << round;
        }
    }
}

TEST_F(HitTest, SubpathsAreHitAloneButFilledTogether) {
    Node& ring = document.create(NodeType::Compound, Placement::OnTopInside, layer);
    const auto addSquare = [&](double from, double to) -> Node& {
        return addPath(document, ring, {corner(from, from), corner(to, from), corner(to, to), corner(from, to)}, true);
    };
    Node& outer = addSquare(0, 90);
    Node& inner = addSquare(30, 60);
    const struct {
        double x;
        Node* evenOdd;
        Node* nonZero;
    } rows[] = {{10, &outer, &outer}, {45, nullptr, &inner}, {75, &outer, &outer}, {100, nullptr, nullptr}};
    for (const bool evenOdd : {true, false}) {
        Style style = painted(true, 1);
        style.evenOdd = evenOdd;
        document.setStyle(ring, style);
        for (const auto& row : rows) {
            Node* const expected = evenOdd ? row.evenOdd : row.nonZero;
            EXPECT_EQ(at(row.x, 45, HitRequest::Fills, 0).node, expected) << row.x;
            EXPECT_EQ(document.topmostAt({row.x, 45}, 0), expected) << row.x;
            EXPECT_EQ(document.touching({row.x, 45, row.x, 45}).empty(), !expected) << row.x;
        }
        EXPECT_EQ(document.hitTest(inner, {45, 45}, 0, HitRequest::Fills).node, evenOdd ? nullptr : &inner);
    }
    EXPECT_EQ(at(60, 29, HitRequest::Anchors, 2).node, &inner);
    EXPECT_EQ(document.snapPoint({60, 29}, 2), (Point{60, 30}));
}

TEST_F(HitTest, InsideIsRightAtTheHeightOfCorners) {
    // A diamond and a star-like bow; rays through corners and along edges must not count twice.
    Node& diamond = addPath(document, layer, {corner(50, 10), corner(90, 50), corner(50, 90), corner(10, 50)}, true);
    Node& steps = addPath(
        document, layer,
        {corner(110, 10), corner(150, 10), corner(150, 50), corner(190, 50), corner(190, 90), corner(110, 90)}, true);
    document.setStyle(diamond, painted(true, 1));
    document.setStyle(steps, painted(true, 1));
    const struct {
        double x, y;
        Node* inside;
    } rows[] = {{50, 50, &diamond}, {5, 50, nullptr},   {5, 10, nullptr},    {5, 90, nullptr},
                {120, 50, &steps},  {100, 50, nullptr}, {170, 50.5, &steps}, {170, 49.5, nullptr}};
    for (const auto& [x, y, inside] : rows) EXPECT_EQ(at(x, y, HitRequest::Fills, 0).node, inside) << x << ' ' << y;
}

} // namespace
} // namespace easel::model
